// The examples of the catalogue, made on the virtual gateway.
#include <algorithm>
#include <fstream>
#include <nlohmann/json.hpp>

#include "catalogue/answer.hpp"
#include "catalogue/catalogue.hpp"
#include "tests/support/gateway_test.hpp"

namespace catalogue {
namespace {

class Examples : public GatewayTest {
 protected:
  Answer play(const Object &object, const Method &method, const Example &example) {
    loadExample(example.profile);
    prepare(example);
    Secrets secrets;
    Answer answer = invoke(object, method, Json::parse(example.arguments), secrets);
    gateway().takeComplaints();
    return answer;
  }
};

TEST_F(Examples, AreAnsweredAsTheyShouldBe) {
  for (const Object &object : catalogue()) {
    for (const Method &method : object.methods) {
      for (const Example &example : method.examples) {
        SCOPED_TRACE(object.name + " " + method.name + " " + example.arguments);
        try {
          const Json answer = play(object, method, example).full;
          if (method.returnsStatus()) {
            EXPECT_EQ(answer.at("status"), example.status);
          }
        } catch (const InputError &error) {
          ADD_FAILURE() << error.what();
        }
      }
    }
  }
}

/// What a port is checked with is what is swept and documented.
TEST_F(Examples, AreTheCallsOfThePlatformCheck) {
  std::ifstream steps(PMAPI_EXAMPLES_DIR "/platform_check.jsonl");
  int calls = 0;
  for (std::string line; std::getline(steps, line);) {
    if (!line.starts_with('{')) continue;
    const Json step = Json::parse(line);
    const auto name = step.at("call").get<std::string>();
    const size_t space = name.find(' ');
    const Object &object = findObject(name.substr(0, space));
    const Method &method = findMethod(object, name.substr(space + 1));
    EXPECT_TRUE(std::ranges::any_of(method.examples, [&](const Example &example) {
      return Json::parse(example.arguments) == step.value("with", Json::object());
    })) << line;
    ++calls;
  }
  EXPECT_GT(calls, 0);
}

}  // namespace
}  // namespace catalogue
