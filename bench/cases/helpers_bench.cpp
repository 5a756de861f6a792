// The helpers beside the shortest that anyone would write for the same.
#include <fcntl.h>
#include <sys/sysinfo.h>
#include <unistd.h>

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "bench/bench.hpp"
#include "platform/attached_devices.hpp"
#include "pmapi/helpers.h"
#include "pmapi/wifiinfo.h"

using namespace platform;


namespace {

constexpr char kPath[] = "sized";
constexpr char kLowerDigits[] = "0123456789abcdef";
constexpr char kUpperDigits[] = "0123456789ABCDEF";

uint8_t mac[6];
char text[32];
uint8_t device[DeviceRecord::kSize];
volatile char digit = 'b';
volatile int32_t index;
volatile uint32_t number;
volatile int32_t result;
struct sysinfo figures;

void writeInputs(uint32_t) {
  memcpy(mac, "\x02\xA1\xB2\xC3\xD4\xE5", sizeof mac);
  memset(device, 0, sizeof device);
  device[DeviceRecord::accessType.offset] = 1;
  device[DeviceRecord::linkFlag.offset] = 1;
  device[DeviceRecord::linkState.offset] = 1;
  strcpy(reinterpret_cast<char *>(device) + DeviceRecord::interfaceName.offset, "wlan0");
  FILE *file = fopen(kPath, "w");
  if (file == nullptr) return;
  fputs("of some size\n", file);
  fclose(file);
}

void writeMacText(uint32_t) {
  strcpy(text, "02:a1:b2:c3:d4:e5");
}

template <const char *Digits, bool Pairs>
void printMac(uint32_t) {
  char *end = text;
  for (const uint8_t octet : mac) {
    *end++ = Digits[octet >> 4];
    *end++ = Digits[octet & 15];
    if (Pairs) *end++ = ':';
  }
  end[Pairs ? -1 : 0] = '\0';
}

void upperCase(uint32_t) {
  for (char *letter = text; *letter != '\0'; ++letter) {
    *letter = static_cast<char>(toupper(static_cast<unsigned char>(*letter)));
  }
}

void dropColons(uint32_t) {
  char *to = text;
  for (const char *from = text; *from != '\0'; ++from) {
    if (*from != ':') *to++ = *from;
  }
  *to = '\0';
}

void lookForJsonItems(uint32_t) {
  for (const char *item : {"if5_token", "ifa_ap_config", "ifa_service_config", "if6_ap_config",
                           "if6_service_config", "IF5_ap_config"}) {
    if (strstr(text, item) != nullptr) result = 1;
  }
}

void hexValue(uint32_t) {
  const char character = digit;
  number = static_cast<uint32_t>(character <= '9' ? character - '0' : (character | 32) - 'a' + 10);
}

void sizeOfFile(uint32_t) {
  const int file = open(kPath, O_RDONLY);
  result = static_cast<int32_t>(lseek(file, 0, SEEK_END));
  close(file);
}

/// The name fills its field or ends in it.
void lookForInterface(uint32_t) {
  char name[DeviceRecord::interfaceName.width + 1] = {};
  memcpy(name, device + DeviceRecord::interfaceName.offset, sizeof name - 1);
  result = strstr(name, "eth") != nullptr || strstr(name, "wlan") != nullptr;
}

const bench::Singles helpers{
    {.name = "MACToStr2",
     .platform = writeInputs,
     .handler = [](uint32_t) { MACToStr2(mac, text, sizeof text); },
     .floor = printMac<kLowerDigits, true>},
    {.name = "MacToStr",
     .platform = writeInputs,
     .handler = [](uint32_t) { MacToStr(mac, text, sizeof text); },
     .floor = printMac<kUpperDigits, false>},
    {.name = "MacToString",
     .platform = writeInputs,
     .handler = [](uint32_t) { MacToString(mac, text, sizeof text); },
     .floor = printMac<kLowerDigits, false>},
    {.name = "HexCharToVal",
     .handler = [](uint32_t) { number = HexCharToVal(digit); },
     .floor = hexValue},
    {.name = "StrToInt",
     .before = [](uint32_t) { strcpy(text, "65536"); },
     .handler = [](uint32_t) { StrToInt(text, bench::output); },
     .floor = [](uint32_t) { result = atoi(text); }},
    {.name = "ToUpperCase",
     .before = writeMacText,
     .handler = [](uint32_t) { ToUpperCase(text); },
     .floor = upperCase},
    {.name = "del_char",
     .before = writeMacText,
     .handler = [](uint32_t) { del_char(text, ':'); },
     .floor = dropColons},
    {.name = "IsJsonObjOrArray",
     .before = [](uint32_t) { strcpy(text, "if3_channel"); },
     .handler = [](uint32_t) { result = IsJsonObjOrArray(text); },
     .floor = lookForJsonItems},
    {.name = "file_size",
     .platform = writeInputs,
     .handler = [](uint32_t) { result = file_size(kPath); },
     .floor = sizeOfFile},
    {.name = "GetUpTime",
     .handler = [](uint32_t) { result = GetUpTime(); },
     .floor = [](uint32_t) { sysinfo(&figures); }},
    {.name = "check_dev_valid",
     .platform = writeInputs,
     .handler = [](uint32_t) { result = check_dev_valid(device); },
     .floor = lookForInterface},
    {.name = "net_json_check_dev_valid",
     .platform = writeInputs,
     .handler = [](uint32_t) { result = net_json_check_dev_valid(device); },
     .floor = lookForInterface},
    {.name = "ubus_get_config_Index",
     .handler = [](uint32_t) { ubus_get_config_Index(index, bench::output); },
     .floor = [](uint32_t) { number = (static_cast<uint32_t>(index) + 1) % 10; }}};

}  // namespace
