#pragma once

#include "platform/record.hpp"

namespace platform {

/// Bridge or route mode with the connection that it needs, as pm_wanc_change_brg_route_mode takes
/// it. The slots begin at 52 and repeat those of WanIpExtRecord from there.
struct WorkingModeRecord : Record<6380> {
  static constexpr PlainWord workingMode{"workingMode", 0};
  static constexpr PlainWord internetType{"internetType", 4};
  static constexpr Word setting80{"setting80", 80};
  static constexpr Text<64> serviceList{"serviceList", 784};
  static constexpr Word setting912{"setting912", 912};
  static constexpr Word setting1072{"setting1072", 1072};
  static constexpr Word setting1264{"setting1264", 1264};
  static constexpr Pointer addressingType{"addressingType", 1812};  ///< to a text
  static constexpr Word mtu{"mtu", 1844};
  static constexpr Word setting2100{"setting2100", 2100};
  static constexpr Word setting4068{"setting4068", 4068};
  static constexpr Word ipv6Enable{"ipv6Enable", 4100};
  static constexpr Word setting4132{"setting4132", 4132};
  static constexpr Word setting4164{"setting4164", 4164};
  static constexpr Text<16> text4516{"text4516", 4516};
  static constexpr Word setting4564{"setting4564", 4564};
  static constexpr auto fields =
      layout(workingMode, internetType, setting80, serviceList, setting912, setting1072,
             setting1264, addressingType, mtu, setting2100, setting4068, ipv6Enable, setting4132,
             setting4164, text4516, setting4564);
};

}  // namespace platform
