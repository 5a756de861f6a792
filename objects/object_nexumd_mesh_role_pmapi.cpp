#include "frame/log.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "platform/wlan.hpp"
#include "pmapi/mesh_role.h"

using namespace pm;

static constexpr char kSourceTag[] = "object_nexumd_mesh_role_pmapi.c";

uint32_t pm_ubus_meshrole_set(const MeshRoleRecord *record) {
  const Trail log = entered(kSourceTag);
  if (log.lacks(record)) return static_cast<uint32_t>(kNullRecord);
  PM_LOG(log, kInfo, 0, "meshrole->meshRole:%d\n", record->meshRole);
  RecordBuffer<WlanEasyMeshRecord> easyMesh;
  easyMesh.set(easyMesh.meshRole, static_cast<uint32_t>(record->meshRole));
  const int32_t status = pm_wlan_set_easymesh(&easyMesh);
  if (status != kOk) {
    PM_LOG(log, kError, status, "call pm_wlan_set_easymesh faild,ret=%d\n", status);
  }
  return static_cast<uint32_t>(status);
}
