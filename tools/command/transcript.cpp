#include "tools/command/transcript.hpp"

#include <filesystem>
#include <fstream>
#include <iostream>

#include "tools/command/output.hpp"

namespace command {
namespace {

struct Step {
  std::string where;
  Json json;

  template <class Value>
  Value get(const char *name) const {
    try {
      return json.at(name).get<Value>();
    } catch (const Json::exception &) {
      throw UsageError(where + ": " + name, "missing or of the wrong type");
    }
  }
  bool has(const char *name) const { return json.contains(name); }
  Json expected() const { return json.value("expect", Json()); }
};

// What a step gave: the answer to print and to compare, and what was wrong beyond that.
struct Outcome {
  std::optional<Json> full = std::nullopt;
  Json shown = {};
  std::string fault = {};
};

std::string missingFromTrail(const Step &step, const Trail &trail) {
  auto line = trail.texts().begin();
  for (const std::string &wanted : step.get<std::vector<std::string>>("trail")) {
    while (line != trail.texts().end() && line->find(wanted) == std::string::npos) ++line;
    if (line == trail.texts().end()) return "trail: no line with \"" + wanted + "\"";
    ++line;
  }
  return {};
}

Outcome playCall(const Step &step, Stage &stage) {
  const auto target = step.get<std::string>("call");
  const size_t blank = target.find(' ');
  if (blank == std::string::npos) throw UsageError(step.where, "expected \"OBJECT METHOD\"");
  const std::string object = target.substr(0, blank);
  const std::string method = target.substr(blank + 1);
  const Answer answer = stage.call(object, method, step.json.value("with", Json::object()));
  Outcome outcome{answer.full, answer.shown};
  if (answer.failed && !step.expected().contains("status")) {
    outcome.fault = "status: expected 0, got " + answer.full["status"].dump();
  } else if (step.has("trail")) {
    outcome.fault = missingFromTrail(step, stage.trail());
  }
  return outcome;
}

Outcome playRead(const Step &step, Stage &stage) {
  const auto lines = stage.readFile(step.get<std::string>("read"));
  const Json content = lines ? Json(*lines) : Json();
  return {content, stage.shown(content)};
}

Outcome playState(const Step &step, Stage &stage) {
  const auto place = step.get<std::string>("state");
  const Json state = stage.gatewayState();
  Json::json_pointer pointer;
  try {
    pointer = Json::json_pointer(place);
  } catch (const Json::exception &) {
    throw UsageError(step.where, "\"" + place + "\" is no place in a profile");
  }
  const Json found = state.contains(pointer) ? state.at(pointer) : Json();
  return {found, stage.shown(found)};
}

Outcome playStep(const Step &step, const std::string &fileName, Stage &stage) {
  if (step.has("call")) return playCall(step, stage);
  if (step.has("read")) return playRead(step, stage);
  if (step.has("state")) return playState(step, stage);
  if (step.has("gateway")) {
    const std::filesystem::path directory = std::filesystem::path(fileName).parent_path();
    stage.load((directory / step.get<std::string>("gateway")).string());
  } else if (step.has("write")) {
    stage.writeFile(step.get<std::string>("write"), step.get<std::vector<std::string>>("lines"));
  } else if (step.has("fail")) {
    stage.planFault(step.get<std::string>("fail"));
  } else if (step.has("advance")) {
    stage.advance(integerFromJson(step.json["advance"], step.where + ": advance", 0, UINT32_MAX));
  } else {
    throw UsageError(step.where, "no such step");
  }
  return {};
}

void checkMembers(const Step &step) {
  static const Secrets kMembers = {"call",    "with",  "expect", "trail",   "read", "state",
                                   "gateway", "write", "lines",  "advance", "fail"};
  if (!step.json.is_object()) throw UsageError(step.where, "expected a JSON object");
  for (const auto &[name, value] : step.json.items()) {
    if (!kMembers.contains(name)) throw UsageError(step.where + ": " + name, "no such member");
  }
}

Step parseStep(const std::string &where, const std::string &line) {
  Step step{where, Json::parse(line, nullptr, false)};
  if (step.json.is_discarded()) throw UsageError(where, "not JSON");
  checkMembers(step);
  return step;
}

}  // namespace

std::string difference(const Json &expected, const Json &actual, const std::string &place) {
  const std::string prefix = place.empty() ? "" : place + ": ";
  if (expected.is_object() && actual.is_object()) {
    for (const auto &[name, value] : expected.items()) {
      const std::string inner = place.empty() ? name : place + "." + name;
      if (!actual.contains(name)) return inner + ": expected " + value.dump() + ", got nothing";
      std::string found = difference(value, actual[name], inner);
      if (!found.empty()) return found;
    }
    return {};
  }
  if (expected.is_array() && actual.is_array()) {
    if (expected.size() != actual.size()) {
      return prefix + "expected " + std::to_string(expected.size()) + " elements, got " +
             std::to_string(actual.size());
    }
    for (size_t i = 0; i < expected.size(); ++i) {
      std::string found = difference(expected[i], actual[i], place + "[" + std::to_string(i) + "]");
      if (!found.empty()) return found;
    }
    return {};
  }
  if (expected == actual) return {};
  return prefix + "expected " + expected.dump() + ", got " + actual.dump();
}

bool playTranscript(std::istream &lines, const std::string &name, Playing playing,
                    const Printing &printing, Stage &stage) {
  bool asExpected = true;
  std::string line;
  for (int number = 1; std::getline(lines, line); ++number) {
    const bool isRecording = playing == Playing::kRecord;
    if (line.empty() || line[0] == '#') {
      if (isRecording) std::cout << line << '\n';
      continue;
    }
    Step step = parseStep(name + ":" + std::to_string(number), line);
    Outcome outcome;
    try {
      outcome = playStep(step, name, stage);
    } catch (const UsageError &error) {
      const std::string text = error.what();
      throw UsageError(text.starts_with(step.where) ? text : step.where + ": " + text);
    }
    if (isRecording) {
      if (outcome.full) step.json["expect"] = *outcome.full;
      std::cout << step.json.dump() << '\n';
      continue;
    }
    if (outcome.full)
      printAnswer(printing.showSecrets ? *outcome.full : outcome.shown, printing.table);
    std::string fault = outcome.fault;
    if (fault.empty() && step.has("expect")) fault = difference(step.expected(), *outcome.full);
    if (!fault.empty()) {
      std::cerr << step.where << ": " << fault << '\n';
      asExpected = false;
    }
  }
  return asExpected;
}

bool playFile(const std::string &name, Playing playing, const Printing &printing, Stage &stage) {
  if (name == "-") return playTranscript(std::cin, name, playing, printing, stage);
  std::ifstream file(name);
  if (!file) throw UsageError(name, "cannot be read");
  return playTranscript(file, name, playing, printing, stage);
}

}  // namespace command
