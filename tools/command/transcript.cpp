#include "tools/command/transcript.hpp"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <set>

#include "records/json.hpp"
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
      throw InputError(where + ": " + name, "missing or of the wrong type");
    }
  }
  /// A text that the platform gets to see whole.
  std::string text(const char *name) const {
    const auto value = get<std::string>(name);
    if (value.find('\0') != std::string::npos) {
      throw InputError(where + ": " + name, "the text holds a zero");
    }
    return value;
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
  const std::string target = step.text("call");
  const size_t blank = target.find(' ');
  if (blank == std::string::npos) throw InputError(step.where, "expected \"OBJECT METHOD\"");
  if (step.has("expect") && !step.expected().is_object()) {
    throw InputError(step.where + ": expect", "an answer is an object");
  }
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

Outcome found(const Json &value, const Stage &stage) {
  return {withTexts(value, printable), withTexts(stage.shown(value), printable)};
}

Outcome playRead(const Step &step, Stage &stage) {
  const auto lines = stage.readFile(step.text("read"));
  return found(lines ? Json(*lines) : Json(), stage);
}

Outcome playState(const Step &step, Stage &stage) {
  const std::string place = step.text("state");
  const Json state = stage.gatewayState();
  try {
    const Json::json_pointer pointer(place);
    return found(state.contains(pointer) ? state.at(pointer) : Json(), stage);
  } catch (const Json::exception &) {
    throw InputError(step.where, "\"" + place + "\" is no place in a profile");
  }
}

Outcome playStep(const Step &step, const std::string &fileName, Stage &stage) {
  if (step.has("call")) return playCall(step, stage);
  if (step.has("read")) return playRead(step, stage);
  if (step.has("state")) return playState(step, stage);
  if (step.has("gateway")) {
    const std::filesystem::path directory = std::filesystem::path(fileName).parent_path();
    stage.load((directory / step.text("gateway")).string());
  } else if (step.has("write")) {
    stage.writeFile(step.text("write"), step.get<std::vector<std::string>>("lines"));
  } else if (step.has("fail")) {
    stage.planFault(step.text("fail"));
  } else if (step.has("advance")) {
    stage.advance(integerFromJson(step.json["advance"], step.where + ": advance", 0, UINT32_MAX));
  } else {
    throw InputError(step.where, "no such step");
  }
  return {};
}

/// The member that says what a step does, and those that it may have besides.
const std::map<std::string, std::set<std::string>> kSteps = {
    {"call", {"with", "expect", "trail"}},
    {"read", {"expect"}},
    {"state", {"expect"}},
    {"gateway", {}},
    {"write", {"lines"}},
    {"fail", {}},
    {"advance", {}},
};

bool isKnown(const std::string &name) {
  return std::ranges::any_of(
      kSteps, [&](const auto &step) { return step.first == name || step.second.contains(name); });
}

void checkMembers(const Step &step) {
  if (!step.json.is_object()) throw InputError(step.where, "expected a JSON object");
  std::string kind;
  for (const auto &[name, value] : step.json.items()) {
    if (!isKnown(name)) throw InputError(step.where + ": " + name, "no such member");
    if (!kSteps.contains(name)) continue;
    if (!kind.empty()) throw InputError(step.where + ": " + name, "a step beside \"" + kind + "\"");
    kind = name;
  }
  if (kind.empty()) throw InputError(step.where, "no such step");
  for (const auto &[name, value] : step.json.items()) {
    if (name == kind || kSteps.at(kind).contains(name)) continue;
    throw InputError(step.where + ": " + name, "not with \"" + kind + "\"");
  }
}

[[noreturn]] void refuseAt(const Step &step, const std::exception &error) {
  const std::string text = error.what();
  throw InputError(text.starts_with(step.where) ? text : step.where + ": " + text);
}

Step parseStep(const std::string &where, const std::string &line) {
  Step step{where, records::parseJson(line, where)};
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
    } catch (const InputError &error) {
      refuseAt(step, error);
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
  if (lines.bad()) throw InputError(name, "cannot be read");
  return asExpected;
}

bool playFile(const std::string &name, Playing playing, const Printing &printing, Stage &stage) {
  if (name == "-") return playTranscript(std::cin, name, playing, printing, stage);
  std::ifstream file(name);
  if (!file) throw InputError(name, "cannot be read");
  return playTranscript(file, name, playing, printing, stage);
}

}  // namespace command
