// The rates to which devices are limited, each an instance of a view.
#include "gateway/gateway.hpp"
#include "gateway/proxy.hpp"
#include "gateway/requests.hpp"
#include "platform/config_database.h"
#include "platform/limits.hpp"
#include "platform/proxy.h"

namespace gateway {

namespace {

/// The rates of one device; a device that is not limited yet is put on the list.
ProxyReply setBandwidth(Gateway &gateway, std::span<const uint8_t> request) {
  const Row message = exactly<BandwidthLimitRequest>(request);
  Bytes given = message.bytes(BandwidthLimitRequest::limit);
  const Row limit = fieldsOf<BandwidthLimitRecord>(given.data());
  requireMarks(limit, {BandwidthLimitRecord::mac, BandwidthLimitRecord::txRate,
                       BandwidthLimitRecord::rxRate});
  Store &store = gateway.store();
  std::string identity = message.text(BandwidthLimitRequest::identity);
  if (identity.empty()) {
    const int32_t status = store.add(layoutOf<DeviceLimitView>(), "IGD", &identity);
    if (status != kOk) return {status};
  }
  if (!store.has<DeviceLimitView>(identity)) return {kUnknownInstance};
  const Row row = store.row<DeviceLimitView>(identity);
  row.setMac(DeviceLimitView::mac, limit.mac(BandwidthLimitRecord::mac));
  row.setWord(DeviceLimitView::txRate, limit.word(BandwidthLimitRecord::txRate));
  row.setWord(DeviceLimitView::rxRate, limit.word(BandwidthLimitRecord::rxRate));
  return {};
}

ProxyReply deleteBandwidth(Gateway &gateway, std::span<const uint8_t> request) {
  requireSize(request, PLATFORM_INSTANCE_SIZE);
  return {gateway.store().remove(layoutOf<DeviceLimitView>(), textOf(request))};
}

const ProxyEvent kSetBandwidth{CTSGW_EVENT_SET_BW, setBandwidth};
const ProxyEvent kDeleteBandwidth{CTSGW_EVENT_DEL_BW, deleteBandwidth};

}  // namespace

}  // namespace gateway
