// Roaming and band steering: one record for both.
#include "gateway/boundary.hpp"
#include "gateway/gateway.hpp"
#include "gateway/instances.hpp"
#include "platform/records/wlan_band_steering.hpp"
#include "platform/records/wlan_config.hpp"
#include "platform/wlan.h"

using namespace gateway;

namespace {

constexpr const char *kInstance = "IGD";

void needs(const void *pointer) {
  if (pointer == nullptr) throw Refusal(kNullArgument, "no record");
}

Row ssidAt(Store &store, const char *instance) {
  const std::string path = pathFrom(instance);
  if (!store.has<WlanConfigRecord>(path)) throw Refusal(kUnknownInstance);
  return store.row<WlanConfigRecord>(path);
}

}  // namespace

int32_t pm_wlan_get_wifibandsteering(WlanBandSteeringRecord *record) {
  return boundary::status("pm_wlan_get_wifibandsteering", "", [&](Gateway &gateway) {
    needs(record);
    return gateway.store().get(layoutOf<WlanBandSteeringRecord>(), kInstance, record);
  });
}

int32_t pm_wlan_set_wifibandsteering(WlanBandSteeringRecord *record) {
  return boundary::status("pm_wlan_set_wifibandsteering", "", [&](Gateway &gateway) {
    needs(record);
    return gateway.store().set(layoutOf<WlanBandSteeringRecord>(), kInstance, record,
                               Unchanged::kReported);
  });
}

int32_t pm_wlan_set_same_ssid_2G(const char *instance24G, const char *instance5G) {
  const std::string key = boundary::text(instance24G) + " " + boundary::text(instance5G);
  return boundary::status("pm_wlan_set_same_ssid_2G", key, [&](Gateway &gateway) {
    const Row from = ssidAt(gateway.store(), instance24G);
    const Row to = ssidAt(gateway.store(), instance5G);
    to.setText(WlanConfigRecord::ssid, from.text(WlanConfigRecord::ssid));
    return kOk;
  });
}
