#include "gateway/layouts.hpp"

#include <algorithm>
#include <stdexcept>

#include "platform/all_records.hpp"

namespace gateway {

using namespace platform;

namespace {

template <class View>
constexpr Layout view(std::string_view name) {
  return {name, View::kId, View::kSize, View::fields, &View::fields};
}

template <class Record>
constexpr Layout record(std::string_view name) {
  return {name, 0, Record::kSize, Record::fields, &Record::fields};
}

constexpr Layout kLayouts[] = {
    view<LanInfoView>("DBVIEW_LANINFO"),
    view<EthPortConfigView>("DBVIEW_ETH_PORTCONF"),
    view<InterfaceInfoView>("DBVIEW_INTERFACE_INFO"),
    view<LanDeviceView>("DBVIEW_LAN_DEVICE"),
    view<WanConnectionView>("DBVIEW_WAN_CONN_DEV"),
    view<WanIpConnectionView>("DBVIEW_WAN_IP_CONN"),
    view<WanPppConnectionView>("DBVIEW_WAN_PPP_CONN"),
    view<RouteInterfaceView>("DBVIEW_ROUTE_IF"),
    view<DssConfigView>("DBVIEW_DSS_CFG"),
    view<DeviceInfoView>("DBVIEW_DEVICE_INFO"),
    view<DssInfoView>("DBVIEW_DSS_INFO"),
    view<PrefixConfigView>("DBVIEW_PREFIX_CFG"),
    view<FirewallBaseView>("DBVIEW_FW_BASE"),
    view<WlanConfigView>("DBVIEW_WLAN_CONF"),
    view<AssociatedDeviceView>("DBVIEW_WLAN_AD"),
    view<MacFilterView>("DBVIEW_MAC_FILTER"),
    view<TimePolicyView>("DBVIEW_TIME_POLICY"),
    view<AccessDeviceView>("DBVIEW_ACCESS_DEV"),
    view<QosClassificationView>("DBVIEW_QOS_CLASSIFICATION"),
    view<DeviceLimitView>("DBVIEW_DEV_LIMIT"),
    view<NetworkingDeviceView>("DBVIEW_NETWORKING_DEV_INFO"),
    view<EasyMeshView>("DBVIEW_EASYMESH"),
    view<GatewayIdentityView>("DBVIEW_GATEWAY_IDENTITY"),
    view<SampleConfigView>("DBVIEW_SAMPLE_CONFIG"),
    view<WlanClientView>("DBVIEW_WLAN_APCLI"),
    view<IptvVlanBindingView>("DBVIEW_IPTVLANBIND"),
    view<UplinkRateConfigView>("DBVIEW_UPLINKRATE_CONFIG"),
    record<BandwidthLimitRecord>("BandwidthLimitRecord"),
    record<CpuInfoRecord>("CpuInfoRecord"),
    record<DeviceRecord>("DeviceRecord"),
    record<FirewallBaseRecord>("FirewallBaseRecord"),
    record<HttpSpeedReply>("HttpSpeedReply"),
    record<LinkStatusRecord>("LinkStatusRecord"),
    record<LogConfigRecord>("LogConfigRecord"),
    record<MacFilterEntryRecord>("MacFilterEntryRecord"),
    record<PortLinkStateRecord>("PortLinkStateRecord"),
    record<PortStatisticsRecord>("PortStatisticsRecord"),
    record<PortMacParameterRecord>("PortMacParameterRecord"),
    record<PortMacResultRecord>("PortMacResultRecord"),
    record<PppoeAccountRecord>("PppoeAccountRecord"),
    record<QosClassificationRecord>("QosClassificationRecord"),
    record<RadioInfoRecord>("RadioInfoRecord"),
    record<RouteInfoRecord>("RouteInfoRecord"),
    record<StationStatisticsRecord>("StationStatisticsRecord"),
    record<TimerEntry>("TimerEntry"),
    record<WanDeviceTypeRecord>("WanDeviceTypeRecord"),
    record<UpModeBlock>("UpModeBlock"),
    record<WanIpExtRecord>("WanIpExtRecord"),
    record<WanPppExtRecord>("WanPppExtRecord"),
    record<WlanBandSteeringRecord>("WlanBandSteeringRecord"),
    record<WlanCardRecord>("WlanCardRecord"),
    record<WlanConfigRecord>("WlanConfigRecord"),
    record<WlanCsiRecord>("WlanCsiRecord"),
    record<WlanCsiMacRecord>("WlanCsiMacRecord"),
    record<WlanDriverRecord>("WlanDriverRecord"),
    record<WlanEasyMeshRecord>("WlanEasyMeshRecord"),
    record<WlanHostEntry>("WlanHostEntry"),
    record<WlanWepRecord>("WlanWepRecord"),
    record<WlanPskRecord>("WlanPskRecord"),
    record<WlanScanRequest>("WlanScanRequest"),
    record<WlanApEntry>("WlanApEntry"),
    record<WlanSelectRecord>("WlanSelectRecord"),
    record<WlanTxPowerRecord>("WlanTxPowerRecord"),
    record<WlanWpsRecord>("WlanWpsRecord"),
    record<WorkingModeRecord>("WorkingModeRecord"),
};

template <class Predicate>
const Layout *findLayout(Predicate predicate) {
  const auto found = std::find_if(std::begin(kLayouts), std::end(kLayouts), predicate);
  return found == std::end(kLayouts) ? nullptr : &*found;
}

}  // namespace

const Field *Layout::find(std::string_view fieldName) const {
  for (const Field &field : fields) {
    if (fieldName == field.name) return &field;
  }
  return nullptr;
}

std::span<const Layout> allLayouts() {
  return kLayouts;
}

const Layout *viewById(uint32_t id) {
  return findLayout([&](const Layout &layout) { return layout.isView() && layout.id == id; });
}

const Layout *layoutByName(std::string_view name) {
  return findLayout([&](const Layout &layout) { return layout.name == name; });
}

const Layout &layoutByIdentity(const void *identity) {
  const Layout *found =
      findLayout([&](const Layout &layout) { return layout.identity == identity; });
  if (found == nullptr) throw std::logic_error("a record that gateway/layouts.cpp does not list");
  return *found;
}

std::string viewName(uint32_t id) {
  const Layout *layout = viewById(id);
  return layout == nullptr ? "view " + std::to_string(id) : std::string(layout->name);
}

}  // namespace gateway
