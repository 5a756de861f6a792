// Platform functions that the virtual gateway does not have yet.
#pragma once

#include "gateway/boundary.hpp"

namespace gateway {

/// Records the call and refuses it.
inline int32_t notThereYet(const char *call, const char *key = nullptr) {
  return boundary::status(call, key == nullptr ? std::string() : std::string(key),
                          [](Gateway &) -> int32_t {
                            throw Refusal(kNotThereYet, "not there yet in the virtual gateway");
                          });
}

}  // namespace gateway
