// Every view and record of the platform, by number and by name.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/record.hpp"

namespace gateway {

struct Layout {
  std::string_view name; /**< DBVIEW_... for a view, the structure's name for a record */
  uint32_t id;           /**< the view's number, 0 for a record */
  uint32_t size;
  std::span<const platform::Field> fields;
  const void *identity; /**< where the record's field list lies: one per C++ type */

  bool isView() const { return id != 0; }
  uint32_t headerSize() const { return isView() ? platform::kViewHeaderSize : 0; }
  const platform::Field *find(std::string_view fieldName) const;
};

std::span<const Layout> allLayouts();
const Layout *viewById(uint32_t id);
const Layout *layoutByName(std::string_view name);
const Layout &layoutByIdentity(const void *identity);

template <class Record>
const Layout &layoutOf() {
  return layoutByIdentity(&Record::fields);
}

/// "DBVIEW_LAN_DEVICE", or "view 99" for one that the platform does not have.
std::string viewName(uint32_t id);

}  // namespace gateway
