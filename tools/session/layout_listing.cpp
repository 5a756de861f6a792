#include "tools/session/layout_listing.hpp"

#include <nlohmann/json.hpp>

#include "gateway/section.hpp"
#include "records/row.hpp"

namespace command {
namespace {

using platform::Field;
using platform::FieldKind;

// By their number in FieldKind.
constexpr const char *kKindNames[] = {"word", "byte",  "mac",     "counter",
                                      "text", "bytes", "pointer", "rows"};

Json fieldsOf(const records::Layout &layout) {
  Json fields = Json::array();
  for (const Field &field : layout.fields) {
    Json entry{{"name", field.name},
               {"kind", kKindNames[static_cast<size_t>(field.kind)]},
               {"width", field.width}};
    if (field.kind == FieldKind::kText) {
      entry["longest"] = records::textCapacity(field);
    }
    fields.push_back(entry);
  }
  return fields;
}

}  // namespace

Json layoutsAsJson() {
  Json views = Json::object();
  Json records = Json::object();
  for (const records::Layout &layout : records::allLayouts()) {
    (layout.isView() ? views : records)[std::string(layout.name)] = fieldsOf(layout);
  }
  Json sections = Json::array();
  for (const gateway::Section *section : gateway::Section::all()) {
    sections.push_back(section->name());
  }
  return {{"views", views}, {"records", records}, {"sections", sections}};
}

}  // namespace command
