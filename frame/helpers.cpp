// The helpers that the library exports to its daemon.
#include <sys/sysinfo.h>

#include <cctype>
#include <cstdio>
#include <cstdlib>

#include "frame/attached_device.hpp"
#include "frame/file.hpp"
#include "frame/instance.hpp"
#include "frame/json_items.hpp"
#include "frame/record_buffer.hpp"
#include "platform/wlan.hpp"
#include "pmapi/helpers.h"

using namespace platform;

namespace {

constexpr uint32_t kPairedMacSize = 18;
constexpr uint32_t kPlainMacSize = 13;

constexpr char kJsonItems[][20] = {"if5_token",     "ifa_ap_config",      "ifa_service_config",
                                   "if6_ap_config", "if6_service_config", "IF5_ap_config"};

int32_t printMac(const char *digits, const char *separator, uint32_t needed, const uint8_t mac[6],
                 char *text, uint32_t length) {
  if (mac == nullptr || text == nullptr || length < needed) return 0;
  char *end = text;
  for (uint32_t i = 0; i < 6; ++i) {
    if (i > 0 && *separator != '\0') *end++ = *separator;
    *end++ = digits[mac[i] >> 4];
    *end++ = digits[mac[i] & 15];
  }
  *end = '\0';
  return 1;
}

constexpr char kLowerDigits[] = "0123456789abcdef";
constexpr char kUpperDigits[] = "0123456789ABCDEF";

}  // namespace

int32_t MACToStr2(const uint8_t mac[6], char *text, uint32_t length) {
  return printMac(kLowerDigits, ":", kPairedMacSize, mac, text, length);
}

int32_t MacToStr(const uint8_t mac[6], char *text, uint32_t length) {
  return printMac(kUpperDigits, "", kPlainMacSize, mac, text, length);
}

int32_t MacToString(const uint8_t mac[6], char *text, uint32_t length) {
  return printMac(kLowerDigits, "", kPlainMacSize, mac, text, length);
}

uint32_t HexCharToVal(char digit) {
  if (digit >= '0' && digit <= '9') return static_cast<uint32_t>(digit - '0');
  if (digit >= 'a' && digit <= 'f') return static_cast<uint32_t>(digit - 'a' + 10);
  if (digit >= 'A' && digit <= 'F') return static_cast<uint32_t>(digit - 'A' + 10);
  return UINT32_MAX;
}

int32_t StrToInt(const char *text, int32_t *out) {
  *out = atoi(text);
  return 1;
}

int32_t ToUpperCase(char *text) {
  int32_t length = 0;
  for (; text[length] != '\0'; ++length) {
    text[length] = static_cast<char>(toupper(static_cast<unsigned char>(text[length])));
  }
  return length;
}

void del_char(char *text, char unwanted) {
  char *kept = text;
  for (; *text != '\0'; ++text) {
    if (*text != unwanted) *kept++ = *text;
  }
  *kept = '\0';
}

const char *pm::findJsonItem(const char *item) {
  for (const char(&jsonItem)[20] : kJsonItems) {
    if (strstr(item, jsonItem) != nullptr) return jsonItem;
  }
  return nullptr;
}

int32_t IsJsonObjOrArray(const char *item) {
  return pm::findJsonItem(item) != nullptr ? 1 : 0;
}

int32_t file_size(const char *path) {
  FILE *file = pm::openForReading(path);
  if (file == nullptr) return PM_STATUS_FAILED;
  fseek(file, 0, SEEK_END);
  const auto size = static_cast<int32_t>(ftell(file));
  fclose(file);
  return size;
}

int32_t GetUpTime(void) {
  struct sysinfo system = {};
  sysinfo(&system);
  return static_cast<int32_t>(system.uptime);
}

int32_t wlan_get_ad_db_q(const char *instance, void *view) {
  pm::prepareView(static_cast<uint8_t *>(view), AssociatedDeviceView::kSize);
  const pm::InstancePath path(instance);
  return vcorDbGetView(AssociatedDeviceView::kId, path.text, view);
}

int32_t wlan_get_ad(const char *instance, void * /*view*/) {
  const pm::InstancePath path(instance);
  return vcorDbGetView(AssociatedDeviceView::kId, path.text, nullptr);
}

int32_t check_dev_valid(const void *deviceRecord) {
  const auto *device = static_cast<const uint8_t *>(deviceRecord);
  if (pm::load(device, DeviceRecord::accessType) != 1) return 1;

  const pm::InterfaceName interface(device);
  const bool onWire = strstr(interface.text, "eth") != nullptr;
  const bool onAir = strstr(interface.text, "wlan") != nullptr;
  if (!onWire && !onAir) return 1;

  if (pm::load(device, DeviceRecord::linkFlag) == 0) return 1;
  const auto linkState = pm::loadSigned(device, DeviceRecord::linkState);
  return linkState == 0 || linkState == -1 ? 1 : 0;
}

int32_t net_json_check_dev_valid(const void *deviceRecord) {
  return check_dev_valid(deviceRecord);
}
