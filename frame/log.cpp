#include "frame/log.hpp"

#include "frame/status.hpp"

namespace pm {

int32_t reportedRead(const LogOrigin &origin, int32_t status) {
  if (status != kOk) {
    PM_LOG_FOR(origin, kError, status, "[%s] dbgetview fail(%d)\r\n", origin.function, status);
  }
  return status;
}

}  // namespace pm
