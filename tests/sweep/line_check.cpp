#include "tests/sweep/line_check.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <string_view>

#include "catalogue/catalogue.hpp"
#include "platform/logger.h"
#include "tests/support/gateway_test.hpp"

namespace gateway::testing {

namespace {

using Tags = std::set<std::string>;

Tags tagsOf(const catalogue::Object &object) {
  Tags tags;
  size_t begin = 0;
  while (begin < object.source.size()) {
    const size_t end = std::min(object.source.find(", ", begin), object.source.size());
    tags.insert(object.source.substr(begin, end - begin));
    begin = end + 2;
  }
  return tags;
}

struct Catalogue {
  std::map<std::string, Tags> byFunction;
  Tags all;

  Catalogue() {
    for (const catalogue::Object &object : catalogue::catalogue()) {
      const Tags tags = tagsOf(object);
      all.insert(tags.begin(), tags.end());
      for (const catalogue::Method &method : object.methods) byFunction[method.function] = tags;
    }
  }
};

/// Steps inside a file are not in the catalogue: any object's tag will do for them.
const Tags &tagsFor(const std::string &function) {
  static const Catalogue catalogue;
  const auto found = catalogue.byFunction.find(function);
  return found == catalogue.byFunction.end() ? catalogue.all : found->second;
}

struct Line {
  std::string_view function;
  std::string_view beginning;

  bool isSeenIn(const LogLine &line) const {
    return line.function == function && line.text.starts_with(beginning);
  }
};

template <size_t Count>
bool isAmong(const Line (&lines)[Count], const LogLine &line) {
  return std::any_of(std::begin(lines), std::end(lines),
                     [&](const Line &one) { return one.isSeenIn(line); });
}

/// Failures that are reported at the level of information.
constexpr Line kQuietFailures[] = {
    {"ubus_get_httpspeed_result", "CTSGW_EVENT_GET_HTTPDOWNLOAD_DIAGNOSTICSRESULT failed"},
    {"ubus_get_router_ip_host_ipv46", "func "},
    {"ubus_get_router_ip_host_ipv46", "plib_ifs_get_routeif_info error"},
};

/// The same of a step inside the library, which fails by itself.
constexpr Line kOwnFailures[] = {{"pm_ubus_get_uplinkinfo", "si_net_sample_list_statics if"}};

/// Error lines that say something else than that the call before them failed.
constexpr Line kOtherErrors[] = {
    {"pm_ubus_get_meshtopology", "buf: "},
    {"si_ubus_deal_devlmt_list", "[si_ubus_deal_devlmt_list] data is not record"},
    {"pm_ubus_wifiParameter_set_Multi",
     "[pm_ubus_wifiParameter_set_Multi] set wifi parameter error"},
};

bool prints(const std::string &text, int32_t status) {
  return std::regex_search(text, std::regex("(^|\\W)" + std::to_string(status) + "(\\W|$)"));
}

constexpr int32_t kFaults[] = {6419, 1566, 1544};

}  // namespace

void LineCheck::called(const Call &call) {
  // What cannot fail comes between a failure and its line.
  if (call.answer.empty()) return;
  failing_ = call.faulted && call.answer == std::to_string(failure_);
}

void LineCheck::logged(const LogLine &line) {
  ++lines_;
  const std::string shown = ::testing::PrintToString(line);
  EXPECT_TRUE(tagsFor(line.function).contains(line.tag)) << line.tag << ": " << shown;
  switch (line.level) {
    case LOG_LEVEL_FAULT:
      EXPECT_NE(std::find(std::begin(kFaults), std::end(kFaults), line.code), std::end(kFaults))
          << shown;
      break;
    case LOG_LEVEL_ERROR:
      checkCode(line);
      break;
    case LOG_LEVEL_INFO:
    case LOG_LEVEL_TRACE:
    case LOG_LEVEL_VERBOSE:
      if (isAmong(kQuietFailures, line)) {
        checkCode(line);
      } else if (isAmong(kOwnFailures, line)) {
        EXPECT_LT(line.code, 0) << shown;
      } else {
        EXPECT_EQ(line.code, 0) << shown;
      }
      break;
    default:
      ADD_FAILURE() << "no level of the logger: " << shown;
  }
}

void LineCheck::checkCode(const LogLine &line) {
  // A step may give a failure a status of its own, which is then the one that is reported.
  const bool reportsItsOwn = line.code != 0 && prints(line.text, line.code);
  const bool reports = (failing_ && !isAmong(kOtherErrors, line)) || prints(line.text, failure_);
  if (reports && !reportsItsOwn) {
    EXPECT_EQ(line.code, failure_) << ::testing::PrintToString(line);
  }
  failing_ = false;
}

}  // namespace gateway::testing
