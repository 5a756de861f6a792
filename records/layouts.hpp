// Every view and record of the platform, by number and by name, for those who walk them.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/layout.hpp"

namespace records {

struct Layout {
  std::string_view name; /**< DBVIEW_... for a view, the structure's name for a record */
  uint32_t id;           /**< the view's number, 0 for a record */
  uint32_t size;
  std::span<const platform::Field> fields;
  platform::RecordType type;

  bool isView() const { return id != 0; }
  uint32_t headerSize() const { return isView() ? platform::kViewHeaderSize : 0; }
  const platform::Field *find(std::string_view fieldName) const;
};

std::span<const Layout> allLayouts();
/// nullptr when the platform has no such view or record.
const Layout *viewById(uint32_t id);
const Layout *layoutByName(std::string_view name);
const Layout &layoutOf(platform::RecordType type);

template <class Record>
const Layout &layoutOf() {
  return layoutOf(platform::typeOf<Record>());
}

/// "DBVIEW_LAN_DEVICE", or "view 99" for one that the platform does not have.
std::string viewName(uint32_t id);

}  // namespace records
