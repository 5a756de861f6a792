// Settings of roaming and band steering.
#include "bench/bench.hpp"
#include "platform/wlan.hpp"
#include "pmapi/roaming.h"

using namespace platform;

using bench::get;

namespace {

const RoamingRecord roaming{1, -75, -70, 0, 0, 0, 0, 0, 0};
const BandSteeringRecord steering{{}, 1, -65, -60};
RoamingRecord roamingRead;
BandSteeringRecord steeringRead;

void thresholds(uint32_t) {
  bench::answerTo<pm_wlan_get_wifibandsteering>.set(WlanBandSteeringRecord::steeringEnable, 1)
      .set(WlanBandSteeringRecord::lowRssi24G, static_cast<uint32_t>(-75))
      .set(WlanBandSteeringRecord::lowRssi5G, static_cast<uint32_t>(-70));
}

const bench::Cases cases{
    {.name = "roaming: get",
     .platform = thresholds,
     .handler = [](uint32_t) { pm_ubus_roaming_get(&roamingRead); }},
    {.name = "roaming: set", .handler = [](uint32_t) { pm_ubus_roaming_set(&roaming); }},
    {.name = "roaming: band steering get",
     .platform = thresholds,
     .handler = [](uint32_t) { pm_ubus_roaming_bandsteering_get(&steeringRead); }},
    {.name = "roaming: band steering set",
     .handler = [](uint32_t) { pm_ubus_roaming_bandsteering_set(&steering); }},
};

const bench::Singles settings{thresholds,
                              {{"ubus_getRoamingSwitch", get<ubus_getRoamingSwitch>},
                               {"ubus_getLowRSSI24G", get<ubus_getLowRSSI24G>},
                               {"ubus_getLowRSSI5G", get<ubus_getLowRSSI5G>},
                               {"ubus_getRssiThreshold", get<ubus_getRssiThreshold>},
                               {"ubus_getRssiThreshold5G", get<ubus_getRssiThreshold5G>},
                               {"ubus_getBandSteeringStatus", get<ubus_getBandSteeringStatus>},
                               {"ubus_setLowRSSI", [](uint32_t) { ubus_setLowRSSI(1, 75, 70); }}}};

}  // namespace
