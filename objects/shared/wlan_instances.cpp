#include "objects/shared/wlan_instances.hpp"

#include "platform/codes.hpp"

namespace pm::wlan {

namespace {

constexpr int32_t radioNumber(uint32_t band) {
  return band == kBand5G ? 2 : 1;
}

}  // namespace

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
