#include "frame/log.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "platform/wlan.hpp"
#include "pmapi/setmeshroam.h"

using namespace pm;

static constexpr char kSourceTag[] = "object_nexumd_setmeshroam_pmapi.c";

uint32_t pm_ubus_set_meshroam(const MeshRoamRecord *record) {
  const Trail log = entered(kSourceTag);
  if (log.lacks(record)) return static_cast<uint32_t>(kNullRecord);
  PM_LOG(log, kInfo, 0, "p_ubus_meshroam->meshRoamingEnable:%d\n", record->meshRoamingEnable);
  RecordBuffer<WlanEasyMeshRecord> easyMesh;
  easyMesh.set(easyMesh.roamingEnable, static_cast<uint32_t>(record->meshRoamingEnable));
  const int32_t status = pm_wlan_set_easymesh(&easyMesh);
  if (status != kOk) {
    PM_LOG(log, kError, status, "call pm_wlan_set_easymesh faild,ret=%d\n", status);
  }
  return static_cast<uint32_t>(status);
}
