#include "frame/log.hpp"
#include "frame/parse.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "platform/wan.h"
#include "platform/wan.hpp"
#include "pmapi/pppoe.h"

using namespace pm;

static constexpr char kSourceTag[] = "object_nexumd_pppoe_pmapi.c";

/// What the daemon allocates for the password.
static constexpr uint32_t kPasswordRoom = 68;

int32_t pm_ubus_pppoe_set(const UbusPppoe *record) {
  const Trail log(kSourceTag);
  PM_LOG(log, kInfo, 0, "now in function %s\n", log.function);
  if (log.lacks(record)) return kNullRecord;
  const BoundedTailRequest<UbusPppoe, kPasswordRoom> bounded(*record);
  const UbusPppoe &account = bounded.request();
  PM_LOG(log, kInfo, 0, "ubuspppoe->pppoeUser:%s, ubuspppoe->pppoePwd:%s\n", account.pppoeUser,
         account.pppoePwd);
  RecordBuffer<PppoeAccountRecord> settings;
  // A name without an end runs on into the password; it is then too long and sent as invalid.
  settings.set(settings.userName, reinterpret_cast<const char *>(&account));
  settings.set(settings.password, account.pppoePwd);
  const int32_t status = pm_wanc_set_ppp_username_passwd(&settings);
  if (status != kOk) {
    PM_LOG(log, kError, status, "call pm_wanc_set_ppp_username_passwd faild,ret=%d\n", status);
  }
  return status;
}
