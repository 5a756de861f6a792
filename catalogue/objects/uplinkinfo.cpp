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
  call.putNumber("g_ifa_ReportInterval", g_ifa_ReportInterval);
  call.putNumber("g_ifa_SampleInterval", g_ifa_SampleInterval);
  call.putNumber("g_if6_ReportInterval", g_if6_ReportInterval);
  call.putNumber("g_if6_SampleInterval", g_if6_SampleInterval);
  return 0;
}

template <class View, class Read>
Method viewOf(const char *function, Read *read, const char *summary) {
  return method(function, read, TextIn{"instance"}, PlatformOut<View>{"view"})
      .saying(summary)
      .example(R"({"instance": "IGD.WD1.WCD1.WCPPP1"})");
}

const Entry kEntry{{
    .name = "uplinkinfo",
    .source = "object_nexumd_uplinkinfo_pmapi.c",
    .summary = "How the gateway reaches the Internet, and samples of what it moves",
    .methods =
        {
            method("get", PM_FUNCTION(pm_ubus_get_uplinkinfo), RecordOut{}),
            method(PM_FUNCTION(ubus_get_manger_mac), BytesOut{"mac", 6}),
            method(PM_FUNCTION(ubus_getPPPOEUserPwd), TextOut{"user", kAccountText},
                   TextOut{"password", kAccountText, true}),
            method(PM_FUNCTION(ubus_get_rate_rt), TextOut{"rxText", kRateText},
                   TextOut{"txText", kRateText}),
            method(PM_FUNCTION(ubus_getGatewayMac), TextOut{"mac"}),
            viewOf<platform::RouteInterfaceView>(PM_FUNCTION(ubus_get_route_if_into),
                                                 "IPv6 route of a WAN connection."),
            viewOf<platform::DssInfoView>(PM_FUNCTION(ubus_get_dssinto),
                                          "IPv6 addressing of a WAN connection."),
            viewOf<platform::DssConfigView>(PM_FUNCTION(ubus_get_dsscfg),
                                            "IPv6 prefix mode of a WAN connection."),
            viewOf<platform::PrefixConfigView>(PM_FUNCTION(ubus_get_prefixcfg),
                                               "IPv6 prefix of a WAN connection."),
            method(PM_FUNCTION(if_uplink_statics), In{"mode"})
                .saying("Samples the uplink: mode 1 IPv4, 2 IPv6.")
                .example(R"({"mode": 1})"),
            method(PM_FUNCTION(if_sta_statics), In{"mode"})
                .saying("Samples the stations: mode 1 IPv4, 2 IPv6.")
                .example(R"({"mode": 1})"),
            method(PM_FUNCTION(si_sample_list_add), RecordIn{"sample"}, TextIn{"key"}, In{"mode"})
                .example(R"({"sample": {"tx": 4096, "rx": 65536}, "key": "nbif0", "mode": 3})"),
            method(PM_FUNCTION(si_net_sample_list_statics), RecordIn{"key"}, RecordOut{},
                   In{"mode"})
                .example(R"({"key": {"name": "uplink"}, "mode": 3})"),
            customMethod(
                "intervals", "g_ifa_ReportInterval",
                {result("g_ifa_ReportInterval", "int32"), result("g_ifa_SampleInterval", "int32"),
                 result("g_if6_ReportInterval", "int32"), result("g_if6_SampleInterval", "int32")},
                intervals)
                .saying("The intervals that the samplers work with."),
        },
}};

}  // namespace
}  // namespace catalogue
