// What the virtual gateway's own calls answer when they refuse. The numbers stay clear of every
// code that the library or the platform gives a meaning of its own (-1, -8, -9, -12, -257, 1001).
#pragma once

#include <cstdint>

namespace gateway {

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

}  // namespace gateway
