// The walk of a topology dump, whatever the multi-AP daemon may write.
//
// Input: the dump.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "gateway/gateway.hpp"
#include "gateway/mesh.hpp"
#include "pmapi/meshtopology.h"

namespace {

void require(bool held, const char *what) {
  if (held) return;
  std::fprintf(stderr, "the topology broke its promise: %s\n", what);
  std::abort();
}

template <size_t Size>
void requireText(const char (&text)[Size], size_t longest) {
  require(strnlen(text, Size) <= longest, "texts are cut at their width");
}

void checkRadio(const MeshRadioBlock &radio) {
  require(radio.bssNum <= 32, "BSSs fit");
  for (const MeshBssEntry &bss : radio.bss) {
    requireText(bss.bssid, 17);
    requireText(bss.ssid, 17);
    require(bss.staNum <= 32, "stations fit");
    for (uint32_t i = 0; i < bss.staNum; ++i) requireText(bss.staMac[i], 17);
  }
}

void checkDevice(const MeshDeviceSlot &device, uint32_t deviceNum) {
  require(device.deviceNum == deviceNum && deviceNum <= 32, "every device knows their number");
  requireText(device.meshRole, 10);
  requireText(device.alMac, 31);
  require(device.bhNum <= 32, "backhaul links fit");
  for (uint32_t i = 0; i < device.bhNum; ++i) {
    requireText(device.bhInfo[i].bhType, 31);
    requireText(device.bhInfo[i].neighborAlMac, 31);
    requireText(device.bhInfo[i].ssid, 31);
    requireText(device.bhInfo[i].passPhrase, 31);
    requireText(device.bhInfo[i].security, 31);
  }
  checkRadio(device.radioA);
  checkRadio(device.radioB);
  require(device.otherClientNum <= 32, "other clients fit");
  for (const char(&mac)[32] : device.otherClientMac) requireText(mac, 17);
}

uint32_t stationsOf(const MeshRadioBlock &radio, uint32_t bssNum) {
  uint32_t total = 0;
  for (uint32_t i = 0; i < bssNum; ++i) total += radio.bss[i].staNum;
  return total;
}

/// Exactly a record on the heap, so that the sanitizer sees a byte too many.
MeshTopologyRecord &record() {
  static const auto instance = std::make_unique<MeshTopologyRecord>();
  return *instance;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  gateway::Gateway &gateway = gateway::Gateway::current();
  gateway.boundary().clearCalls();
  gateway.clearLogs();
  gateway::mesh().state = gateway::MapdState::kUp;
  gateway::mesh().topology.assign(reinterpret_cast<const char *>(data), size);

  MeshTopologyRecord &topology = record();
  const int32_t status = pm_ubus_get_meshtopology(&topology);
  require(status == 0 || status == -1, "it is walked or refused");
  const MeshDeviceSlot &first = topology.devices[0];
  const uint32_t bssNumA = first.radioA.bssNum;
  const uint32_t bssNumB = first.radioB.bssNum;
  const uint32_t deviceNum = first.deviceNum;
  for (MeshDeviceSlot &device : topology.devices) {
    if (device.deviceNum == 0) break;
    checkDevice(device, deviceNum);
    const uint32_t total = stationsOf(device.radioA, bssNumA) + stationsOf(device.radioB, bssNumB) +
                           device.otherClientNum;
    require(device.staTotal == (status == 0 ? total : 0), "stations are totalled");
  }
  for (MeshDeviceSlot &device : topology.devices) {
    if (device.deviceNum != 0) std::memset(&device, 0, sizeof device);
  }
  require(gateway::mesh().openHandles == 0, "the connection is closed");
  return 0;
}
