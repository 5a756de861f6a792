// A sequence of steps in one process: lines of JSON, each with what it is expected to give.
//
//   # a comment
//   {"gateway": "mesh-of-three.json"}                             another profile, beside the file
//   {"write": "/userconfig/nexumd_cfgfile", "lines": ["a=1"]}     a file of the gateway
//   {"fail": "pm_wlan_set_easymesh@1x1=-5"}                       a fault, as with --fail
//   {"advance": 60}                                               seconds pass
//   {"call": "config get", "with": {"item": "a"}, "expect": {"value": "1"}, "trail": ["exist"]}
//   {"read": "/userconfig/nexumd_cfgfile", "expect": ["a=1"]}     null: there is no such file
//   {"state": "/mesh/role", "expect": 1}                          a place in the gateway's profile
//
// An object that is expected needs its own members only; a call is expected to return 0 unless
// "expect" says otherwise. "trail" names texts that the call leaves in its trail, in that order.
#pragma once

#include <istream>
#include <string>

#include "tools/command/stage.hpp"

namespace command {

using namespace catalogue;
using namespace records;

enum class Playing {
  kCheck,   ///< print answers, complain of what was not expected
  kRecord,  ///< print the transcript itself, with the answers as what is expected
};

/// False when something was not as expected. Throws InputError for a line that makes no sense.
bool playTranscript(std::istream &lines, const std::string &name, Playing playing,
                    const Printing &printing, Stage &stage);

/// The same with the lines of a file, or of standard input for "-".
bool playFile(const std::string &name, Playing playing, const Printing &printing, Stage &stage);

/// Where `actual` first differs from what is expected, and how; empty when it does not.
std::string difference(const Json &expected, const Json &actual, const std::string &place = {});

}  // namespace command
