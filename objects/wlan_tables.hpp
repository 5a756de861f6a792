// Wi-Fi's codes and names, between the platform and the daemon: every table stands once and is read
// in both directions. Where a code or text has no counterpart, nullptr or nothing is the answer.
#pragma once

#include <cstdint>
#include <optional>

#include "frame/instance.hpp"

namespace pm::wlan {

inline constexpr uint32_t kBand24G = 0;
inline constexpr uint32_t kBand5G = 1;

inline constexpr uint32_t kSecurityNone = 0;
inline constexpr uint32_t kSecurityWep = 1;
inline constexpr uint32_t kSecurityWpa = 2;
inline constexpr uint32_t kSecurityWpa2 = 3;
inline constexpr uint32_t kSecurityWpaWpa2 = 6;
inline constexpr uint32_t kSecurityWpa3 = 10;
inline constexpr uint32_t kSecurityWpa2Wpa3 = 11;

/// A security mode and the name that the daemon has for it.
struct SecurityMode {
  uint8_t code;
  uint8_t wepKeyLength;  ///< 0 but for WEP
  char text[16];
};

const char *bandText(uint32_t band);
/// Any beginning of the text names its band, so nothing at all names 2.4 GHz.
std::optional<uint32_t> bandNamed(const char *radio);

const char *standardText(uint32_t standardCode);

/// The names do not tell the two lengths of WEP keys apart.
const char *securityText(uint32_t securityMode);
/// Any beginning of the text names the first mode that it fits.
const SecurityMode *securityNamed(const char *text);

std::optional<uint32_t> cipherForDaemon(uint32_t cipherCode);
uint32_t cipherForPlatform(int32_t encrypt);

/// Numbers beyond the known widths are the same on both sides.
uint32_t bandwidthForDaemon(uint32_t bandwidthCode);
uint32_t bandwidthForPlatform(uint32_t bandwidth);

/// `number` counts from 1. A radio is addressed through its first SSID.
InstancePath ssidInstance(int32_t number);
InstancePath radioInstance(uint32_t band);
InstancePath txPowerInstance(uint32_t band);
InstancePath scanInstance(uint32_t band);
InstancePath wpsInstance(uint32_t band);

/// What hangs under an SSID, such as ".WEP" and 2; at most `limit` characters of it.
InstancePath keyInstance(const char *ssid, const char *kind, uint32_t number,
                         uint32_t limit = PLATFORM_INSTANCE_SIZE - 1);

}  // namespace pm::wlan
