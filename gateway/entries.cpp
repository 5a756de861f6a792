// The platform's functions as the library finds them in its process: each crosses the boundary to
// the gateway's own.
#include "boundary/pass.hpp"
#include "gateway/calls.hpp"
#include "platform/timers.hpp"
#include "platform/wlan.hpp"

namespace platform {

#define UNPACKED(...) __VA_OPT__(, ) __VA_ARGS__
#define PARAMETER(name, elements) \
  ::boundary::Parameter {         \
    name, elements                \
  }
#define CALL(result, name, parameters, arguments, ...)                               \
  result name parameters {                                                           \
    const ::boundary::Outside outside;                                               \
    return boundary::pass(#name, {__VA_ARGS__}, ::gateway::name UNPACKED arguments); \
  }
#include "generated/calls.inc"
#undef CALL
#undef PARAMETER
#undef UNPACKED

}  // namespace platform
