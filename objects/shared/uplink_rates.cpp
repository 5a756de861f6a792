#include "objects/shared/uplink_rates.hpp"

#include "frame/instance.hpp"
#include "frame/rate_text.hpp"
#include "frame/status.hpp"
#include "platform/wan.hpp"

namespace pm {

namespace {

constexpr uint32_t kConnections = 32;

}  // namespace

int32_t sumUplinkRates(const Trail &log, BandwidthQuery query, int32_t unreadable, char *rxText,
                       char *txText) {
  if (rxText == nullptr || txText == nullptr) {
    PM_LOG(log, kError, 0, "RxRate_rt OR TxRate_rt IS null");
    return PM_STATUS_NULL_TEXT;
  }
  InstanceTable<kConnections> connections;
  if (connections.listView(DBVIEW_WAN_CONN_DEV) != kOk) {
    return unreadable;
  }
  uint64_t tx = 0;
  uint64_t rx = 0;
  BandwidthBuffer counters;
  for (uint32_t i = 0; i < connections.count(); ++i) {
    ViewBuffer<WanConnectionView> connection;
    if (connection.read(connections.at(i)) != kOk) return unreadable;
    BandwidthRequestBuffer request;
    request.put(request.interfaceName, connection.text(connection.interfaceName));
    const BandwidthAnswer answer = query(log, request, counters);
    if (answer.stopped) return answer.status;
    const uint64_t connectionTx = counters.get(counters.tx);
    const uint64_t connectionRx = counters.get(counters.rx);
    PM_LOG(log, kInfo, 0, " BandWithInfotmp  tBandwidthTx :%llu tBandwidthRx: %llu", connectionTx,
           connectionRx);
    tx += connectionTx;
    rx += connectionRx;
  }
  PM_LOG(log, kInfo, 0, "  tBandwidthTx :%llu tBandwidthRx: %llu", tx, rx);
  printRate(rxText, kRateTextSize, static_cast<float>(rx));
  printRate(txText, kRateTextSize, static_cast<float>(tx));
  PM_LOG(log, kInfo, 0, " RxRate_rt  RxRate_rt  :%s TxRate_rt: %s", rxText, txText);
  return kOk;
}

}  // namespace pm
