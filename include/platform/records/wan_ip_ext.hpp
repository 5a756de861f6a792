#pragma once

#include "platform/record.hpp"

namespace platform {

/// An IP connection as pm_e8_wanc_set_comm_ip_ext rewrites it. Settings without a known meaning
/// bear their offset.
struct WanIpExtRecord : Record<4868> {
  static constexpr Word setting28{"setting28", 28};
  static constexpr Text<64> serviceList{"serviceList", 732};
  static constexpr Word setting860{"setting860", 860};
  static constexpr Word setting1020{"setting1020", 1020};
  static constexpr Word setting1212{"setting1212", 1212};
  static constexpr Word staticAddressing1{"staticAddressing1", 1244};
  static constexpr Word staticAddressing2{"staticAddressing2", 1276};
  static constexpr Word staticAddressing3{"staticAddressing3", 1308};
  static constexpr Word staticAddressing4{"staticAddressing4", 1340};
  static constexpr Word staticAddressing5{"staticAddressing5", 1372};
  static constexpr Word staticAddressing6{"staticAddressing6", 1404};
  static constexpr Word setting1760{"setting1760", 1760};
  static constexpr Word setting1792{"setting1792", 1792};
  static constexpr Word setting2048{"setting2048", 2048};
  static constexpr Word setting2464{"setting2464", 2464};
  static constexpr Word setting2496{"setting2496", 2496};
  static constexpr Word setting2756{"setting2756", 2756};
  static constexpr Word setting2920{"setting2920", 2920};
  static constexpr Word setting3028{"setting3028", 3028};
  static constexpr Word setting3060{"setting3060", 3060};
  static constexpr Word setting4016{"setting4016", 4016};
  static constexpr Word ipv6Enable{"ipv6Enable", 4048};
  static constexpr Word setting4080{"setting4080", 4080};
  static constexpr Word setting4112{"setting4112", 4112};
  static constexpr Text<16> text4464{"text4464", 4464};
  static constexpr Word setting4512{"setting4512", 4512};
  static constexpr auto fields =
      layout(setting28, serviceList, setting860, setting1020, setting1212, staticAddressing1,
             staticAddressing2, staticAddressing3, staticAddressing4, staticAddressing5,
             staticAddressing6, setting1760, setting1792, setting2048, setting2464, setting2496,
             setting2756, setting2920, setting3028, setting3060, setting4016, ipv6Enable,
             setting4080, setting4112, text4464, setting4512);
};

}  // namespace platform
