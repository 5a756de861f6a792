#include <cjson/cJSON.h>

#include <strings.h>

#include <cstdio>

#include "frame/log.hpp"
#include "frame/status.hpp"
#include "frame/text.hpp"
#include "platform/multiap.h"
#include "pmapi/meshtopology.h"

using namespace pm;

static constexpr char kSourceTag[] = "object_nexumd_meshtopology_pmapi.c";

namespace {

constexpr char kControlPath[] = "/tmp/mapd_ctrl";
constexpr char kDumpPath[] = "/tmp/dump.txt";

constexpr uint32_t kDumpSize = 8192;
constexpr uint32_t kScratchSize = 768;

constexpr uint32_t kRoleSize = 11;
constexpr uint32_t kShortSize = 18;
constexpr uint32_t kTextSize = 32;

/// The walk's lines bear the name of its entry point at every depth.
constexpr Trail kWalk(kSourceTag, "pm_get_dumpbuf_info");

/// Texts of the mesh's first BSS, by which every backhaul link is described.
struct NetworkTexts {
  const char *ssid;
  const char *passPhrase;
  const char *security;
};

/// How many of so many entries the array holds.
template <class Entry, uint32_t Capacity>
constexpr uint32_t fitting(uint32_t count, const Entry (&)[Capacity]) {
  return count < Capacity ? count : Capacity;
}

template <class Entry, uint32_t Capacity>
uint32_t fitting(const cJSON *list, const Entry (&array)[Capacity]) {
  return fitting(static_cast<uint32_t>(cJSON_GetArraySize(list)), array);
}

bool hasType(const cJSON *item, int type) {
  return (item->type & 0xff) == type;
}

/// Has no members, as every element that is no object.
constexpr cJSON kNothing{};

const cJSON *firstOf(const cJSON *list) {
  return list != nullptr && list->child != nullptr ? list->child : &kNothing;
}

/// Letters that differ in any other bit differ in more than their case.
constexpr int kCaseBit = 0x20;

/// The first member of that name in any case, as cJSON_GetObjectItem finds it; that one lowers both
/// names letter by letter, which makes the walk cost nearly half as much again.
[[gnu::always_inline]] inline const cJSON *memberOf(const cJSON *object, const char *name) {
  if (!hasType(object, cJSON_Object)) return nullptr;
  for (const cJSON *member = object->child; member != nullptr; member = member->next) {
    if (((*member->string ^ *name) & ~kCaseBit) != 0) continue;
    if (strcmp(member->string, name) == 0 || strcasecmp(member->string, name) == 0) return member;
  }
  return nullptr;
}

/// The member's text; nullptr when there is no member of that name, or when it is no text.
[[gnu::always_inline]] inline const char *textOf(const cJSON *object, const char *name) {
  const cJSON *member = memberOf(object, name);
  return member != nullptr && hasType(member, cJSON_String) ? member->valuestring : nullptr;
}

/// Copies a member's text; false when it has none. The texts are a few letters long, which a loop
/// copies sooner than libc measures them.
bool copyMember(const cJSON *object, const char *name, char *destination, uint32_t size) {
  const char *text = textOf(object, name);
  if (text == nullptr) return false;
  const char *const end = destination + size;
  while ((*destination++ = *text++) != '\0') {
    if (destination == end) {
      destination[-1] = '\0';
      break;
    }
  }
  return true;
}

const char *textOrEmpty(const cJSON *object, const char *name) {
  const char *text = textOf(object, name);
  return text != nullptr ? text : "";
}

NetworkTexts firstNetwork(const cJSON *devices) {
  const cJSON *radio = firstOf(memberOf(firstOf(devices), "Radio Info"));
  const cJSON *bss = firstOf(memberOf(radio, "BSSINFO"));
  return {textOrEmpty(bss, "SSID"), textOrEmpty(bss, "Pass-phrase"), textOrEmpty(bss, "Security")};
}

void readStations(const cJSON *bss, MeshBssEntry *entry) {
  const cJSON *stations = memberOf(bss, "connected sta info");
  if (stations == nullptr) {
    PM_LOG(kWalk, kError, 0, "staDevices parse failed!!\n");
    return;
  }
  entry->staNum = fitting(stations, entry->staMac);
  const cJSON *station = stations->child;
  for (uint32_t i = 0; i < entry->staNum; ++i, station = station->next) {
    if (!copyMember(station, "STA MAC address", entry->staMac[i], kShortSize)) {
      PM_LOG(kWalk, kError, 0, "macAddress parse failed!!\n");
    }
  }
}

int32_t readBss(const cJSON *bss, MeshBssEntry *entry) {
  if (!copyMember(bss, "BSSID", entry->bssid, kShortSize)) {
    PM_LOG(kWalk, kError, 0, "bssid parse failed!!\n");
    return kFailure;
  }
  if (!copyMember(bss, "SSID", entry->ssid, kShortSize)) {
    PM_LOG(kWalk, kError, 0, "ssid parse failed!!\n");
    return kFailure;
  }
  readStations(bss, entry);
  return kOk;
}

int32_t readRadio(const cJSON *radio, MeshRadioBlock *block) {
  const cJSON *bssInfo = memberOf(radio, "BSSINFO");
  if (bssInfo == nullptr) {
    PM_LOG(kWalk, kError, 0, "bssinfo parse failed!!\n");
    return kFailure;
  }
  block->bssNum = fitting(bssInfo, block->bss);
  const cJSON *bss = bssInfo->child;
  for (uint32_t i = 0; i < block->bssNum; ++i, bss = bss->next) {
    if (hasType(bss, cJSON_NULL)) continue;
    if (readBss(bss, &block->bss[i]) != kOk) return kFailure;
  }
  return kOk;
}

/// A device reports two radios; every one after the second takes the second one's place.
int32_t readRadios(const cJSON *device, MeshDeviceSlot *slot) {
  const cJSON *radios = memberOf(device, "Radio Info");
  if (radios == nullptr) {
    PM_LOG(kWalk, kError, 0, "radio parse failed!!\n");
    return kOk;
  }
  PM_LOG(kWalk, kInfo, 0, "\n*****radio_array_size=%d!!*****\n", cJSON_GetArraySize(radios));
  for (const cJSON *radio = radios->child; radio != nullptr; radio = radio->next) {
    if (hasType(radio, cJSON_NULL)) continue;
    MeshRadioBlock *block = radio == radios->child ? &slot->radioA : &slot->radioB;
    if (readRadio(radio, block) != kOk) return kFailure;
  }
  return kOk;
}

void readBackhaul(const cJSON *link, const NetworkTexts &network, MeshBackhaulEntry *entry) {
  if (!copyMember(link, "Backhaul Medium Type", entry->bhType, kTextSize)) {
    PM_LOG(kWalk, kError, 0, "bhType parse failed!!\n");
  }
  if (!copyMember(link, "neighbor almac addr", entry->neighborAlMac, kTextSize)) {
    PM_LOG(kWalk, kError, 0, "bhalmac parse failed!!\n");
  }
  copyText(entry->ssid, network.ssid);
  copyText(entry->passPhrase, network.passPhrase);
  copyText(entry->security, network.security);
}

void readBackhauls(const cJSON *device, const NetworkTexts &network, MeshDeviceSlot *slot) {
  const cJSON *links = memberOf(device, "BH Info");
  if (links == nullptr) {
    PM_LOG(kWalk, kError, 0, "BH Info parse failed!!\n");
    return;
  }
  slot->bhNum = fitting(links, slot->bhInfo);
  const cJSON *link = links->child;
  for (uint32_t i = 0; i < slot->bhNum; ++i, link = link->next) {
    readBackhaul(link, network, &slot->bhInfo[i]);
  }
}

void readOtherClients(const cJSON *device, MeshDeviceSlot *slot) {
  const cJSON *clients = memberOf(device, "Other Clients Info");
  if (clients == nullptr) {
    // The daemon's Trail(kSourceTag) readers know the backhaul's line for this too.
    PM_LOG(kWalk, kError, 0, "BH Info parse failed!!\n");
    return;
  }
  slot->otherClientNum = fitting(clients, slot->otherClientMac);
  const cJSON *client = clients->child;
  for (uint32_t i = 0; i < slot->otherClientNum; ++i, client = client->next) {
    if (!copyMember(client, "Client Address", slot->otherClientMac[i], kShortSize)) {
      PM_LOG(kWalk, kError, 0, "clients_macAddrss Parse failed!!");
    }
  }
}

int32_t readDevice(const cJSON *device, const NetworkTexts &network, MeshDeviceSlot *slot) {
  if (!copyMember(device, "AL MAC", slot->alMac, kTextSize)) {
    PM_LOG(kWalk, kError, 0, "meshAlmac parse failed!!\n");
    return kFailure;
  }
  if (!copyMember(device, "Device role", slot->meshRole, kRoleSize)) {
    PM_LOG(kWalk, kError, 0, "meshRole parse failed!!\n");
    return kFailure;
  }
  if (readRadios(device, slot) != kOk) return kFailure;
  readBackhauls(device, network, slot);
  readOtherClients(device, slot);
  return kOk;
}

int32_t readTopology(const cJSON *root, MeshTopologyRecord *record) {
  const cJSON *devices = root != nullptr ? memberOf(root, "topology information") : nullptr;
  if (devices == nullptr) {
    PM_LOG(kWalk, kError, 0, "TopologyInformation is NULL !\n");
    return kFailure;
  }
  PM_LOG(kWalk, kInfo, 0, "topoinfo_array_size = %d !\n", cJSON_GetArraySize(devices));

  const NetworkTexts network = firstNetwork(devices);
  const uint32_t deviceNum = fitting(devices, record->devices);
  const cJSON *device = devices->child;
  for (uint32_t i = 0; i < deviceNum; ++i, device = device->next) {
    record->devices[i].deviceNum = deviceNum;
    if (hasType(device, cJSON_NULL)) continue;
    if (readDevice(device, network, &record->devices[i]) != kOk) return kFailure;
  }
  return kOk;
}

uint32_t stationsOf(const MeshRadioBlock &block, uint32_t bssNum) {
  uint32_t stations = 0;
  for (uint32_t i = 0; i < bssNum; ++i) stations += block.bss[i].staNum;
  return stations;
}

/// Counts in every device as many BSSs as the first one has. Counts are clamped once more, as an
/// empty topology leaves those that the caller's record came with.
void totalStations(MeshTopologyRecord *record) {
  const MeshDeviceSlot &first = record->devices[0];
  const uint32_t deviceNum = fitting(first.deviceNum, record->devices);
  const uint32_t bssNumA = fitting(first.radioA.bssNum, first.radioA.bss);
  const uint32_t bssNumB = fitting(first.radioB.bssNum, first.radioB.bss);
  for (uint32_t i = 0; i < deviceNum; ++i) {
    MeshDeviceSlot &device = record->devices[i];
    device.staTotal = stationsOf(device.radioA, bssNumA) + stationsOf(device.radioB, bssNumB) +
                      device.otherClientNum;
  }
}

}  // namespace

