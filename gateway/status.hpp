// What the virtual gateway's own calls answer when they refuse. The numbers from -2001 on stay
// clear of the library's own codes, which pmapi/status.h names, so that a result tells whose
// refusal it is.
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
