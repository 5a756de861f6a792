#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "catalogue/answer.hpp"
#include "catalogue/catalogue.hpp"

namespace catalogue {

struct Rule {
  int32_t id;
  char label[8];
  char answer[8];
};

}  // namespace catalogue

PM_RECORD(catalogue::Rule, PM_FIELD(id).input(), PM_FIELD(label).optional(),
          PM_FIELD(answer).optional());

namespace catalogue {

namespace {

int32_t place(int32_t index, const char *path, const uint8_t mac[6], char digit, char *text) {
  std::snprintf(text, 32, "%d %s %02x%02x %c", index, path, mac[0], mac[5], digit);
  return -9;
}

int32_t setRules(const Rule *rules, int32_t count) {
  int32_t sum = 0;
  for (int32_t i = 0; i < count; ++i) sum += rules[i].id;
  return sum;
}

int32_t getRules(Rule *rules, int32_t *count) {
  rules[1].id = 5;
  *count = 2;
  return 0;
}

uint32_t byValue(Rule rule) {
  return rule.id == 3 ? 0u : 0xFFFFFEFFu;
}

int32_t ask(Rule *rule) {
  rule->answer[0] = static_cast<char>('0' + rule->id);
  return 0;
}

int32_t words(const uint32_t *in, uint32_t *out, uint64_t *total, uint8_t bytes[2]) {
  *out = *in + 1;
  *total = 1ull << 40;
  bytes[0] = 0xab;
  return 0;
}

void nothing(char *text) {
  text[0] = 'X';
}

const Object kObject{
    .name = "test",
    .source = "",
    .summary = "",
    .methods = {method("place", "place", place, In{"index"}, TextIn{"path", 7, "IGD"}, MacIn{"mac"},
                       In{"digit"}, TextOut{"text"}),
                method("set", "setRules", setRules, RowsIn{"rules", 2}, Count{}),
                method("get", "getRules", getRules, RowsOut{"rules", 4}, Count{}),
                method("value", "byValue", byValue, RecordIn{}),
                method("ask", "ask", ask, RecordOut{}),
                method("nested", "ask", ask, RecordOut{"rule"}).returning("code"),
                method("words", "words", words, In{"in", 7}, Out{"out"}, Out{"total"},
                       BytesOut{"bytes", 2}),
                method("nothing", "nothing", nothing, TextInOut{"text", 4})}};

Answer callMethod(const char *name, const char *arguments) {
  Secrets secrets;
  return invoke(kObject, findMethod(kObject, name), Json::parse(arguments), secrets);
}

std::string printed(const char *name, const char *arguments) {
  return callMethod(name, arguments).full.dump();
}

std::string refusal(const char *name, const char *arguments) {
  try {
    return printed(name, arguments);
  } catch (const InputError &error) {
    return error.what();
  }
}

TEST(Method, PassesArgumentsAndPutsWhatTheFunctionWrote) {
  const struct {
    const char *name;
    const char *arguments;
    const char *answer;
  } kCases[] = {
      {"place", R"({"index":-1,"mac":"0A:00:00:00:00:ff","digit":"f"})",
       R"({"status":-9,"text":"-1 IGD 0aff f"})"},
      {"place", R"({"index":2,"path":"X","mac":"0a00000000ff","digit":""})",
       R"({"status":-9,"text":"2 X 0aff "})"},
      {"set", R"({"rules":[{"id":1},{"id":2}]})", R"({"status":3})"},
      {"set", R"({"rules":[]})", R"({"status":0})"},
      {"get", "{}",
       R"({"status":0,"rules":[{"id":0,"label":"","answer":""},{"id":5,"label":"","answer":""}]})"},
      {"value", R"({"id":3})", R"({"status":0})"},
      {"value", R"({"id":4})", R"({"status":-257})"},
      {"ask", R"({"id":7})", R"({"status":0,"id":7,"label":"","answer":"7"})"},
      {"nested", R"({"id":7})", R"({"code":0,"rule":{"id":7,"label":"","answer":"7"}})"},
      {"words", "{}", R"({"status":0,"out":8,"total":1099511627776,"bytes":"ab00"})"},
      {"nothing", R"({"text":"abc"})", R"({"status":0,"text":"Xbc"})"},
  };
  for (const auto &test : kCases) {
    EXPECT_EQ(printed(test.name, test.arguments), test.answer) << test.name << test.arguments;
  }
}

TEST(Method, RefusesArgumentsWithPlaceAndReason) {
  const struct {
    const char *name;
    const char *arguments;
    const char *line;
  } kCases[] = {
      {"place", "{}", "test place: index: missing argument"},
      {"place", R"({"index":1,"mac":"0a:00"})", "test place: mac: not a MAC address"},
      {"place", R"({"index":1,"mac":"0a00000000fg"})", "test place: mac: not a MAC address"},
      {"place", R"({"index":1,"path":"12345678"})",
       "test place: path: a text of 8 bytes does not fit 7"},
      {"place", R"({"text":"x"})", "test place: text: no such argument"},
      {"place", "[]", "test place: the arguments must be a JSON object"},
      {"set", R"({"rules":[{},{},{}]})", "test set: rules: 3 rows do not fit 2"},
      {"set", R"({"rules":[{"id":0},{"id":"1"}]})",
       "test set: rules[1].id: expected a whole number, got a text"},
      {"value", R"({"label":"x"})", "test value: id: missing argument"},
      {"ask", "{}", "test ask: id: missing argument"},
      {"set", R"({"rules":[{}]})", "test set: rules[0].id: missing argument"},
      {"value", R"({"id":1,"label":"12345678"})",
       "test value: label: a text of 8 bytes does not fit 7"},
      {"ask", R"({"label":"x"})", "test ask: label: no such argument"},
      {"shut", "{}", "test shut: no such method (pmapi list -v test names them)"},
  };
  for (const auto &test : kCases) {
    EXPECT_EQ(refusal(test.name, test.arguments), test.line) << test.arguments;
  }
}

TEST(Method, OnlyAStatusOtherThanZeroIsAFailure) {
  EXPECT_TRUE(callMethod("value", R"({"id":4})").failed);
  EXPECT_FALSE(callMethod("value", R"({"id":3})").failed);
  EXPECT_FALSE(callMethod("nested", R"({"id":4})").failed);
}

TEST(Catalogue, IsSortedAndComplete) {
  ASSERT_FALSE(catalogue().empty());
  for (size_t i = 0; i < catalogue().size(); ++i) {
    const Object &object = catalogue()[i];
    EXPECT_TRUE(i == 0 || catalogue()[i - 1].name < object.name) << object.name;
    for (const Method &method : object.methods) {
      EXPECT_EQ(&findMethod(object, method.name), &method) << "stands twice: " << method.name;
      EXPECT_FALSE(method.summary.empty()) << method.name;
    }
  }
}

}  // namespace
}  // namespace catalogue