int32_t MeshGetTopology(char *buffer, int32_t *length) {
  void *control = mapd_interface_ctrl_open(kControlPath);
  if (control == nullptr) {
    printf("open /tmp/mapd_ctrl fail!\n");
    return kFailure;
  }
  const int32_t status = mapd_interface_get_topology(control, buffer, length, kDumpPath);
  if (status == MAPD_COMMAND_FAILED) printf("Command Failed\n");
  if (status == MAPD_TIME_OUT) printf("Command Time Out\n");
  mapd_interface_ctrl_close(control);
  return status;
}

int32_t pm_get_dumpbuf_info(const char *text, void * /*scratch*/, MeshTopologyRecord *record) {
  const Trail log = entered(kSourceTag);
  if (log.lacks(record)) return kFailure;
  cJSON *root = cJSON_Parse(text);
  const int32_t status = readTopology(root, record);
  cJSON_Delete(root);
  return status;
}

int32_t pm_ubus_get_meshtopology(MeshTopologyRecord *record) {
  const Trail log = entered(kSourceTag);
  if (log.lacks(record)) return kFailure;
  char dump[kDumpSize] = {};
  int32_t length = kDumpSize;
  uint8_t scratch[kScratchSize] = {};

  const int32_t fetched = MeshGetTopology(dump, &length);
  dump[kDumpSize - 1] = '\0';
  PM_LOG(log, kError, 0, "buf: %s --------------------------------\r\n", dump);
  if (fetched != kOk) {
    PM_LOG(log, kError, fetched, "MeshGetTopology failed!!! iRet:%d\n", fetched);
    return fetched;
  }
  if (const int32_t walked = pm_get_dumpbuf_info(dump, scratch, record); walked != kOk) {
    PM_LOG(log, kError, walked, "pm_get_dumpbuf_info failed!! iRet:%d\n", walked);
    return walked;
  }
  totalStations(record);
  return kOk;
}
