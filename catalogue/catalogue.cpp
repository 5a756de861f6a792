#include "catalogue/catalogue.hpp"

#include <algorithm>

#include "catalogue/answer.hpp"

namespace catalogue {
namespace {

// Filled before main() runs, by the tables' entries.
std::vector<Object> &objects() {
  static std::vector<Object> all;
  return all;
}

bool isArgument(const Parameter &parameter, std::string_view name) {
  const bool isRead = parameter.direction != Direction::kOut;
  if (!parameter.name.empty() && isRead) return parameter.name == name;
  // Members of a record are arguments themselves; of an answering one, those that are inputs.
  if (parameter.shape == nullptr || parameter.isRows) return false;
  return std::any_of(
      parameter.shape->members.begin(), parameter.shape->members.end(),
      [&](const Member &field) { return (isRead || field.isInput) && field.name == name; });
}

}  // namespace

Entry::Entry(Object object) {
  std::vector<Object> &all = objects();
  const auto place = std::lower_bound(
      all.begin(), all.end(), object,
      [](const Object &left, const Object &right) { return left.name < right.name; });
  all.insert(place, std::move(object));
}

const std::vector<Object> &catalogue() {
  return objects();
}

const Object &findObject(std::string_view name) {
  for (const Object &object : catalogue()) {
    if (object.name == name) return object;
  }
  throw InputError(std::string(name), "no such object (pmapi list names them)");
}

const Method &findMethod(const Object &object, std::string_view name) {
  for (const Method &method : object.methods) {
    if (method.name == name) return method;
  }
  throw InputError(object.name + " " + std::string(name),
                   "no such method (pmapi list -v " + object.name + " names them)");
}

void checkArguments(const Object &object, const Method &method, const Json &arguments) {
  const std::string where = object.name + " " + method.name;
  if (!arguments.is_object()) throw InputError(where, "the arguments must be a JSON object");
  for (const auto &[name, value] : arguments.items()) {
    const std::string &wanted = name;
    const bool known =
        std::any_of(method.parameters.begin(), method.parameters.end(),
                    [&](const Parameter &parameter) { return isArgument(parameter, wanted); });
    if (!known) throw InputError(where + ": " + name, "no such argument");
  }
}

Answer invoke(const Object &object, const Method &method, const Json &arguments, Secrets &secrets) {
  checkArguments(object, method, arguments);
  Answer answer;
  // First, so that what the function returned leads the answer.
  answer.full[method.result] = answer.shown[method.result] = nullptr;
  Call call(object.name + " " + method.name, arguments, answer, secrets);
  const int64_t returned = method.invoke(call);
  answer.full[method.result] = answer.shown[method.result] = returned;
  answer.failed = method.returnsStatus() && returned != 0;
  return answer;
}

void prepare(const Example &example) {
  if (example.before.empty()) return;
  const std::string_view call = example.before;
  const size_t space = call.find(' ');
  const Object &object = findObject(call.substr(0, space));
  Secrets secrets;
  invoke(object, findMethod(object, call.substr(space + 1)),
         parseJson(example.beforeArguments, example.before), secrets);
}

}  // namespace catalogue
