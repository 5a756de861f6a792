#include "frame/codes.hpp"
#include "frame/log.hpp"
#include "frame/parse.hpp"
#include "frame/record_buffer.hpp"
#include "frame/status.hpp"
#include "objects/shared/wlan_instances.hpp"
#include "platform/wlan.hpp"
#include "pmapi/set_radio.h"

using namespace pm;

static constexpr char kSourceTag[] = "objest_nexumd_set_radio_pmapi.c";

namespace {

constexpr uint32_t kSingleCard = 1;
constexpr int32_t kFullPower = 100;
constexpr int32_t kPowerPerLevel = 20;

using WlanConfig = RecordBuffer<WlanConfigRecord>;
using WlanTxPower = RecordBuffer<WlanTxPowerRecord>;

/// Level 1 is the uppermost fifth of the power, level 5 the lowest; 0 is no level.
uint32_t powerLevel(int32_t percent) {
  if (percent < 1 || percent > kFullPower) return 0;
  return static_cast<uint32_t>((kFullPower - percent) / kPowerPerLevel + 1);
}

/// 0 when the platform does not tell.
uint32_t countCards(const Trail &log) {
  RecordBuffer<WlanCardRecord> card;
  PM_LOG(log, kInfo, 0, "before pm_wlan_get_card_max----------------------------------");
  pm_wlan_get_card_max(&card);
  PM_LOG(log, kInfo, 0, "after pm_wlan_get_card_max----------------------------------");
  return card.get(card.cardCount);
}

int32_t fillSettings(const Trail &log, const RadioRecord &request, WlanTxPower &power,
                     WlanConfig &config) {
  power.set(power.txPower, request.transmitPower);
  const int32_t percent = numberIn(request.transmitPower);
  const uint32_t level = powerLevel(percent);
  if (level == 0) {
    PM_LOG(log, kError, 0, " tmp error tmp = %d \r\n", percent);
    return kFailure;
  }
  PM_LOG(log, kInfo, 0, "net_json_parse_data transmitpower = %d \r\n", static_cast<int32_t>(level));
  config.set(config.txPowerLevel, level);
  config.set(config.channel, static_cast<uint32_t>(numberIn(request.channel)));
  config.set(config.channelMode, 0);
  const auto bandwidth = static_cast<uint32_t>(request.bandwidth);
  const Code *code = codeNumbered(kBandwidths, bandwidth);
  config.set(config.bandwidthCode, code != nullptr ? code->value : bandwidth);
  return kOk;
}

/// The band of that name, if the gateway's cards have a radio for it.
int32_t chooseBand(const Trail &log, const char *radio, uint32_t cards, uint32_t *band) {
  const Code *named = codeNamed(kBands, radio);
  if (named == nullptr) {
    PM_LOG(log, kError, 0, "radio->radio error %s \r\n", radio);
    return kFailure;
  }
  *band = named->value;
  if (*band == kBand24G) {
    PM_LOG(log, kInfo, 0, "enter 2.4G-----------------------------------");
    return kOk;
  }
  PM_LOG(log, kInfo, 0, "enter 5G-------------------------------------");
  if (cards == kSingleCard) {
    PM_LOG(log, kError, PM_STATUS_NO_5G_RADIO, "error:there is no 5G info, iRet = %d\n",
           PM_STATUS_NO_5G_RADIO);
    return PM_STATUS_NO_5G_RADIO;
  }
  return kOk;
}

int32_t writeSettings(const Trail &log, uint32_t band, WlanTxPower &power, WlanConfig &config) {
  power.set(power.band, band);
  config.set(config.band, band);
  int32_t status = pm_wlan_set_txpower(wlan::txPowerInstance(band).text, &power);
  if (status != kOk) {
    PM_LOG(log, kError, status, "call pm_wlan_set_txpower faild,iRet=%d\n", status);
    return status;
  }
  status = pm_wlan_set_config(wlan::radioInstance(band).text, &config);
  if (appliedOrUnchanged(status)) return kOk;
  PM_LOG(log, kError, status, "pm_wlan_set_config error=%d\n", status);
  return status;
}

int32_t setRadio(const Trail &log, const RadioRecord &request) {
  WlanTxPower power;
  WlanConfig config;
  int32_t status = fillSettings(log, request, power, config);
  if (status != kOk) return status;
  const uint32_t cards = countCards(log);
  uint32_t band;
  status = chooseBand(log, request.radio, cards, &band);
  if (status != kOk) return status;
  return writeSettings(log, band, power, config);
}

}  // namespace

uint32_t pm_ubus_radio_set(const RadioRecord *record) {
  const Trail log = entered(kSourceTag);
  if (log.lacks(record)) return static_cast<uint32_t>(kNullRecord);
  const BoundedRequest<RadioRecord> bounded(*record);
  const RadioRecord &request = bounded.request;
  PM_LOG(log, kInfo, 0, "radio->radio:%s\n", request.radio);
  PM_LOG(log, kInfo, 0, "radio->transmitPower:%s\n", request.transmitPower);
  PM_LOG(log, kInfo, 0, "radio->channel:%s\n", request.channel);
  PM_LOG(log, kInfo, 0, "radio->bandwidth:%d\n", request.bandwidth);
  return static_cast<uint32_t>(setRadio(log, request));
}
