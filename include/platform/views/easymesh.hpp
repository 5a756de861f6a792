#pragma once

#include "platform/record.hpp"
#include "platform/view_ids.h"

namespace platform {

/// EasyMesh as configured; one instance, "IGD".
struct EasyMeshView : View<DBVIEW_EASYMESH, 264> {
  static constexpr Word roamingEnable{"roamingEnable", 36};
  static constexpr Word meshRole{"meshRole", 68};
  static constexpr auto fields = layout(roamingEnable, meshRole);
};

}  // namespace platform
