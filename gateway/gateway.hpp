// The virtual gateway: one object that holds everything that a real one would.
//
// How to add a family of platform calls:
//  1. Make gateway/FAMILY.cpp with the functions of the family's header in include/platform/; it
//     is found by itself.
//  2. Define each function as gateway::NAME: what it does, and no more. The boundary has named,
//  traced
//     and failed the call and refused missing arguments. Answer a Status; throw Refusal for what
//     the platform would complain of.
//  3. Keep state in the store where a view or record holds it (`gateway.store().row<View>(path)`),
//     else in a structure with a table of its members and a SectionOf at namespace scope, the
//     family's member of the profile (section.hpp).
//  4. Answer proxy events with a ProxyEvent, manager messages with a ManagerReply or MessageSink at
//     namespace scope (proxy.hpp, manager.hpp).
//  5. Test the family through the library, with tests/support/gateway_test.hpp.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "boundary/boundary.hpp"
#include "gateway/clock.hpp"
#include "gateway/files.hpp"
#include "gateway/store.hpp"
#include "records/json.hpp"

namespace gateway {

using namespace boundary;
using namespace platform;
using namespace records;

/// One line that the library handed to the daemon's logger.
struct LogLine {
  std::string tag;
  int32_t line = 0;
  std::string function;
  int32_t level = 0;
  int32_t code = 0;
  std::string text;
};

class Gateway {
 public:
  static Gateway &current();

  Store &store() { return store_; }
  Boundary &boundary() const { return Boundary::current(); }
  Clock &clock() { return clock_; }
  Files &files() { return files_; }

  /// Back to an empty gateway: no records, files, faults, log lines or complaints.
  void reset();
  /// Replaces everything by a profile; throws InputError. The text form is a file's name.
  void load(const Json &profile);
  void loadFile(const std::string &fileName);
  /// What the gateway has become, in the form that load() takes.
  Json save();

  const std::vector<LogLine> &logs() const { return logs_; }
  void log(LogLine line);
  void onLog(std::function<void(const LogLine &)> sink) { logSink_ = std::move(sink); }
  /// What the daemon's logger answers; two handlers pass it on.
  int32_t logResult() const { return logResult_; }
  void setLogResult(int32_t result) { logResult_ = result; }

  /// What a real platform would refuse: the library broke its side of the contract.
  const std::vector<std::string> &complaints() const { return boundary().complaints(); }
  void complain(const std::string &complaint) { boundary().complain(complaint); }
  std::vector<std::string> takeComplaints() { return boundary().takeComplaints(); }
  void onComplaint(std::function<void(const std::string &)> sink) {
    boundary().onComplaint(std::move(sink));
  }

  void clearLogs() { logs_.clear(); }

 private:
  Gateway();

  Store store_;
  Clock clock_;
  Files files_;
  std::vector<LogLine> logs_;
  std::function<void(const LogLine &)> logSink_;
  int32_t logResult_ = 0;
};

}  // namespace gateway
