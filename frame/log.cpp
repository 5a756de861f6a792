#include "frame/log.hpp"

#include "frame/status.hpp"

namespace pm {

void Trail::reportMissing(const char *tag, const char *function, int line) {
  ProcUserLog(tag, line, function, kError, 0, "%s para is null", function);
}

int32_t Trail::readResult(int32_t status, int line) const {
  if (status != kOk) {
    ProcUserLog(tag, line, function, kError, status, "[%s] dbgetview fail(%d)\r\n", function,
                status);
  }
  return status;
}

}  // namespace pm
