#pragma once

#include "platform/record.hpp"

namespace platform {

/// A PPP connection as pm_e8_wanc_set_comm_ppp_ext rewrites it. Settings without a known meaning
/// bear their offset.
struct WanPppExtRecord : Record<6328> {
  static constexpr Word setting28{"setting28", 28};
  static constexpr Text<64> serviceList{"serviceList", 732};
  static constexpr Word setting860{"setting860", 860};
  static constexpr Word setting1020{"setting1020", 1020};
  static constexpr Word setting1212{"setting1212", 1212};
  static constexpr Text<128> userName{"userName", 1536};
  static constexpr Text<128> password{"password", 1696};
  static constexpr Word setting1920{"setting1920", 1920};
  static constexpr Word setting1984{"setting1984", 1984};
  static constexpr Word setting2016{"setting2016", 2016};
  static constexpr Word setting2144{"setting2144", 2144};
  static constexpr Word setting3784{"setting3784", 3784};
  static constexpr Word setting3848{"setting3848", 3848};
  static constexpr Word setting3880{"setting3880", 3880};
  static constexpr Word setting4140{"setting4140", 4140};
  static constexpr Word setting4304{"setting4304", 4304};
  static constexpr Word setting4412{"setting4412", 4412};
  static constexpr Word setting4444{"setting4444", 4444};
  static constexpr Word setting5476{"setting5476", 5476};
  static constexpr Word ipv6Enable{"ipv6Enable", 5508};
  static constexpr Word setting5540{"setting5540", 5540};
  static constexpr Word setting5572{"setting5572", 5572};
  static constexpr Text<16> text5924{"text5924", 5924};
  static constexpr Word setting5972{"setting5972", 5972};
  static constexpr auto fields =
      layout(setting28, serviceList, setting860, setting1020, setting1212, userName, password,
             setting1920, setting1984, setting2016, setting2144, setting3784, setting3848,
             setting3880, setting4140, setting4304, setting4412, setting4444, setting5476,
             ipv6Enable, setting5540, setting5572, text5924, setting5972);
};

}  // namespace platform
