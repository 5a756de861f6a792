#include "frame/log.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "platform/records/pppoe_account.hpp"
#include "platform/wan.h"
#include "pmapi/pppoe.h"

using namespace pm;

static constexpr char kSourceTag[] = "object_nexumd_pppoe_pmapi.c";

int32_t pm_ubus_pppoe_set(const UbusPppoe *record) {
  PM_LOG(kInfo, "now in function %s\n", __func__);
  if (record == nullptr) {
    PM_FAIL(0, "pm_ubus_pppoe_set para is null");
    return kNullRecord;
  }
  PM_LOG(kInfo, "ubuspppoe->pppoeUser:%s, ubuspppoe->pppoePwd:%s\n", record->pppoeUser,
         record->pppoePwd);
  RecordBuffer<platform::PppoeAccountRecord> account;
  // A name without an end runs on into the password; it is then too long and sent as invalid.
  account.set(account.userName, reinterpret_cast<const char *>(record));
  account.set(account.password, record->pppoePwd);
  const int32_t status = pm_wanc_set_ppp_username_passwd(account.bytes);
  if (status != kOk) PM_FAIL(status, "call pm_wanc_set_ppp_username_passwd faild,ret=%d\n", status);
  return status;
}
