// Where the platform keeps what belongs to an SSID or a radio.
#pragma once

#include <cstdint>

#include "frame/instance.hpp"

namespace pm::wlan {

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
