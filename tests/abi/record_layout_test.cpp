// The daemon is built apart from the library: sizes and offsets are what both must agree on.
// Compiling this file is the test.

#include <cstddef>

#include "pmapi/pmapi.h"

static_assert(sizeof(ListLink) == 8);

static_assert(sizeof(BasicInfoRecord) == 944);
static_assert(offsetof(BasicInfoRecord, devKey) == 320);
static_assert(offsetof(BasicInfoRecord, versionType) == 480);
static_assert(offsetof(BasicInfoRecord, wanIpv4) == 580);
static_assert(offsetof(BasicInfoRecord, meshSupport) == 836);
static_assert(offsetof(BasicInfoRecord, dualBand) == 908);
static_assert(sizeof(HardwareInfoRecord) == 24);
static_assert(sizeof(PortInfoRecord) == 76);

static_assert(offsetof(UbusAddItem, value) == 32);
static_assert(sizeof(DevLogStats) == 12);
static_assert(offsetof(HttpSpeedRequest, parameter) == 32);
static_assert(offsetof(HttpSpeedRequest, textContinued) == 36);
static_assert(sizeof(HttpSpeedResult) == 68);
static_assert(offsetof(HttpSpeedResult, speed) == 32);
static_assert(offsetof(UbusPppoe, pppoePwd) == 64);
static_assert(sizeof(UbusWorkingMode) == 8);

static_assert(offsetof(UbusMacFilter, entries) == 8);
static_assert(sizeof(UbusDeviceLimit) == 1712);
static_assert(offsetof(UbusDeviceLimit, LmtMode) == 1696);
static_assert(sizeof(DevLmtCfg) == 48);
static_assert(offsetof(DevLmtCfg, rxRate) == 16);
static_assert(offsetof(DevLmtCfg, limitWeek) == 28);
static_assert(offsetof(DevLmtCfg, instance) == 44);
static_assert(sizeof(LmtUrlCfg) == 1640);
static_assert(offsetof(LmtUrlCfg, LimitURL) == 40);
static_assert(sizeof(UbusIptv) == 88);
static_assert(sizeof(UbusQosRule) == 260);
static_assert(offsetof(UbusQosRule, label) == 188);
static_assert(offsetof(UbusQos, rules) == 8);
static_assert(sizeof(UbusWifiTimer) == 28);
static_assert(sizeof(WeekdayList) == 36);

static_assert(sizeof(si_net_sample_dev) == 52);
static_assert(offsetof(si_net_sample_dev, name) == 8);
static_assert(offsetof(si_net_sample_dev, count) == 40);
static_assert(offsetof(si_net_sample_dev, samples) == 44);
static_assert(sizeof(si_net_sample) == 16);
static_assert(offsetof(si_net_sample, tx) == 8);
static_assert(offsetof(si_net_sample, rx) == 12);
static_assert(sizeof(si_net_sample_statics) == 16);

static_assert(sizeof(UplinkInfoRecord) == 1344);
static_assert(alignof(UplinkInfoRecord) == 8);
static_assert(offsetof(UplinkInfoRecord, GatewayMac) == 47);
static_assert(offsetof(UplinkInfoRecord, netIpMode) == 80);
static_assert(offsetof(UplinkInfoRecord, RxRate_rt) == 536);
static_assert(offsetof(UplinkInfoRecord, v6Status) == 664);
static_assert(offsetof(UplinkInfoRecord, v6PrefixMode) == 792);
static_assert(offsetof(UplinkInfoRecord, rateStatsValid) == 956);
static_assert(offsetof(UplinkInfoRecord, ipv6Rates) == 1120);
static_assert(offsetof(UplinkInfoRecord, ethCounters) == 1280);
static_assert(sizeof(UplinkRateConfigRecord) == 96);

static_assert(sizeof(StaInfoRecord) == 1560);
static_assert(alignof(StaInfoRecord) == 8);
static_assert(offsetof(StaInfoRecord, staConfigValid) == 1264);
static_assert(offsetof(StaInfoRecord, totalBytesSent) == 1528);
static_assert(sizeof(StaConfigResult) == 260);

static_assert(sizeof(WifiInfoRecord) == 288);
static_assert(offsetof(WifiInfoRecord, interferencePercent) == 132);
static_assert(offsetof(WifiInfoRecord, maxAssociateNum) == 268);
static_assert(sizeof(WifiParameterRecord) == 156);
static_assert(offsetof(WifiParameterRecord, encrypt) == 80);
static_assert(sizeof(RadioRecord) == 48);
static_assert(offsetof(RadioRecord, bandwidth) == 44);
static_assert(sizeof(WifiSwitchRecord) == 68);
static_assert(sizeof(WifiStatsRecord) == 128);
static_assert(alignof(WifiStatsRecord) == 8);
static_assert(offsetof(WifiStatsRecord, totalBytesSent) == 64);
static_assert(sizeof(NeighborApEntry) == 144);
static_assert(offsetof(NeighborInfoRecord, neighborNum24G) == 8);
static_assert(offsetof(NeighborInfoRecord, entries) == 20);
static_assert(sizeof(NeighborInfoRecord) == 20 + 256 * 144);
static_assert(sizeof(CsiEnableSetRecord) == 36);
static_assert(sizeof(CsiEnableRecord) == 72);
static_assert(offsetof(CsiMacRecord, macList) == 4);
static_assert(sizeof(CsiConfigRecord) == 8);
static_assert(sizeof(WlanConnectRecord) == 96);

static_assert(sizeof(MeshBackhaulEntry) == 168);
static_assert(sizeof(MeshBssEntry) == 1064);
static_assert(sizeof(MeshRadioBlock) == 34052);
static_assert(sizeof(MeshDeviceSlot) == 74756);
static_assert(offsetof(MeshDeviceSlot, alMac) == 23);
static_assert(offsetof(MeshDeviceSlot, bhInfo) == 240);
static_assert(offsetof(MeshDeviceSlot, bhNum) == 5616);
static_assert(offsetof(MeshDeviceSlot, radioB) == 5620);
static_assert(offsetof(MeshDeviceSlot, radioA) == 39672);
static_assert(offsetof(MeshDeviceSlot, otherClientMac) == 73724);
static_assert(offsetof(MeshDeviceSlot, otherClientNum) == 74748);
static_assert(offsetof(MeshDeviceSlot, staTotal) == 74752);
static_assert(sizeof(MeshTopologyRecord) == 32 * 74756);
static_assert(sizeof(MeshRoleRecord) == 4);
static_assert(sizeof(MeshRoamRecord) == 4);
static_assert(sizeof(MeshInfoRecord) == 280);
static_assert(offsetof(MeshInfoRecord, meshAlmac) == 11);
static_assert(offsetof(MeshInfoRecord, roamingEnable) == 44);
static_assert(offsetof(MeshInfoRecord, bhType) == 52);
static_assert(offsetof(MeshInfoRecord, staTotal) == 276);

static_assert(sizeof(RoamingRecord) == 36);
static_assert(sizeof(BandSteeringRecord) == 168);
static_assert(offsetof(BandSteeringRecord, bandSteeringStatus) == 156);
static_assert(sizeof(StaRssiRecord) == 140);
static_assert(offsetof(StaRssiRecord, macAddress) == 36);
static_assert(offsetof(StaRssiRecord, radio) == 68);
static_assert(offsetof(StaRssiRecord, rssi) == 76);
static_assert(offsetof(StaRssiRecord, radioValue) == 108);
static_assert(sizeof(StaNumRecord) == 12);
