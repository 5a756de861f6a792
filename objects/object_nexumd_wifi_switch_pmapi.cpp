#include "frame/codes.hpp"
#include "frame/log.hpp"
#include "frame/parse.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "objects/shared/wlan_instances.hpp"
#include "platform/wlan.hpp"
#include "pmapi/wifi_switch.h"

using namespace pm;

static constexpr char kSourceTag[] = "object_nexumd_wifi_switch_pmapi.c";

uint32_t pm_ubus_wifi_switch_set(const WifiSwitchRecord *record) {
  const Trail log = entered(kSourceTag);
  if (log.lacks(record)) return static_cast<uint32_t>(kNullRecord);
  const BoundedRequest<WifiSwitchRecord> bounded(*record);
  const char *radio = bounded.request.radio;
  const Code *band = codeNamed(kBands, radio);
  if (band == nullptr) {
    PM_LOG(log, kError, 0, "ubuswifiparameter->radio error %s \r\n", radio);
    return static_cast<uint32_t>(PM_STATUS_UNKNOWN_RADIO);
  }
  const InstancePath instance = wlan::radioInstance(band->value);
  RecordBuffer<WlanConfigRecord> config;
  config.set(config.band, band->value);
  config.set(config.radioEnable, static_cast<uint32_t>(record->enable));
  const int32_t status = pm_wlan_set_config(instance.text, &config);
  if (appliedOrUnchanged(status)) return 0;
  PM_LOG(log, kError, status, "pm_wlan_get_config=%s fail=%d\n", instance.text, status);
  return static_cast<uint32_t>(status);
}
