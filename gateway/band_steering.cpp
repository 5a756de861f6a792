// Roaming and band steering: one record for both.
#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "gateway/instances.hpp"
#include "platform/wlan.h"
#include "platform/wlan.hpp"

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

int32_t gateway::pm_wlan_get_wifibandsteering(WlanBandSteeringRecord *record) {
  Gateway &gateway = Gateway::current();
  needs(record);
  return gateway.store().get(layoutOf<WlanBandSteeringRecord>(), kInstance, record);
}

int32_t gateway::pm_wlan_set_wifibandsteering(WlanBandSteeringRecord *record) {
  Gateway &gateway = Gateway::current();
  needs(record);
  return gateway.store().set(layoutOf<WlanBandSteeringRecord>(), kInstance, record,
                             Unchanged::kReported);
}

int32_t gateway::pm_wlan_set_same_ssid_2G(const char *instance24G, const char *instance5G) {
  Gateway &gateway = Gateway::current();
  const std::string key = boundary::text(instance24G) + " " + boundary::text(instance5G);
  const Row from = ssidAt(gateway.store(), instance24G);
  const Row to = ssidAt(gateway.store(), instance5G);
  to.setText(WlanConfigRecord::ssid, from.text(WlanConfigRecord::ssid));
  return kOk;
}
