// Instance paths and the lists in which the platform returns them.
#pragma once

#include <cstring>

#include "frame/text.hpp"
#include "platform/config_database.h"

namespace pm {

using namespace platform;

/// A path in the 32 zeroed bytes in which platform calls take it.
struct InstancePath {
  char text[PLATFORM_INSTANCE_SIZE];

  explicit InstancePath(const char *path) : text{} { copyText(text, path); }

  /// A path known beforehand; it needs no copy.
  template <uint32_t Size>
  static consteval InstancePath constant(const char (&path)[Size]) {
    static_assert(Size <= sizeof text);
    InstancePath made;
    for (uint32_t i = 0; i < Size; ++i) made.text[i] = path[i];
    return made;
  }

  /// The stem leaves room for any number.
  static InstancePath numbered(const char *stem, int32_t number) {
    InstancePath path(stem);
    printDecimal(path.text + strlen(path.text), number);
    return path;
  }

  /// Ends what the platform has written here, however long it was.
  void end() { text[sizeof text - 1] = '\0'; }

  /// What does not fit is cut.
  void append(const char *more);
  void append(int32_t number);

 private:
  constexpr InstancePath() : text{} {}
};

/// The gateway itself.
inline constexpr InstancePath kGatewayPath = InstancePath::constant("IGD");

/// The first SSID of each band, which stands for its radio.
inline constexpr InstancePath kFirst24GSsid = InstancePath::constant("IGD.LD1.WLAN1");
inline constexpr InstancePath kFirst5GSsid = InstancePath::constant("IGD.LD1.WLAN5");

/// How many of the reported items really lie in a table of `capacity`; the platform may count more
/// than fit, or a negative number.
constexpr uint32_t clampCount(uint32_t reported, uint32_t capacity) {
  if (static_cast<int32_t>(reported) < 0) return 0;
  return reported < capacity ? reported : capacity;
}

/// A list descriptor together with the room for its paths.
template <uint32_t Capacity>
class InstanceTable {
 public:
  InstanceTable() : list{PLATFORM_BLOCK_MARKER, Capacity, 0, paths_}, paths_{} {}
  InstanceTable(const InstanceTable &) = delete;
  InstanceTable &operator=(const InstanceTable &) = delete;

  /// What the platform counted, as it said it.
  uint32_t reported() const { return list.dwCount; }

  /// Paths that really lie here.
  uint32_t count() const { return clampCount(list.dwCount, Capacity); }

  InstancePath at(uint32_t index) const { return InstancePath(paths_[index]); }

  /// Lists all instances of a view; returns the platform's status.
  int32_t listView(uint32_t viewId) {
    return vcorDbLstView(viewId, kGatewayPath.text, &list, Capacity);
  }

  InstanceList list;

 private:
  char paths_[Capacity][PLATFORM_INSTANCE_SIZE];
};

}  // namespace pm
