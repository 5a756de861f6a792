#include "pmapi/uplinkinfo.h"

#include "catalogue/catalogue.hpp"
#include "catalogue/platform_parameters.hpp"
#include "platform/wan.hpp"

PM_RECORD(UplinkRateBlock, PM_FIELD(statType), PM_FIELD(AverRxRate), PM_FIELD(AverTxRate),
          PM_FIELD(MaxRxRate), PM_FIELD(MaxTxRate));
PM_RECORD(UplinkInfoRecord, PM_FIELD(uplinkType), PM_FIELD(managerMac), PM_FIELD(GatewayMac),
          PM_FIELD(netIpMode), PM_FIELD(accessMode), PM_FIELD(pppoeUserName),
          PM_FIELD(pppoePassword).secret(), PM_FIELD(runningTime), PM_FIELD(radioBand),
          PM_FIELD(linkName), PM_FIELD(wlanStatus1), PM_FIELD(wlanStatus2), PM_FIELD(wlanStatus3),
          PM_FIELD(wlanStatus4), PM_FIELD(linkRate), PM_FIELD(linkRate2), PM_FIELD(RxRate_rt),
          PM_FIELD(TxRate_rt), PM_FIELD(v6Status), PM_FIELD(v6AddressOrigin), PM_FIELD(v6IPAddress),
          PM_FIELD(dhsv6_servers), PM_FIELD(v6PrefixMode), PM_FIELD(v6PrefixOrigin),
          PM_FIELD(v6Prefix), PM_FIELD(PreferLifetime), PM_FIELD(ValidLifetime),
          PM_FIELD(defaultIPv6Gateway), PM_FIELD(rateStatsValid), PM_FIELD(ipv4Rates),
          PM_FIELD(ipv6Rates), PM_FIELD(ethCounters));
PM_RECORD(si_net_sample, PM_FIELD(tx), PM_FIELD(rx));
PM_RECORD(si_net_sample_dev, PM_FIELD(name));
PM_RECORD(si_net_sample_statics, PM_FIELD(rx_max), PM_FIELD(tx_max), PM_FIELD(rx_aver),
          PM_FIELD(tx_aver));

namespace catalogue {

namespace {

constexpr size_t kAccountText = 32;
constexpr size_t kRateText = 64;

/// The daemon empties the lists once, before it takes its first sample.
[[maybe_unused]] const bool kListsSet = [] {
  for (ListLink *head :
       {&g_net_sta_ifa_list, &g_net_sta_if6_list, &g_net_uplink_ifa_list, &g_net_uplink_if6_list}) {
    *head = {head, head};
  }
  return true;
}();

int64_t intervals(Call &call) {
  call.putInteger("g_ifa_ReportInterval", g_ifa_ReportInterval);
  call.putInteger("g_ifa_SampleInterval", g_ifa_SampleInterval);
  call.putInteger("g_if6_ReportInterval", g_if6_ReportInterval);
  call.putInteger("g_if6_SampleInterval", g_if6_SampleInterval);
  return 0;
}

const Entry kEntry{{
    .name = "uplinkinfo",
    .source = "object_nexumd_uplinkinfo_pmapi.c",
    .summary = "How the gateway reaches the Internet, and samples of what it moves",
    .methods =
        {
            method("get", PM_FUNCTION(pm_ubus_get_uplinkinfo), "The whole record.", RecordOut{}),
            method(PM_FUNCTION(ubus_get_manger_mac), "Management MAC.", BytesOut{"mac", 6}),
            method(PM_FUNCTION(ubus_getPPPOEUserPwd), "Account of the PPP connection.",
                   TextOut{"user", kAccountText}, TextOut{"password", kAccountText, true}),
            method(PM_FUNCTION(ubus_get_rate_rt), "Current rates, summed over the connections.",
                   TextOut{"rxText", kRateText}, TextOut{"txText", kRateText}),
            method(PM_FUNCTION(ubus_getGatewayMac), "MAC of the upstream gateway.", TextOut{"mac"}),
            method(PM_FUNCTION(ubus_get_route_if_into), "IPv6 route of a WAN connection.",
                   TextIn{"instance"}, PlatformOut<platform::RouteInterfaceView>{"view"}),
            method(PM_FUNCTION(ubus_get_dssinto), "IPv6 addressing of a WAN connection.",
                   TextIn{"instance"}, PlatformOut<platform::DssInfoView>{"view"}),
            method(PM_FUNCTION(ubus_get_dsscfg), "IPv6 prefix mode of a WAN connection.",
                   TextIn{"instance"}, PlatformOut<platform::DssConfigView>{"view"}),
            method(PM_FUNCTION(ubus_get_prefixcfg), "IPv6 prefix of a WAN connection.",
                   TextIn{"instance"}, PlatformOut<platform::PrefixConfigView>{"view"}),
            method(PM_FUNCTION(if_uplink_statics), "Samples the uplink: mode 1 IPv4, 2 IPv6.",
                   In{"mode"}),
            method(PM_FUNCTION(if_sta_statics), "Samples the stations: mode 1 IPv4, 2 IPv6.",
                   In{"mode"}),
            method(PM_FUNCTION(si_sample_list_add), "Adds a sample to the ring of a key.",
                   RecordIn{"sample"}, TextIn{"key"}, In{"mode"}),
            method(PM_FUNCTION(si_net_sample_list_statics), "Maxima and averages of a ring.",
                   RecordIn{"key"}, RecordOut{}, In{"mode"}),
            customMethod(
                "intervals", "g_ifa_ReportInterval", "The intervals that the samplers work with.",
                {result("g_ifa_ReportInterval", "int32"), result("g_ifa_SampleInterval", "int32"),
                 result("g_if6_ReportInterval", "int32"), result("g_if6_SampleInterval", "int32")},
                intervals),
        },
}};

}  // namespace
}  // namespace catalogue
