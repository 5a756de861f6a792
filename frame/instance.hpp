// Instance paths and the lists in which the platform returns them.
#pragma once

#include <cstring>

#include "frame/text.hpp"
#include "platform/config_database.h"

namespace pm {

/// A path in the 32 zeroed bytes in which platform calls take it.
struct InstancePath {
  char text[PLATFORM_INSTANCE_SIZE];

  explicit InstancePath(const char *path) : text{} { copyText(text, path); }

  /// The stem leaves room for any number.
  static InstancePath numbered(const char *stem, int32_t number) {
    InstancePath path(stem);
    printDecimal(path.text + strlen(path.text), number);
    return path;
  }

  /// What does not fit is cut.
  void append(const char *more);
  void append(int32_t number);
};

/// The first SSID of each band, which stands for its radio.
inline constexpr char kFirst24GSsid[] = "IGD.LD1.WLAN1";
inline constexpr char kFirst5GSsid[] = "IGD.LD1.WLAN5";

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

  /// Lists all instances of a view under `parent`; returns the platform's status.
  int32_t listView(uint32_t viewId, const char *parent) {
    return vcorDbLstView(viewId, parent, &list, Capacity);
  }

  InstanceList list;

 private:
  char paths_[Capacity][PLATFORM_INSTANCE_SIZE];
};

}  // namespace pm
