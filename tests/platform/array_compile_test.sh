#!/usr/bin/env bash
# usage: array_compile_test.sh C_COMPILER [FLAG...]
# gcc must warn of an array that is one element short of what a prototype says, and of no other.
set -u

compiler=("$@")
failures=0

# warnings CALL TYPE SIZE
warnings() {
  printf '#include "pmapi/pmapi.h"
void call(void);
void call(void) {
  static char wide[128];
  static %s array[%s];
  static int32_t count;
  (void)wide, (void)count;
  (void)%s;
}\n' "$2" "$3" "$1" | "${compiler[@]}" -Wall -Wextra -x c -c -o /dev/null - 2>&1
}

# expect CALL TYPE SIZE
expect() {
  local output
  if ! output=$(warnings "$1" "$2" "$3") || [ -n "$output" ]; then
    echo "FAIL: $1 with $3 elements should compile without a word:"
    echo "$output"
    failures=1
  fi
  if ! warnings "$1" "$2" $(($3 - 1)) | grep -q 'Wstringop-overflow'; then
    echo "FAIL: $1 with one element less than $3 should bring a warning"
    failures=1
  fi
}

expect 'ubus_getDeviceType(array)'                           char          32
expect 'ubus_getDevKey(array)'                               char          128
expect 'ubus_getDeviceMac(array)'                            char          13
expect 'ubus_get_router_ip_host_ipv46(0, array, wide, 0)'    uint8_t       16
expect 'ubus_get_rate_rt(array, wide)'                       char          64
expect 'ubus_get_rate_rt(wide, array)'                       char          64
expect 'ubus_getPPPOEUserPwd(wide, array)'                   char          32
expect 'ubus_getHostName(0, array)'                          char          32
expect 'ubus_get_config_Ssid(0, array)'                      char          32
expect 'ubus_getSsid("IGD.LD1.WLAN1", array)'                char          32
expect 'is_mac_exist((const uint8_t *)wide, array)'          char          32
expect 'pm_ubus_nexumd_wifi_timer_list(array, &count)'       UbusWifiTimer 135

exit $failures
