// The packet filter's rules of URL keywords.
#pragma once

#include "frame/log.hpp"
#include "pmapi/limit.h"

namespace pm {

/// Adds or removes (`operation` is "-A", "-I" or "-D") the rules of each keyword, for IPv4 and
/// IPv6. Keywords that are no text alone on a command line are logged and passed over.
void runUrlRules(const Trail &log, const LmtUrlCfg &config, const char *operation);

}  // namespace pm
