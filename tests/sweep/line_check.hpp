// What must hold of every line that the library logs, whatever it says.
#pragma once

#include <cstdint>
#include <optional>

#include "boundary/boundary.hpp"
#include "gateway/gateway.hpp"

namespace gateway::testing {

/// Follows calls and lines as they come, and fails the test for a line that
/// - carries another tag than that of the object to which its function belongs,
/// - has a level that the logger does not know,
/// - has a code at level 5 or above, or at level 0 none of the known faults,
/// - reports a platform call that failed, or prints its status, with another code than that status.
class LineCheck {
 public:
  /// `failure` is what failing calls answer.
  explicit LineCheck(int32_t failure) : failure_(failure) {}

  void called(const Call &call);
  void logged(const LogLine &line);
  uint32_t lines() const { return lines_; }

 private:
  void checkCode(const LogLine &line);

  const int32_t failure_;
  bool failing_ = false; /**< the last call failed, and no line has said so yet */
  uint32_t lines_ = 0;
};

}  // namespace gateway::testing
