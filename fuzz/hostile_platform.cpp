// Every method of the catalogue on a platform that answers whatever it likes: any status, records
// full of anything, texts without an end, lists that count more or less than they hold and change
// between two calls, replies of any length.
//
// Input: any number of calls. Each is a byte for the method, a byte for the daemon's records, then
// what the platform answers, call by call; where the input ends, all is well and empty.
//
// The calls are those of the library's import slots, told apart by name alone: what a parameter's
// type is called does not matter here, only where it stands.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <nlohmann/json.hpp>
#include <utility>
#include <vector>

#include "catalogue/answer.hpp"
#include "catalogue/catalogue.hpp"
#include "gateway/gateway.hpp"
#include "gateway/host.hpp"
#include "gateway/library_calls.hpp"
#include "pmapi/limit.h"
#include "pmapi/meshtopology.h"
#include "pmapi/uplinkinfo.h"

namespace {

using catalogue::Method;
using catalogue::Object;
using records::Json;
using records::Member;
using records::Shape;

/// The input, from its front; zeros behind its end.
class Input {
 public:
  Input() = default;
  Input(const uint8_t *data, size_t size) : data_(data), left_(size) {}

  bool isEmpty() const { return left_ == 0; }

  uint8_t byte() {
    if (left_ == 0) return 0;
    --left_;
    return *data_++;
  }

  uint32_t word() {
    uint32_t value = 0;
    for (int i = 0; i < 4; ++i) value = value << 8 | byte();
    return value;
  }

  /// Fills a room in one of the ways in which a record goes wrong, or leaves it.
  void fill(void *room, size_t size) {
    if (room == nullptr || size == 0) return;
    auto *bytes = static_cast<uint8_t *>(room);
    switch (byte() % 4) {
      case 1:
        std::memset(bytes, byte(), size);
        break;
      case 2:
        for (size_t i = 0; i < size && !isEmpty(); ++i) bytes[i] = byte();
        break;
      case 3:
        for (int words = byte() % 16; words > 0; --words) place(bytes, size);
        break;
      default:
        break;
    }
  }

 private:
  /// One word somewhere, as a count or a flag would stand.
  void place(uint8_t *bytes, size_t size) {
    if (size < 4) return;
    const size_t high = byte();
    const size_t at = (high << 8 | byte()) % (size / 4) * 4;
    const uint8_t kind = byte();
    const uint32_t value = kind < 0xf0 ? kind : word();
    std::memcpy(bytes + at, &value, sizeof value);
  }

