#include <array>
#include <cstdio>

#include "gateway/uplink_traffic.hpp"
#include "tests/objects/uplink_fixture.hpp"

namespace gateway {
namespace {

class RateTextTest : public testing::SampledGatewayTest {
 protected:
  RateTextTest() { loadExample("home_router.json"); }
};

TEST_F(RateTextTest, IsWhatPrintfWouldPrint) {
  // 64 and 192 are halves of a thousandth; from 2^41 on the text is longer than a word's.
  for (const uint64_t counter : std::to_array<uint64_t>(
           {0, 1, 64, 192, 511, 512, 1023, 1024, 1025, 99999, (1u << 24) + 1, UINT32_MAX,
            (1ull << 41) - (1ull << 17), 1ull << 41, 1ull << 54, UINT64_MAX})) {
    for (InterfaceTraffic &interface : uplinkTraffic().interfaces) interface.rx = {};
    uplinkTraffic().interfaces[0].rx = {counter, 0, 0};
    char expected[64];
    snprintf(expected, sizeof expected, "%.3f",
             static_cast<double>(static_cast<float>(counter) * 0.0009765625F));
    char rx[64];
    char tx[64];
    EXPECT_EQ(ubus_get_rate_rt(rx, tx), 0);
    EXPECT_STREQ(rx, expected) << counter;
  }
}

}  // namespace
}  // namespace gateway
