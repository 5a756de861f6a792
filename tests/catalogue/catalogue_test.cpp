#include "catalogue/catalogue.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <nlohmann/json.hpp>
#include <set>
#include <string>

#include "catalogue/answer.hpp"
#include "tools/command/listing.hpp"

namespace catalogue {
namespace {

using ::testing::IsEmpty;

/// The names of the library's exports; what begins with "g_" is a global.
std::set<std::string> exports() {
  std::ifstream list(PMAPI_BUILD_DIR "/generated/exports.txt");
  std::set<std::string> names;
  for (std::string name; std::getline(list, name);) names.insert(name);
  return names;
}

TEST(Catalogue, ReachesEveryExportedFunction) {
  std::set<std::string> missing = exports();
  std::erase_if(missing, [](const std::string &name) { return name.starts_with("g_"); });
  ASSERT_GT(missing.size(), 170u);
  for (const Object &object : catalogue()) {
    for (const Method &method : object.methods) missing.erase(method.function);
  }
  // Takes a sample that must lie in a ring: nothing that a request could hold.
  missing.erase("si_net_sample_list_del");
  EXPECT_THAT(missing, IsEmpty());
}

TEST(Catalogue, NamesOnlyExportsAndEachMethodOnce) {
  const std::set<std::string> exported = exports();
  for (const Object &object : catalogue()) {
    std::set<std::string> names;
    for (const Method &method : object.methods) {
      EXPECT_TRUE(exported.contains(method.function)) << method.function;
      EXPECT_TRUE(names.insert(method.name).second) << object.name << ' ' << method.name;
    }
  }
}

TEST(Catalogue, WhatIsNotOptionalIsRequired) {
  Secrets secrets;
  for (const Json &object : command::listingAsJson("")) {
    for (const Json &method : object["methods"]) {
      const bool isNeeding = std::ranges::any_of(
          method["arguments"], [](const Json &argument) { return !argument.contains("optional"); });
      if (!isNeeding) continue;
      const Object &called = findObject(object["name"].get<std::string>());
      EXPECT_THROW(invoke(called, findMethod(called, method["name"].get<std::string>()),
                          Json::object(), secrets),
                   InputError)
          << called.name << ' ' << method["name"];
    }
  }
}

}  // namespace
}  // namespace catalogue
