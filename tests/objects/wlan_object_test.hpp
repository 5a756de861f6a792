// Tests of the Wi-Fi objects run on a dual-band access point with eight SSIDs.
#pragma once

#include <string>

#include "boundary/status.hpp"
#include "platform/wlan.hpp"
#include "tests/support/gateway_test.hpp"

using namespace platform;

class WlanObjectTest : public GatewayTest {
 protected:
  WlanObjectTest() { loadExample("dual_band.json"); }

  static std::string pathOf(int number) { return "IGD.LD1.WLAN" + std::to_string(number); }
  gateway::Row ssid(int number) { return store().row<WlanConfigRecord>(pathOf(number)); }

  uint32_t setting(int number, const platform::Field &field) { return ssid(number).word(field); }

  std::string passphrase(int number) {
    return store().row<WlanPskRecord>(pathOf(number) + ".PSK1").text(WlanPskRecord::passphrase);
  }
  std::string wepKey(int number, int key) {
    const std::string path = pathOf(number) + ".WEP" + std::to_string(key);
    return store().row<WlanWepRecord>(path).text(WlanWepRecord::key);
  }
};
