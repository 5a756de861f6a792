// The mesh: what walking the topology adds to cJSON's own parse and delete of its text, and the two
// settings.
#include <cjson/cJSON.h>

#include <cstdlib>
#include <string>

#include "bench/bench.hpp"
#include "bench/platform/process.hpp"
#include "platform/multiap.h"
#include "platform/wlan.hpp"
#include "pmapi/mesh_role.h"
#include "pmapi/meshinfo.h"
#include "pmapi/meshtopology.h"
#include "pmapi/setmeshroam.h"

using namespace platform;

namespace {

constexpr uint32_t kRadios = 2;
constexpr uint32_t kBssPerRadio = 4;
constexpr uint32_t kStationsPerBss = 1;

const MeshRoleRecord controller{1};
const MeshRoamRecord roamingOn{1};

std::string dump;
char dumped[8192];
int32_t dumpLength;
MeshTopologyRecord topology;
MeshInfoRecord info;

std::string member(const char *name, const std::string &value) {
  return "\"" + std::string(name) + "\":\"" + value + "\"";
}

template <class Item>
std::string array(uint32_t count, Item item) {
  std::string text = "[";
  for (uint32_t i = 0; i < count; ++i) {
    if (i > 0) text += ',';
    text += item(i);
  }
  return text + "]";
}

std::string bss(uint32_t index) {
  const std::string number = std::to_string(index);
  return "{" + member("BSSID", "02:11:22:33:44:5" + number) + "," +
         member("SSID", "home-network-" + number) + "," + member("Pass-phrase", "correct horse") +
         "," + member("Security", "WPA2-PSK") + ",\"connected sta info\":" +
         array(
             kStationsPerBss,
             [](uint32_t) { return "{" + member("STA MAC address", "aa:bb:cc:dd:ee:ff") + "}"; }) +
         "}";
}

std::string device(uint32_t index) {
  return "{" + member("AL MAC", "02:00:00:00:00:0" + std::to_string(index)) + "," +
         member("Device role", index == 0 ? "controller" : "agent") + ",\"Radio Info\":" +
         array(kRadios, [](uint32_t) { return "{\"BSSINFO\":" + array(kBssPerRadio, bss) + "}"; }) +
         ",\"BH Info\":" +
         array(1,
               [](uint32_t) {
                 return "{" + member("neighbor almac addr", "02:00:00:00:00:00") + "," +
                        member("Backhaul Medium Type", "Ethernet") + "}";
               }) +
         ",\"Other Clients Info\":" +
         array(1,
               [](uint32_t) { return "{" + member("Client Address", "aa:00:00:00:00:01") + "}"; }) +
         "}";
}

void meshOf(uint32_t devices) {
  dump = "{\"topology information\":" + array(devices, device) + "}";
  bench::meshDump = dump.c_str();
  bench::viewAnswer(DBVIEW_EASYMESH).set(platform::EasyMeshView::roamingEnable, 1);
}

void meshOfThree(uint32_t) {
  meshOf(3);
}

void parseAndDelete(uint32_t) {
  cJSON_Delete(cJSON_Parse(dump.c_str()));
}

/// One record for the whole mesh, zeroed, and the parse of what fills it.
void allocateAndParse(uint32_t items) {
  void *volatile record = calloc(1, sizeof(MeshTopologyRecord));
  parseAndDelete(items);
  free(record);
}

/// The text is the caller's, who has zeroed it.
void fetchTopology(uint32_t) {
  void *control = mapd_interface_ctrl_open("/tmp/mapd_ctrl");
  mapd_interface_get_topology(control, dumped, &dumpLength, "/tmp/dump.txt");
  mapd_interface_ctrl_close(control);
}

const bench::Cases cases{
    {.name = "mesh: topology walk, 3 devices",
     .platform = meshOfThree,
     .handler = [](uint32_t) { pm_get_dumpbuf_info(dump.c_str(), nullptr, &topology); },
     .floor = parseAndDelete,
     .limitPercent = 110},
    {.name = "mesh: topology text, 3 devices",
     .platform = meshOfThree,
     .before = [](uint32_t) { dumpLength = sizeof dumped; },
     .handler = [](uint32_t) { MeshGetTopology(dumped, &dumpLength); },
     .floor = fetchTopology},
    {.name = "mesh: topology, devices",
     .platform = meshOf,
     .handler = [](uint32_t) { pm_ubus_get_meshtopology(&topology); },
     .besides = parseAndDelete,
     .items = {1, 2, 4},
     .logsErrors = true},
    {.name = "mesh: information, 3 devices",
     .platform = meshOfThree,
     .handler = [](uint32_t) { pm_ubus_get_meshinfo(&info); },
     .besides = allocateAndParse,
     .logsErrors = true},
    {.name = "mesh: role", .handler = [](uint32_t) { pm_ubus_meshrole_set(&controller); }},
    {.name = "mesh: roaming", .handler = [](uint32_t) { pm_ubus_set_meshroam(&roamingOn); }},
};

const bench::Singles settings{
    meshOfThree,
    {{"ubus_getmeshRole", [](uint32_t) { ubus_getmeshRole(); }},
     {"ubus_getroamingEnable", [](uint32_t) { ubus_getroamingEnable(); }}}};

}  // namespace