  const uint8_t *data_ = nullptr;
  size_t left_ = 0;
};

Input input;

enum class Kind : uint8_t {
  kStatus,        ///< nothing is written
  kRoom,          ///< `size` bytes at the argument
  kView,          ///< at the argument, whose first word is its size
  kList,          ///< {marker, capacity, count, paths} at the argument
  kUnmarkedList,  ///< {capacity, count, paths}
  kCsiList,       ///< {32, count, 32 paths}
  kReply,         ///< at the argument, its capacity behind the pointer after it
  kText,          ///< at the argument, its size in the argument after it
  kDump,          ///< at the argument, its capacity in the 32-bit word behind the next one
  kBlock          ///< a pointer is returned, which may be NULL
};

struct Effect {
  Kind kind = Kind::kStatus;
  uint8_t argument = 0;
  uint32_t size = 0;
};

struct HostileCall {
  const char *name;
  std::array<Effect, 3> effects = {};
};

constexpr Effect room(uint8_t argument, uint32_t size) {
  return {Kind::kRoom, argument, size};
}

constexpr HostileCall kCalls[] = {
    {"vcorDbGetView", {{{Kind::kView, 2}}}},
    {"vcorDbSetView"},
    {"vcorDbQryView", {{{Kind::kList, 2}}}},
    {"vcorDbLstView", {{{Kind::kList, 2}}}},
    {"vcorDbAddView", {{room(2, 32)}}},
    {"vcorDbDelView"},
    {"vcorDbSave"},
    {"vcorDbSaveDbus"},
    {"ctSgw_ssend_to_proxy", {{{Kind::kReply, 3}}}},
    {"pm_send_msg_2mm", {{{Kind::kReply, 6}}}},
    {"ASEND"},
    {"ctSgw_wlanGetHostInfo", {{room(0, 2052)}}},
    {"GetUB", {{{Kind::kBlock}}}},
    {"StrToMAC", {{room(1, 6)}}},
    {"MACToStr", {{{Kind::kText, 1}}}},
    {"IPToStr", {{{Kind::kText, 1}}}},
    {"StrToIP", {{room(1, 4)}}},
    {"IPv6ToStr", {{{Kind::kText, 1}}}},
    {"ChkIPv6"},
    {"GetCpuType", {{room(0, 4)}}},
    {"GetFlashSizeTotal", {{room(0, 4)}}},
    {"GetRamSizeTotal", {{room(0, 4)}}},
    {"GetMemInfo", {{room(0, 16)}}},
    {"GetUpMode", {{room(0, 4)}}},
    {"PcStartProgram"},
    {"plib_adev_list_view", {{{Kind::kList, 0}}}},
    {"plib_adev_list_view_all", {{{Kind::kList, 0}}}},
    {"pm_upmode_info_get", {{room(0, 8)}}},
    {"pm_upmode_info_set", {{room(2, 512)}}},
    {"pm_e8_wanc_get_current_wandtype", {{room(0, 32)}}},
    {"pm_e8_wanc_list_all_wanc_by_wand", {{{Kind::kList, 2}}}},
    {"pm_e8_wanc_set_comm_ppp_ext", {{room(0, 128), room(1, 6328)}}},
    {"pm_e8_wanc_set_comm_ip_ext", {{room(0, 128), room(1, 4868)}}},
    {"si_ifsadapt_clear_wanc"},
    {"pm_wanc_set_ppp_username_passwd", {{room(0, 192)}}},
    {"pm_wanc_change_brg_route_mode", {{room(0, 6380)}}},
    {"plib_ifs_get_routeif_info", {{room(1, 1340)}}},
    {"pm_fw_get_base", {{room(1, 640)}}},
    {"pm_fw_set_base", {{room(1, 640)}}},
    {"pm_mac_filterset", {{room(0, 32), room(1, 392)}}},
    {"pm_mac_filterlist", {{{Kind::kUnmarkedList, 1}}}},
    {"pm_mac_filterdel"},
    {"pm_iptvvlanbind_set_config"},
    {"pm_qos_qc_set_config", {{room(0, 32), room(1, 4072)}}},
    {"pm_qos_qc_del_config"},
    {"pm_app_wake_up_control_get", {{room(0, 32), room(1, 7584)}}},
    {"pm_app_wake_up_control_set", {{room(0, 32), room(1, 7584)}}},
    {"pm_wlan_ex_control_get", {{room(0, 32), room(1, 7584)}}},
    {"pm_wlan_ex_control_set", {{room(0, 32), room(1, 7584)}}},
    {"pm_dev_restart"},
    {"pm_dev_restore_special"},
    {"pm_pdt_ctl_leds"},
    {"pm_pdt_get_leds_status"},
    {"pm_log_get_config", {{room(0, 160)}}},
    {"pm_log_set_config", {{room(0, 160)}}},
    {"pm_get_version_config_type_int", {{room(0, 4)}}},
    {"pm_srm_get_update_cpu_info", {{room(1, 28)}}},
    {"pm_mac_prm_op", {{room(1, 36), room(3, 196)}}},
    {"pm_wan_get_port_link_state_type", {{room(0, 4), room(1, 4), room(2, 4)}}},
    {"pm_eth_get_port_link_state", {{room(1, 96)}}},
    {"pm_switch_get_inst_id_by_port", {{room(1, 32)}}},
    {"pm_eth_get_port_basic_statstics", {{room(1, 504)}}},
    {"pm_bw_get_hard_stats", {{room(1, 348)}}},
    {"pm_wlan_get_config", {{room(1, 3588)}}},
    {"pm_wlan_set_config", {{room(1, 3588)}}},
    {"pm_wlan_get_config_driver", {{room(1, 328)}}},
    {"pm_wlan_get_txpower", {{room(1, 72)}}},
    {"pm_wlan_set_txpower", {{room(1, 72)}}},
    {"pm_wlan_get_wep", {{room(1, 96)}}},
    {"pm_wlan_set_wep", {{room(1, 96)}}},
    {"pm_wlan_get_psk", {{room(1, 96)}}},
    {"pm_wlan_set_psk", {{room(1, 96)}}},
    {"pm_wlan_get_card_max", {{room(0, 32)}}},
    {"pm_wlan_set_wps", {{room(1, 32)}}},
    {"pm_wlan_set_scan_ap", {{room(1, 64)}}},
    {"pm_wlan_list_ap", {{room(1, 31756)}}},
    {"pm_wlan_select_ap_bystamode", {{room(1, 196)}}},
    {"pm_wlan_get_csi_info", {{room(1, 160)}}},
    {"pm_wlan_set_csi_info", {{room(1, 160)}}},
    {"pm_wlan_add_csi_mac", {{room(1, 64)}}},
    {"pm_wlan_del_csi_mac", {{room(1, 64)}}},
    {"pm_wlan_get_csi_mac_par", {{room(1, 64)}}},
    {"pm_wlan_set_easymesh", {{room(0, 224)}}},
    {"pm_wlan_get_wifibandsteering", {{room(0, 96)}}},
    {"pm_wlan_set_wifibandsteering", {{room(0, 96)}}},
    {"pm_wlan_set_pmf"},
    {"pm_wlan_list_csi_mac", {{{Kind::kCsiList, 1}}}},
    {"pm_wlan_set_same_ssid_2G"},
    {"pm_wlan_list_ad", {{{Kind::kList, 1}}}},
    {"pm_wlan_get_ad", {{room(1, 1664)}}},
    {"pm_wlan_add_blklist", {{room(1, 1664)}}},
    {"pm_wlan_del_ad"},
    {"mapd_interface_ctrl_open", {{{Kind::kBlock}}}},
    {"mapd_interface_get_topology", {{{Kind::kDump, 1}}}},
};

using Arguments = std::array<uintptr_t, 8>;

template <class Type>
Type *at(uintptr_t address) {
  return reinterpret_cast<Type *>(address);
}

/// Writes a count, and paths as far as there is room for them.
void answerList(uint32_t *count, uint32_t capacity, uintptr_t paths) {
  const uint8_t kind = input.byte();
  *count = kind < 0xf0 ? kind % 8 : kind < 0xf8 ? capacity + kind % 4 : input.word();
  const uint32_t written = std::min(*count, capacity);
  for (uint32_t i = 0; i < written; ++i) {
    char *path = at<char>(paths) + 32 * i;
    std::snprintf(path, 32, "IGD.X%u", i);
    input.fill(path, 32);
  }
}

void answerReply(uintptr_t reply, uint16_t *length) {
  if (length == nullptr) return;
  input.fill(at<void>(reply), *length);
  if (const uint8_t kind = input.byte(); kind != 0) {
    *length = static_cast<uint16_t>(kind < 0xf0 ? kind * 8 : input.word());
  }
}

void answerDump(uintptr_t buffer, int32_t *length) {
  input.fill(at<void>(buffer), static_cast<uint32_t>(std::max(*length, 0)));
  if (input.byte() != 0) *length = static_cast<int32_t>(input.word());
}

void take(const Effect &effect, const Arguments &arguments) {
  const uintptr_t place = arguments[effect.argument];
  const uintptr_t next = arguments[(effect.argument + 1) % arguments.size()];
  if (effect.kind == Kind::kStatus || place == 0) return;
  auto *words = at<uint32_t>(place);
  switch (effect.kind) {
    case Kind::kRoom:
      return input.fill(words, effect.size);
    case Kind::kView:
      return input.fill(words + 2, words[0] - 8);
    case Kind::kList:
      return answerList(words + 2, words[1], words[3]);
    case Kind::kUnmarkedList:
      return answerList(words + 1, words[0], words[2]);
    case Kind::kCsiList:
      return answerList(words + 1, 32, words[2]);
    case Kind::kReply:
      return answerReply(place, at<uint16_t>(next));
    case Kind::kText:
      return input.fill(words, next);
    case Kind::kDump:
      return answerDump(place, at<int32_t>(next));
    default:
      return;
  }
}

uintptr_t status() {
  const uint8_t kind = input.byte();
  if (kind < 0xc0) return 0;
  return kind < 0xe0 ? static_cast<uintptr_t>(-9) : input.word();
}

std::vector<void *> blocks;

/// Half of what the library asks for is there.
uintptr_t block(const HostileCall &call, const Arguments &arguments) {
  if (input.byte() >= 0x80) return 0;
  static char handle;
  if (std::strcmp(call.name, "GetUB") != 0) return reinterpret_cast<uintptr_t>(&handle);
  blocks.push_back(gateway::blocks().take(static_cast<uint32_t>(arguments[0])));
  return reinterpret_cast<uintptr_t>(blocks.back());
}

void giveBlock(void *given) {
  std::erase(blocks, given);
  gateway::blocks().give(given);
}

void closeHandle(void *) {}

template <size_t Index>
uintptr_t answer(uintptr_t a, uintptr_t b, uintptr_t c, uintptr_t d, uintptr_t e, uintptr_t f,
                 uintptr_t g, uintptr_t h) {
  constexpr const HostileCall &kCall = kCalls[Index];
  const Arguments arguments{a, b, c, d, e, f, g, h};
  if (kCall.effects[0].kind == Kind::kBlock) return block(kCall, arguments);
  for (const Effect &effect : kCall.effects) take(effect, arguments);
  return status();
}

template <size_t... Index>
std::vector<gateway::ReplacedCall> hostileCalls(std::index_sequence<Index...>) {
  return {{kCalls[Index].name, reinterpret_cast<uintptr_t>(&answer<Index>)}...};
}

/// The daemon's record: as it is, with texts that nobody ended, or full of anything.
void spoil(const Shape &shape, void *record) {
  const uint8_t kind = input.byte();
  if (kind < 0x80) return;
  for (const Member &field : shape.members) {
    void *place = static_cast<uint8_t *>(record) + field.offset;
    const size_t size = size_t{field.size} * field.elements;
    if (kind >= 0xc0) {
      input.fill(place, size);
    } else if (field.kind == records::Kind::kText) {
      std::memset(place, '1', size);
    }
  }
}

/// Numbers may be anything, but for those that say how large the room is that the caller gives.
void spoilNumbers(Json &arguments) {
  for (auto &[name, value] : arguments.items()) {
    if (!value.is_number() || name == "length") continue;
    const uint8_t kind = input.byte();
    if (kind >= 0x80) value = kind < 0xf0 ? Json(kind % 8) : Json(input.word());
  }
}

/// Megabytes of answer, which would be printed for nothing: called without the catalogue.
bool callsTopology(const Method &method) {
  if (method.function == "pm_get_dumpbuf_info") return true;
  if (method.function != "pm_ubus_get_meshtopology") return false;
  static const auto record = std::make_unique<MeshTopologyRecord>();
  pm_ubus_get_meshtopology(record.get());
  return true;
}

void callOne(const Object &object, const Method &method) {
  if (callsTopology(method)) return;
  Json arguments = Json::parse(method.examples.front().arguments);
  spoilNumbers(arguments);
  catalogue::Answer given;
  records::Secrets secrets;
  catalogue::Call call(object.name + " " + method.name, arguments, given, secrets);
  call.onRecord = spoil;
  try {
    method.invoke(call);
  } catch (const records::InputError &) {
    // A number that its parameter cannot hold never reaches the library.
  }
}

/// What the library keeps for the life of its process, so that every input begins alike.
void forget() {
  for (ListLink *head : {&g_net_sta_ifa_list, &g_net_sta_if6_list, &g_net_uplink_ifa_list,
                         &g_net_uplink_if6_list, &g_ubus_devlmt_list, &g_ubus_lmtUrl_list}) {
    *head = {head, head};
  }
  g_ubus_devlmt_inst = 0;
  while (!blocks.empty()) giveBlock(blocks.back());
  gateway::Gateway &gateway = gateway::Gateway::current();
  gateway.clearLogs();
  gateway.boundary().clearCalls();
  gateway.takeComplaints();
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***) {
  auto calls = hostileCalls(std::make_index_sequence<std::size(kCalls)>());
  calls.push_back({"RetUB", reinterpret_cast<uintptr_t>(&giveBlock)});
  calls.push_back({"mapd_interface_ctrl_close", reinterpret_cast<uintptr_t>(&closeHandle)});
  gateway::replaceLibraryCalls(calls);
  // The library prints its steps there.
  return std::freopen("/dev/null", "w", stdout) == nullptr ? 1 : 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  static const auto methods = [] {
    std::vector<std::pair<const Object *, const Method *>> all;
    for (const Object &object : catalogue::catalogue()) {
      for (const Method &method : object.methods) all.emplace_back(&object, &method);
    }
    return all;
  }();
  forget();
  input = {data, size};
  while (!input.isEmpty()) {
    const auto &[object, method] = methods[input.byte() % methods.size()];
    callOne(*object, *method);
  }
  return 0;
}
