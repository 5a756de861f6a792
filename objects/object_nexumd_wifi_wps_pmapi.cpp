#include "frame/codes.hpp"
#include "frame/log.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "objects/shared/wlan_instances.hpp"
#include "platform/wlan.hpp"
#include "pmapi/wifi_wps.h"

using namespace pm;

static constexpr char kSourceTag[] = "object_nexumd_wifi_wps_pmapi.c";

uint32_t pm_ubus_wifi_wps_set(const char *radio) {
  const Trail log = entered(kSourceTag);
  if (radio == nullptr) {
    PM_LOG(log, kError, 0, "pm_ubus_wifiParameter_set para is null");
    return static_cast<uint32_t>(kNullRecord);
  }
  InstancePath first("");
  InstancePath second("");
  if (const Code *band = codeNamed(kBands, radio); band != nullptr) {
    first = wlan::wpsInstance(band->value);
  } else if (abbreviates(radio, "all")) {
    first = wlan::wpsInstance(kBand24G);
    second = wlan::wpsInstance(kBand5G);
    PM_LOG(log, kInfo, 0, "szInstIdentity %s \r\n", first.text);
    PM_LOG(log, kInfo, 0, "szTmpIdentity %s \r\n", second.text);
  } else {
    // The platform decides what an instance without a name means.
    PM_LOG(log, kError, 0, "ubus_wifi_wps_set->radio error %s \r\n", radio);
  }

  RecordBuffer<WlanWpsRecord> wps;
  wps.set(wps.start, 1);
  int32_t status = pm_wlan_set_wps(first.text, &wps);
  if (!appliedOrUnchanged(status)) {
    PM_LOG(log, kError, status, "t_wlan_wps=%s fail=%d\n", first.text, status);
    return static_cast<uint32_t>(status);
  }
  if (second.text[0] == '\0') return 0;
  status = pm_wlan_set_wps(second.text, &wps);
  if (appliedOrUnchanged(status)) return 0;
  PM_LOG(log, kError, status, "pm_wlan_set_wps error=%d\n", status);
  return static_cast<uint32_t>(status);
}
