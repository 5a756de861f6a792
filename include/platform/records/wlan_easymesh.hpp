#pragma once

#include "platform/record.hpp"
#include "platform/wlan.h"

/// EasyMesh settings.
struct WlanEasyMeshRecord : platform::Record<224> {
  static constexpr platform::Word roamingEnable{"roamingEnable", 28};
  static constexpr platform::Word meshRole{"meshRole", 60};
  static constexpr auto fields = layout(roamingEnable, meshRole);
};
