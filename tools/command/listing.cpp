#include "tools/command/listing.hpp"

#include <nlohmann/json.hpp>

#include "catalogue/catalogue.hpp"

namespace command {

using namespace catalogue;
namespace {

std::string fieldType(const Member &field) {
  std::string type;
  switch (field.kind) {
    case Kind::kText:
      type = textType(field.size);
      break;
    case Kind::kSigned:
      type = "int" + std::to_string(8 * field.size);
      break;
    case Kind::kUnsigned:
      type = "uint" + std::to_string(8 * field.size);
      break;
    case Kind::kRecord:
      type = field.shape->name;
      break;
    default:
      break;
  }
  return field.isArray ? std::to_string(field.elements) + " x " + type : type;
}

enum class Side : uint8_t { kArgument, kAsked, kAnswer };

Json fieldsAsJson(const Shape &shape, Side side) {
  Json fields = Json::array();
  for (const Member &field : shape.members) {
    if (side == Side::kAsked && !field.isInput) continue;
    Json entry{{"name", field.name}, {"type", fieldType(field)}};
    const bool isOptional = field.isOptional || shape.isCounter(field);
    if (isOptional && side != Side::kAnswer) entry["optional"] = true;
    if (field.isSecret()) entry["secret"] = true;
    if (field.shape != nullptr) entry["fields"] = fieldsAsJson(*field.shape, side);
    fields.push_back(entry);
  }
  return fields;
}

// Members that one direction of a method has; a nameless record stands for its fields.
Json membersAsJson(const Method &method, bool isAnswer) {
  Json members = Json::array();
  const Side side = isAnswer ? Side::kAnswer : Side::kArgument;
  for (const Parameter &parameter : method.parameters) {
    const bool isAsked = !isAnswer && parameter.direction == Direction::kOut;
    if (isAsked && parameter.shape == nullptr) continue;
    if (isAnswer && parameter.direction == Direction::kIn) continue;
    if (parameter.name.empty() || isAsked) {
      for (const Json &field : fieldsAsJson(*parameter.shape, isAsked ? Side::kAsked : side))
        members.push_back(field);
      continue;
    }
    Json entry{{"name", parameter.name}, {"type", parameter.type}};
    if (parameter.isRows) entry["rows"] = true;
    if (parameter.isOptional && !isAnswer) entry["optional"] = true;
    if (parameter.isSecret) entry["secret"] = true;
    if (parameter.shape != nullptr) entry["fields"] = fieldsAsJson(*parameter.shape, side);
    members.push_back(entry);
  }
  return members;
}

Json exampleAsJson(const Example &example) {
  Json entry{{"profile", example.profile}, {"with", Json::parse(example.arguments)}};
  if (!example.before.empty()) {
    entry["after"] = {{"call", example.before}, {"with", Json::parse(example.beforeArguments)}};
  }
  return entry;
}

Json methodAsJson(const Method &method) {
  Json examples = Json::array();
  for (const Example &example : method.examples) examples.push_back(exampleAsJson(example));
  return {{"name", method.name},
          {"function", method.function},
          {"summary", method.summary},
          {"result", method.result},
          {"arguments", membersAsJson(method, false)},
          {"answer", membersAsJson(method, true)},
          {"examples", examples}};
}

void printMembers(const std::string &head, const Json &members, size_t indent, std::string &out) {
  for (const Json &member : members) {
    const bool isFirst = &member == &members.front();
    out += isFirst ? head : std::string(head.size(), ' ');
    out.append(indent, ' ');
    out += member["name"].get<std::string>() + ": ";
    out += (member.contains("rows") ? "rows of " : "") + member["type"].get<std::string>();
    if (member.contains("optional")) out += ", optional";
    if (member.contains("secret")) out += ", secret";
    out += '\n';
    if (member.contains("fields")) {
      printMembers(std::string(head.size(), ' '), member["fields"], indent + 2, out);
    }
  }
}

void printMethod(const Json &method, std::string &out) {
  out += "  " + method["name"].get<std::string>() + "  (" + method["function"].get<std::string>() +
         ")\n      " + method["summary"].get<std::string>() + "\n";
  printMembers("      in   ", method["arguments"], 0, out);
  const Json result{{"name", method["result"]}, {"type", "int32"}};
  Json answer = Json::array({result});
  for (const Json &member : method["answer"]) answer.push_back(member);
  printMembers("      out  ", answer, 0, out);
}

}  // namespace

Json listingAsJson(const std::string &onlyObject) {
  if (!onlyObject.empty()) findObject(onlyObject);
  Json objects = Json::array();
  for (const Object &object : catalogue::catalogue()) {
    if (!onlyObject.empty() && object.name != onlyObject) continue;
    Json methods = Json::array();
    for (const Method &method : object.methods) methods.push_back(methodAsJson(method));
    objects.push_back({{"name", object.name},
                       {"source", object.source},
                       {"summary", object.summary},
                       {"methods", methods}});
  }
  return objects;
}

std::string listing(const std::string &onlyObject, bool verbose) {
  std::string out;
  for (const Json &object : listingAsJson(onlyObject)) {
    const auto name = object["name"].get<std::string>();
    if (!verbose) {
      out += name + std::string(20 - std::min<size_t>(name.size(), 18), ' ') +
             object["summary"].get<std::string>() + '\n';
      continue;
    }
    if (!out.empty()) out += '\n';
    out += name + "  (" + object["source"].get<std::string>() + ")\n";
    for (const Json &method : object["methods"]) printMethod(method, out);
  }
  return out;
}

}  // namespace command
