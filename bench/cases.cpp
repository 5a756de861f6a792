#include "bench/cases.hpp"

#include <array>
#include <optional>
#include <set>
#include <stdexcept>

#include "bench/floors.hpp"
#include "catalogue/answer.hpp"
#include "catalogue/catalogue.hpp"
#include "gateway/profile.hpp"
#include "pmapi/uplinkinfo.h"

namespace bench {
namespace {

using catalogue::Method;
using catalogue::Object;

/// What a method is called with where a case says nothing of it.
Json exampleOf(const Method &method) {
  return records::Json::parse(method.examples.front().arguments);
}

/// Calls a function of the catalogue, with its example unless there are arguments.
void call(std::string_view function, const std::optional<Json> &arguments = {}) {
  for (const Object &object : catalogue::catalogue()) {
    for (const Method &method : object.methods) {
      if (method.function != function) continue;
      records::Secrets secrets;
      catalogue::invoke(object, method, arguments.value_or(exampleOf(method)), secrets);
      return;
    }
  }
  throw std::invalid_argument("no method of the catalogue calls " + std::string(function));
}

std::vector<Case> catalogueCases() {
  std::vector<Case> cases;
  std::set<std::string> functions;
  for (const Object &object : catalogue::catalogue()) {
    for (const Method &method : object.methods) {
      // Some methods show nothing but exported variables.
      if (method.function.starts_with("g_")) continue;
      if (!functions.insert(method.function).second) continue;
      const catalogue::Example &shown = method.examples.front();
      cases.push_back({.name = method.function,
                       .call =
                           [&shown, name = method.function] {
                             catalogue::prepare(shown);
                             call(name);
                           },
                       .profile = [&shown] { return example(shown.profile.c_str()); }});
    }
  }
  return cases;
}

std::string twoDigits(uint32_t number) {
  std::array<char, 3> text;
  std::snprintf(text.data(), text.size(), "%02X", number & 0xffu);
  return text.data();
}

/// No two begin alike, and none has a zero.
std::string mac(uint32_t number) {
  return twoDigits(number + 1) + "A1B2C3D4E5";
}

template <class Item>
Json array(uint32_t count, Item item) {
  Json items = Json::array();
  for (uint32_t i = 0; i < count; ++i) items.push_back(item(i));
  return items;
}

Json limits(uint32_t devices) {
  return {{"records", array(devices, [](uint32_t i) {
             return Json{{"deviceMac", mac(i)}, {"TxRate", "512"},
                         {"RxRate", "1024"},    {"LimitUrl", "games,videos,music,chat"},
                         {"LmtMode", 0},        {"LimitWeek", 0},
                         {"LimitStartTime", 0}, {"LimitEndTime", 0}};
           })}};
}

Json filterEntries(uint32_t entries) {
  std::string text;
  for (uint32_t i = 0; i < entries; ++i) text += (i > 0 ? "," : "") + mac(i) + "/pad";
  return {{"macFilterEnable", 1}, {"macFilterPolicy", 0}, {"entries", text}};
}

Json rules(uint32_t count) {
  return {{"qosCommon", 1},
          {"rules", array(count, [](uint32_t) {
             return Json{{"label", "video"}, {"ip1", "192.168.1.2"}, {"port1", "443"}};
           })}};
}

Json ssids(uint32_t count) {
  return {{"records", array(count, [](uint32_t i) {
             return Json{{"radio", i < 4 ? "2.4G" : "5G"},
                         {"index", i % 4 + 1},
                         {"enable", 1},
                         {"ssid", "home-network"},
                         {"securityMode", "WPA2-Personal"},
                         {"encrypt", 1},
                         {"pwd", "correct horse"}};
           })}};
}

Json csiStations(uint32_t count) {
  std::string list;
  for (uint32_t i = 0; i < count; ++i) list += (i > 0 ? "," : "") + mac(i);
  return {{"operation", 1}, {"macList", list}};
}

/// A schedule takes two entries of a service.
void addTasks(uint32_t tasks) {
  for (uint32_t i = 1; i <= tasks; ++i) {
    call("pm_ubus_nexumd_wifi_timer_add", Json{{"taskId", i},
                                               {"enable", 1},
                                               {"weekMask", 62},
                                               {"Action", 2},
                                               {"timeOffset", 28800},
                                               {"timeOffset2", 79200},
                                               {"index", 1}});
  }
}

constexpr int32_t kUplinkIpv4 = 3;

void addSample(const std::string &ring) {
  call("si_sample_list_add",
       Json{{"sample", {{"tx", 1200}, {"rx", 3400}}}, {"key", ring}, {"mode", kUplinkIpv4}});
}

void fillRing(const std::string &ring, uint32_t samples) {
  for (uint32_t i = 0; i < samples; ++i) addSample(ring);
}

/// They differ at their ends only.
std::string key(uint32_t number) {
  return "02:a1:b2:c3:d4:" + twoDigits(number);
}

/// So many keys with full rings; the one that is asked for comes last.
void fillRings(uint32_t keys) {
  for (uint32_t i = 1; i <= keys; ++i) fillRing(key(i), 10);
}

void reduce(const std::string &ring) {
  call("si_net_sample_list_statics", Json{{"key", {{"name", ring}}}, {"mode", kUplinkIpv4}});
}

void deleteSample(uint32_t samples) {
  fillRing("uplink", samples);
  const auto *ring = reinterpret_cast<const si_net_sample_dev *>(g_net_uplink_ifa_list.next);
  catalogue::callExport(si_net_sample_list_del,
                        reinterpret_cast<si_net_sample *>(ring->samples.next));
}

/// As many stations as are wanted, of a house with as many as a platform lists.
Json houseOf(uint32_t number) {
  Json profile = example("crowded.json");
  Json &all = profile["stations"]["all"];
  while (all.size() > number) all.erase(all.size() - 1);
  return profile;
}

/// The last connections of that house; the others carry nothing.
Json linksOf(uint32_t number) {
  Json profile = houseOf(1);
  Json &connections = profile["wan"]["connections"];
  while (connections.size() > number) {
    profile["views"]["DBVIEW_WAN_CONN_DEV"].erase(connections[0]["instance"].get<std::string>());
    connections.erase(0);
  }
  return profile;
}

Json airOf(uint32_t accessPoints) {
  Json profile = example("home_router.json");
  for (Json &air : profile["scans"]) {
    const Json heard = air["accessPoints"][0];
    air["accessPoints"] = array(accessPoints, [&heard](uint32_t) { return heard; });
  }
  return profile;
}

Json bindingsOf(uint32_t number) {
  Json profile = example("home_router.json");
  Json &rows = profile["views"]["DBVIEW_IPTVLANBIND"];
  for (uint32_t i = 1; i <= number; ++i) {
    rows["IGD.IPTV" + std::to_string(i)] = {{"portPath", "IGD.LD1.ETH2"}, {"vlanId", 85}};
  }
  return profile;
}

Json topologyOf(uint32_t devices) {
  const Json dense = example("home_router.json")["mesh"]["topology"]["topology information"][0];
  return {{"topology information", array(devices, [&dense](uint32_t) { return dense; })}};
}

std::string topologyText(uint32_t devices) {
  return topologyOf(devices).dump();
}

Json meshOf(uint32_t devices) {
  Json profile = example("home_router.json");
  profile["mesh"]["topology"] = topologyOf(devices);
  return profile;
}

Json storeOf40Lines(uint32_t) {
  Json profile = example("home_router.json");
  const auto line = [](uint32_t i) {
    const std::string number = std::to_string(i + 11);
    return i == 24 ? std::string(kStoreItem) + "=36"
                   : "if5_setting" + number + "=value of setting " + number;
  };
  profile["files"] = {{kStore, array(40, line)}};
  return profile;
}

/// One call measured for lists of several lengths.
struct Family {
  const char *name;
  std::vector<uint32_t> items = {1};
  std::function<void(uint32_t)> call;
  Json (*profile)(uint32_t) = nullptr;
  std::function<void(uint32_t)> floor = {};
  uint32_t limitPercent = 0;
};

/// With one argument and without any.
auto calls(const char *function, const Json &arguments = Json::object()) {
  return [=](uint32_t) { call(function, arguments); };
}

auto calls(const char *function, Json (*arguments)(uint32_t)) {
  return [=](uint32_t items) { call(function, arguments(items)); };
}

/// The call after `prepare`, whose own calls do not count.
auto calls(const char *function, void (*prepare)(uint32_t),
           const Json &arguments = Json::object()) {
  return [=](uint32_t items) {
    prepare(items);
    call(function, arguments);
  };
}

void walk(const std::string &topology) {
  call("pm_get_dumpbuf_info", Json{{"text", topology}});
}

void setLimits(uint32_t devices) {
  call("pm_ubus_nexumd_limit_set", limits(devices));
}

void setRules(uint32_t count) {
  call("pm_ubus_nexumd_qos_set", rules(count));
}

void setCsiStations(uint32_t count) {
  call("pm_ubus_set_csi_mac", csiStations(count));
}

std::vector<Family> floorFamilies() {
  const Json read{{"item", kStoreItem}, {"length", 64}};
  const Json write{{"item", kStoreItem}, {"value", "149"}};
  const Json remove{{"item", kStoreItem}};
  return {
      {.name = "item store: get of 40 lines",
       .call = calls("pm_ubus_config_getitem", read),
       .profile = storeOf40Lines,
       .floor = [](uint32_t) { readStore(); },
       .limitPercent = 100},
      {.name = "item store: add to 40 lines",
       .call = calls("pm_ubus_config_additem", write),
       .profile = storeOf40Lines,
       .floor = [](uint32_t) { replaceInStore(); },
       .limitPercent = 100},
      {.name = "item store: delete of 40 lines",
       .call = calls("pm_ubus_config_deleteitem", remove),
       .profile = storeOf40Lines,
       .floor = [](uint32_t) { blankInStore(); },
       .limitPercent = 100},
      {.name = "mesh: walk of the topology, devices",
       .items = {1, 3},
       .call = [](uint32_t devices) { walk(topologyText(devices)); },
       .floor = [](uint32_t devices) { parseTopology(topologyText(devices).c_str()); },
       .limitPercent = 110},
      {.name = "basic information: WAN search, links",
       .items = {1, 8, 32},
       .call = calls("ubus_get_router_ip_host_ipv46"),
       .profile = linksOf,
       .floor = clearForConnections,
       .limitPercent = 125},
  };
}

std::vector<Family> deviceFamilies() {
  const Json ipv4{{"mode", 1}};
  return {
      {"mesh: record, devices", {1, 2, 4}, calls("pm_ubus_get_meshtopology"), meshOf},
      {"roaming: number of stations, attached devices",
       {1, 12, 128},
       calls("pm_ubus_sta_num_get"),
       houseOf},
      {"samples: one of the stations, devices",
       {1, 12, 128},
       calls("if_sta_statics", ipv4),
       houseOf},
      {"samples: one of the uplink, connections",
       {1, 8, 32},
       calls("if_uplink_statics", ipv4),
       linksOf},
      {"uplink: current rates, connections", {1, 8, 32}, calls("ubus_get_rate_rt"), linksOf},
      {"Wi-Fi: 2.4 GHz neighbours, access points",
       {1, 32, 256},
       calls("pm_ubus_wlan_neighborinfo_get_2g"),
       airOf},
      {"Wi-Fi: 5 GHz neighbours, access points",
       {1, 32, 256},
       calls("pm_ubus_wlan_neighborinfo_get_5g"),
       airOf},
  };
}

std::vector<Family> listFamilies() {
  return {
      {"limit: set with 4 URLs, devices", {1, 10, 100}, setLimits},
      {"limit: get, devices", {1, 10, 100}, calls("pm_ubus_nexumd_limit_get", setLimits)},
      {"MAC filter: set, entries", {1, 10, 100}, calls("pm_ubus_macfilter_set", filterEntries)},
      {"IPTV: get, bindings", {1, 10, 32}, calls("pm_ubus_nexumd_iptv_get"), bindingsOf},
      {"IPTV: delete, bindings", {1, 10, 32}, calls("pm_iptv_del"), bindingsOf},
      {"QoS: set, rules", {1, 10, 30}, setRules},
      {"QoS: get, rules", {1, 10, 30}, calls("pm_ubus_nexumd_qos_get", setRules)},
      {"QoS: clear, rules", {1, 10, 30}, calls("pm_qc_clear_all", setRules)},
      {"timer: delete a task, tasks",
       {1, 5, 45},
       calls("pm_ubus_nexumd_wifi_timer_del", addTasks, Json{{"taskId", 1}})},
      {"timer: list, tasks", {1, 5, 45}, calls("pm_ubus_nexumd_wifi_timer_list", addTasks)},
      {"samples: add to a full ring, keys",
       {1, 10, 100},
       [](uint32_t keys) {
         fillRings(keys);
         addSample(key(keys));
       }},
      {"samples: reduce a ring, keys",
       {1, 10, 100},
       [](uint32_t keys) {
         fillRings(keys);
         reduce(key(keys));
       }},
      {"samples: reduce a ring, samples",
       {1, 10},
       [](uint32_t samples) {
         fillRing("uplink", samples);
         reduce("uplink");
       }},
      {"si_net_sample_list_del", {1}, deleteSample},
      {"Wi-Fi: parameter set, SSIDs", {1, 4, 8}, calls("pm_ubus_wifiParameter_set_Multi", ssids)},
      {"CSI: set, stations", {1, 32}, setCsiStations},
      {"CSI: get, stations", {1, 32}, calls("pm_ubus_get_csi_mac", setCsiStations)},
  };
}

void append(const Family &family, std::vector<Case> &cases) {
  for (const uint32_t items : family.items) {
    Case next{.name = family.name, .call = [=] { family.call(items); }, .family = family.name};
    if (family.items.size() > 1) next.name += ", " + std::to_string(items);
    if (family.profile != nullptr) next.profile = [=] { return family.profile(items); };
    if (family.floor) next.floor = [=] { family.floor(items); };
    next.limitPercent = family.limitPercent;
    next.items = items;
    cases.push_back(std::move(next));
  }
}

}  // namespace

std::vector<Case> allCases() {
  std::vector<Case> cases;
  for (const auto &families : {floorFamilies(), deviceFamilies(), listFamilies()}) {
    for (const Family &family : families) append(family, cases);
  }
  for (Case &next : catalogueCases()) cases.push_back(std::move(next));
  return cases;
}

Json example(const char *fileName) {
  return gateway::readProfile(std::string(PMAPI_EXAMPLES_DIR "/") + fileName);
}

}  // namespace bench
