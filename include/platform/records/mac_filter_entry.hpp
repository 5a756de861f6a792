#pragma once

#include "platform/record.hpp"

namespace platform {

/// One device of the MAC filter table.
template <class Storage>
struct MacFilterFields : Storage {
  static constexpr Text<32> name{"name", Storage::kFirst + 28};
  static constexpr Word type{"type", Storage::kFirst + 156};
  static constexpr Word protocol{"protocol", Storage::kFirst + 188};
  static constexpr Mac sourceMac{"sourceMac", Storage::kFirst + 220};
  static constexpr Text<32> deviceName{"deviceName", Storage::kFirst + 356};
  static constexpr auto fields = Storage::layout(name, type, protocol, sourceMac, deviceName);
};

/// As pm_mac_filterset takes it.
using MacFilterEntryRecord = MacFilterFields<Record<392>>;

// The layout of a template is checked where it is first used: here.
static_assert(!MacFilterEntryRecord::fields.empty());

}  // namespace platform
