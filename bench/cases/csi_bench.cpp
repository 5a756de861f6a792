// Channel state information: its switch, its parameters, its stations.
#include <cstring>

#include "bench/bench.hpp"
#include "platform/wlan.hpp"
#include "pmapi/wifi_csi.h"

using namespace platform;

using bench::answerTo;

namespace {

constexpr int32_t kAdd = 1;
constexpr uint32_t kMostStations = 32;
constexpr char kStation[] = "02A1B2C3D4E5";

const CsiEnableSetRecord enable{"All", 1};
const CsiConfigRecord parameters{20, 80};
CsiEnableRecord enableRead;
CsiConfigRecord parametersRead;
alignas(CsiMacRecord) char listBytes[sizeof(CsiMacRecord) + 416];

CsiMacRecord *list() {
  return reinterpret_cast<CsiMacRecord *>(listBytes);
}

void describeStations(uint32_t number) {
  memset(listBytes, 0, sizeof listBytes);
  list()->operation = kAdd;
  for (uint32_t i = 0; i < number; ++i) {
    if (i > 0) strcat(list()->macList, ",");
    strcat(list()->macList, kStation);
  }
}

void heldStations(uint32_t number) {
  answerTo<pm_wlan_list_csi_mac>.paths(number, "IGD.CsiMac");
  answerTo<pm_wlan_get_csi_mac_par>.set(WlanCsiMacRecord::macText, kStation);
}

const bench::Cases cases{
    {.name = "CSI: switch set", .handler = [](uint32_t) { pm_ubus_set_csi_enable(&enable); }},
    {.name = "CSI: switch get", .handler = [](uint32_t) { pm_ubus_get_csi_enable(&enableRead); }},
    {.name = "CSI: parameters set",
     .handler = [](uint32_t) { pm_ubus_set_csi_config(&parameters); }},
    {.name = "CSI: parameters get",
     .handler = [](uint32_t) { pm_ubus_get_csi_config(&parametersRead); }},
    {.name = "CSI: set, stations",
     .platform = describeStations,
     .handler = [](uint32_t) { pm_ubus_set_csi_mac(list()); },
     .items = {1, kMostStations}},
    {.name = "CSI: get, stations",
     .platform = heldStations,
     .before = [](uint32_t) { memset(listBytes, 0, sizeof listBytes); },
     .handler = [](uint32_t) { pm_ubus_get_csi_mac(list()); },
     .items = {1, kMostStations}},
};

}  // namespace
