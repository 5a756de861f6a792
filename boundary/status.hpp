// What platforms of this repository answer when they refuse. The numbers stay clear of the codes in
// pmapi/status.h and of those to which the platform gives a meaning of its own.
#pragma once

#include <cstdint>

namespace boundary {

enum Status : int32_t {
  kOk = 0,
  kFailed = -1,
  kNothingChanged = -9,
  kUnknownView = -2001,
  kUnknownInstance = -2002,
  kBadHeader = -2003,
  kInvalidField = -2004,
  kPathTooLong = -2005,
  kTableFull = -2006,
  kPeerDown = -2007,
  kNotThereYet = -2008,
  kNullArgument = -2009,
  kBadRequest = -2010,
  kReplyTooLong = -2011,
  kWrongPassphrase = -2012,
};

}  // namespace boundary
