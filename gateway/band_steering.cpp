// Roaming and band steering: one record for both.
#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "platform/wlan.hpp"

namespace gateway {

namespace {

Row ssidAt(const char *instance) {
  if (!store().has<WlanConfigRecord>(instance)) throw Refusal(kUnknownInstance);
  return store().row<WlanConfigRecord>(instance);
}

}  // namespace

int32_t pm_wlan_get_wifibandsteering(WlanBandSteeringRecord *record) {
  return store().get("IGD", record);
}

int32_t pm_wlan_set_wifibandsteering(WlanBandSteeringRecord *record) {
  return store().set("IGD", record, Unchanged::kReported);
}

int32_t pm_wlan_set_same_ssid_2G(const char *instance24G, const char *instance5G) {
  const std::string ssid = ssidAt(instance24G).text(WlanConfigRecord::ssid);
  ssidAt(instance5G).setText(WlanConfigRecord::ssid, ssid);
  return kOk;
}

}  // namespace gateway
