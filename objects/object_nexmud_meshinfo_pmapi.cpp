#include <cstddef>
#include <cstdlib>
#include <cstring>

#include "frame/log.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "frame/text.hpp"
#include "platform/wlan.hpp"
#include "pmapi/meshinfo.h"
#include "pmapi/meshtopology.h"

using namespace pm;

static constexpr char kSourceTag[] = "object_nexmud_meshinfo_pmapi.c";

namespace {

constexpr uint32_t kCopySize = 32;

/// The whole of a getter of one setting of the mesh; `access` is how its lines call the reading.
int32_t getSetting(const Trail &log, WordPlace setting, const char *access) {
  PM_LOG(log, kInfo, 0, "now in %s\n", log.function);
  PM_LOG(log, kInfo, 0, "now in VIEW_INIT\n");
  PM_LOG(log, kInfo, 0, "after VIEW_INIT\n");
  PM_LOG(log, kInfo, 0, "now in vcorDbGetView\n");
  ViewBuffer<EasyMeshView> view;
  const int32_t status = view.read(kGatewayPath);
  PM_LOG(log, kInfo, 0, "after vcorDbGetView\n");
  if (log.readResult(status) != kOk) return kFailure;
  PM_LOG(log, kInfo, 0, "now in %s\n", access);
  const auto value = static_cast<int32_t>(view.get(setting));
  PM_LOG(log, kInfo, 0, "after %s\n", access);
  PM_LOG(log, kInfo, 0, "sy:%d\n", value);
  return value;
}

/// What the gateway tells of itself, so that the topology's 2.3 MB go back at once.
struct OwnMesh {
  char role[sizeof MeshDeviceSlot::meshRole];
  char alMac[kCopySize];
  char neighborRole[sizeof MeshDeviceSlot::meshRole];
  MeshBackhaulEntry backhaul;
  uint32_t staTotal;
};

void takeOwnMesh(const MeshTopologyRecord &topology, OwnMesh *own) {
  const MeshDeviceSlot &self = topology.devices[0];
  copyText(own->role, self.meshRole);
  copyText(own->alMac, self.alMac);
  copyText(own->neighborRole, topology.devices[1].meshRole);
  own->backhaul = self.bhInfo[0];
  own->staTotal = self.staTotal;
}

/// Takes what there is: a topology that broke off half-way still names its first devices.
int32_t readOwnMesh(OwnMesh *own) {
  auto *topology = static_cast<MeshTopologyRecord *>(calloc(1, sizeof(MeshTopologyRecord)));
  if (topology == nullptr) return kFailure;
  const int32_t status = pm_ubus_get_meshtopology(topology);
  takeOwnMesh(*topology, own);
  free(topology);
  return status;
}

/// The role may run into the AL MAC, which is written after it and over it.
void copyIdentity(const OwnMesh &own, MeshInfoRecord *record) {
  char *const fields = reinterpret_cast<char *>(record);
  copyText(fields + offsetof(MeshInfoRecord, meshRole), kCopySize, own.role);
  copyText(fields + offsetof(MeshInfoRecord, meshAlmac), kCopySize, own.alMac);
}

void copyBackhaul(const MeshBackhaulEntry &backhaul, MeshInfoRecord *record) {
  copyText(record->bhType, backhaul.bhType);
  copyText(record->bhalmac, backhaul.neighborAlMac);
  copyText(record->bhSsid, backhaul.ssid);
  copyText(record->bhPassPhrase, backhaul.passPhrase);
  copyText(record->bhSecurity, backhaul.security);
  copyText(record->reserved1, "");
  copyText(record->reserved2, "");
}

}  // namespace

int32_t ubus_getmeshRole(void) {
  return getSetting(Trail(kSourceTag), EasyMeshView::meshRole, "VCORGET_INT32");
}

int32_t ubus_getroamingEnable(void) {
  return getSetting(Trail(kSourceTag), EasyMeshView::roamingEnable, "VCORGET_BOOL");
}

int32_t pm_ubus_get_meshinfo(MeshInfoRecord *record) {
  const Trail log(kSourceTag);
  PM_LOG(log, kInfo, 0, "enter pm_ubus_get_meshinfo\n ");
  if (log.lacks(record)) return kFailure;
  OwnMesh own{};
  if (const int32_t status = readOwnMesh(&own); status != kOk) {
    PM_LOG(log, kError, status, "pm_nexumi_map_get_mesh_topology_backhaulbss fail iRet =%d\n ",
           status);
  }
  copyIdentity(own, record);
  record->roamingEnable = ubus_getroamingEnable();

  const auto neighborRoleLength = static_cast<int32_t>(strlen(own.neighborRole));
  PM_LOG(log, kInfo, 0, "meshtopology[1].mode = %s, len = %d\n", own.neighborRole,
         neighborRoleLength);
  record->meshStatus = neighborRoleLength > 0 ? 1 : 0;
  record->staTotal = own.staTotal;
  copyBackhaul(own.backhaul, record);

  PM_LOG(log, kInfo, 0, "p_ubus_meshinfo->meshRole=%s, p_ubus_meshinfo->meshAlmac=%s\n",
         record->meshRole, record->meshAlmac);
  PM_LOG(log, kInfo, 0, "p_ubus_meshinfo->roamingEnable=%d, p_ubus_meshinfo->meshStatus=%d, \n",
         record->roamingEnable, record->meshStatus);
  PM_LOG(log, kTrace, 0, "p_ubus_meshinfo->bhType=%s, p_ubus_meshinfo->bhalmac=%s, \n",
         record->bhType, record->bhalmac);
  PM_LOG(log, kInfo, 0, "after pm_ubus_get_meshinfo\n ");
  return kOk;
}
