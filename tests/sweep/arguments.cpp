#include "tests/sweep/arguments.hpp"

#include <map>
#include <string>

namespace gateway::testing {

namespace {

using catalogue::Direction;
using catalogue::Method;
using catalogue::Parameter;
using records::Json;

/// What a method is asked for where the simplest arguments would lead nowhere.
const std::map<std::string, const char *> kArguments = {
    {"pm_ubus_config_additem", R"({"item": "reportInterval", "value": "30"})"},
    {"pm_ubus_config_getitem", R"({"item": "reportInterval"})"},
    {"pm_ubus_config_deleteitem", R"({"item": "reportInterval"})"},
    {"pm_ubus_get_portinfo", R"({"portIndex": 0, "instance": "IGD.LD1.ETH1"})"},
    {"ubus_get_ifname_from_ifid", R"({"ifId": "IGD.WD1.WCD1.WCPPP1"})"},
    {"pm_ubus_macfilter_set",
     R"({"macFilterEnable": 1, "macFilterPolicy": 1, "entries": "A1B2C3D4E5F6/phone"})"},
    {"pm_ubus_nexumd_limit_set",
     R"({"records": [{"deviceMac": "A1B2C3D4E5F6", "TxRate": "100", "RxRate": "200",
         "LimitUrl": "a.example,b.example", "LmtMode": 1, "LimitWeek": 127,
         "LimitStartTime": 3600, "LimitEndTime": 7200}]})"},
    {"device_limit_cfg_data", R"({"deviceMac": "A1B2C3D4E5F7", "TxRate": "10", "RxRate": "20"})"},
    {"si_ubus_lmturl_command",
     R"({"mac": "a1:b2:c3:d4:e5:f6", "LimitURL": "a", "operation": "-A"})"},
    {"pm_ubus_nexumd_iptv_set",
     R"({"enable": 1, "vlanId": 85, "ethPorts": [1], "wlanPorts": [2]})"},
    {"pm_ubus_nexumd_qos_set", R"({"qosCommon": 1, "rules": [{"label": "one"}]})"},
    {"pm_ubus_nexumd_wifi_timer_add",
     R"({"taskId": 1, "enable": 1, "weekMask": 62, "Action": 2, "timeOffset": 60})"},
    {"pm_ubus_wifiParameter_set",
     R"({"radio": "2.4G", "index": 1, "enable": 1, "ssid": "home", "securityMode": "WPA2-Personal",
         "encrypt": 1, "pwd": "quiet-harbour"})"},
    {"pm_ubus_radio_set",
     R"({"radio": "5G", "transmitPower": "80", "channel": "44", "bandwidth": 1})"},
    {"pm_ubus_wifi_switch_set", R"({"radio": "5G", "enable": 1})"},
    {"pm_ubus_wifi_wps_set", R"({"radio": "all"})"},
    {"pm_ubus_set_csi_enable", R"({"radio": "All", "enable": 1})"},
    {"pm_ubus_set_csi_mac", R"({"operation": 1, "macList": "A1B2C3D4E5F6,A1B2C3D4E5F7"})"},
    {"pm_ubus_roaming_sta_disconnect", R"({"mac": "f40f24108801"})"},
    {"pm_ubus_roaming_starssi_get", R"({"macAddress": "f40f24108801"})"},
    {"pm_ubus_control_set", R"({"type": 2})"},
    {"pm_ubus_set_devlogstats", R"({"logEnable": 1, "logLevel": 2, "logParam": 3})"},
};

/// The same for methods that branch on what they are asked for.
const std::map<std::string, const char *> kOtherArguments = {
    {"pm_ubus_nexumd_iptv_set", R"({"enable": 0, "vlanId": 0})"},
    {"pm_ubus_nexumd_wifi_timer_add",
     R"({"taskId": 2, "enable": 1, "weekMask": 62, "Action": 1, "timeOffset": 60})"},
    {"pm_ubus_radio_set",
     R"({"radio": "2.4G", "transmitPower": "60", "channel": "6", "bandwidth": 1})"},
    {"pm_ubus_wifi_wps_set", R"({"radio": "5G"})"},
    {"pm_ubus_set_csi_mac", R"({"operation": 2, "macList": "A1B2C3D4E5F6"})"},
    {"pm_ubus_control_set", R"({"type": 1})"},
    {"pm_ubus_set_devlogstats", R"({"logEnable": 1, "logLevel": 2, "logParam": 0})"},
};

void addRequired(const records::Shape &shape, Json &record) {
  for (const records::Member &field : shape.members) {
    if (field.isOptional || shape.isCounter(field)) continue;
    record[field.name] = field.isArray                        ? Json::array()
                         : field.kind == records::Kind::kText ? Json("")
                                                              : Json(0);
  }
}

Json simplest(const Parameter &parameter) {
  if (parameter.type.starts_with("text")) return "IGD.LD1.WLAN1";
  if (parameter.type == "MAC") return "a1:b2:c3:d4:e5:f6";
  if (parameter.type == "character") return "x";
  if (parameter.isRows) return Json::array();
  if (parameter.type.find("int") != std::string::npos) return 1;
  Json record = Json::object();
  if (parameter.shape != nullptr) addRequired(*parameter.shape, record);
  return record;
}

}  // namespace

Json argumentsOf(const Method &method) {
  const auto known = kArguments.find(method.function);
  if (known != kArguments.end()) return Json::parse(known->second);
  Json arguments = Json::object();
  for (const Parameter &parameter : method.parameters) {
    if (parameter.direction == Direction::kOut || parameter.isOptional) continue;
    if (parameter.name.empty()) {
      addRequired(*parameter.shape, arguments);
    } else {
      arguments[parameter.name] = simplest(parameter);
    }
  }
  return arguments;
}

Json otherArgumentsOf(const Method &method) {
  const auto known = kOtherArguments.find(method.function);
  return known != kOtherArguments.end() ? Json::parse(known->second) : Json();
}

}  // namespace gateway::testing
