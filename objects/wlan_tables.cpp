#include "objects/wlan_tables.hpp"

#include <iterator>

#include "frame/text.hpp"

namespace pm::wlan {

namespace {

// Arrays of texts, not of pointers: nothing here has to be relocated when the library is loaded.
constexpr char kBands[][5] = {"2.4G", "5G"};

// Indexed by the platform's code; its gaps stay gaps.
constexpr char kStandards[][12] = {"",        "802.11a",  "802.11b",   "802.11bg", "802.11n",
                                   "802.11g", "802.11gn", "802.11bgn", "",         "802.11bgnax",
                                   "",        "",         "",          "802.11ac", "802.11ax"};

// The order decides which mode a shortened text names, and which text a code reads back as.
constexpr SecurityMode kSecurityModes[] = {
    {kSecurityNone, 0, "None"},          {kSecurityWep, 1, "WEP-64"},
    {kSecurityWep, 2, "WEP-128"},        {kSecurityWpa, 0, "WPA-Personal"},
    {kSecurityWpa2, 0, "WPA2-Personal"}, {kSecurityWpaWpa2, 0, "MIXED-WPAPSK2"},
    {kSecurityWpa3, 0, "WPA3-SAE"},      {kSecurityWpa2Wpa3, 0, "MIXED-WPA2WPA3"},
};

// The daemon's numbers, indexed by the platform's.
constexpr uint8_t kCiphers[3] = {2, 1, 3};
constexpr uint8_t kBandwidths[3] = {1, 2, 0};

constexpr int32_t radioNumber(uint32_t band) {
  return band == kBand5G ? 2 : 1;
}

std::optional<uint32_t> indexOf(const uint8_t (&numbers)[3], uint32_t wanted) {
  for (uint32_t i = 0; i < 3; ++i) {
    if (numbers[i] == wanted) return i;
  }
  return std::nullopt;
}

}  // namespace

const char *bandText(uint32_t band) {
  return band < std::size(kBands) ? kBands[band] : nullptr;
}

std::optional<uint32_t> bandNamed(const char *radio) {
  for (uint32_t band = 0; band < std::size(kBands); ++band) {
    if (abbreviates(radio, kBands[band])) return band;
  }
  return std::nullopt;
}

const char *standardText(uint32_t standardCode) {
  if (standardCode >= std::size(kStandards)) return nullptr;
  return kStandards[standardCode][0] != '\0' ? kStandards[standardCode] : nullptr;
}

const char *securityText(uint32_t securityMode) {
  for (const SecurityMode &mode : kSecurityModes) {
    if (mode.code == securityMode) return mode.text;
  }
  return nullptr;
}

const SecurityMode *securityNamed(const char *text) {
  for (const SecurityMode &mode : kSecurityModes) {
    if (abbreviates(text, mode.text)) return &mode;
  }
  return nullptr;
}

std::optional<uint32_t> cipherForDaemon(uint32_t cipherCode) {
  if (cipherCode >= std::size(kCiphers)) return std::nullopt;
  return kCiphers[cipherCode];
}

uint32_t cipherForPlatform(int32_t encrypt) {
  return indexOf(kCiphers, static_cast<uint32_t>(encrypt)).value_or(0);
}

uint32_t bandwidthForDaemon(uint32_t bandwidthCode) {
  return bandwidthCode < std::size(kBandwidths) ? kBandwidths[bandwidthCode] : bandwidthCode;
}

uint32_t bandwidthForPlatform(uint32_t bandwidth) {
  return indexOf(kBandwidths, bandwidth).value_or(bandwidth);
}

InstancePath ssidInstance(int32_t number) {
  return InstancePath::numbered("IGD.LD1.WLAN", number);
}

InstancePath radioInstance(uint32_t band) {
  return band == kBand5G ? kFirst5GSsid : kFirst24GSsid;
}

InstancePath txPowerInstance(uint32_t band) {
  return InstancePath::numbered("IGD.TxPower", radioNumber(band));
}

InstancePath scanInstance(uint32_t band) {
  return InstancePath::numbered("IGD.LD1.WLANBase", radioNumber(band));
}

InstancePath wpsInstance(uint32_t band) {
  InstancePath path = radioInstance(band);
  path.append(".WPS");
  return path;
}

InstancePath keyInstance(const char *ssid, const char *kind, uint32_t number, uint32_t limit) {
  InstancePath path(ssid);
  path.append(kind);
  path.append(static_cast<int32_t>(number));
  path.text[limit] = '\0';
  return path;
}

}  // namespace pm::wlan
