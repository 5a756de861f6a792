#include "tools/session/layout_listing.hpp"

#include <nlohmann/json.hpp>

#include "gateway/section.hpp"
#include "records/layouts.hpp"

namespace command {
namespace {

using platform::Field;
using platform::FieldKind;

const char *kindName(FieldKind kind) {
  switch (kind) {
    case FieldKind::kWord:
      return "word";
    case FieldKind::kByte:
      return "byte";
    case FieldKind::kMac:
      return "mac";
    case FieldKind::kCounter:
      return "counter";
    case FieldKind::kText:
      return "text";
    case FieldKind::kBytes:
      return "bytes";
    case FieldKind::kRows:
      return "rows";
    case FieldKind::kPointer:
      break;
  }
  return "pointer";
}

Json fieldsOf(const records::Layout &layout) {
  Json fields = Json::array();
  for (const Field &field : layout.fields) {
    Json entry{{"name", field.name}, {"kind", kindName(field.kind)}, {"width", field.width}};
    if (field.kind == FieldKind::kText) {
      entry["longest"] = field.width - (field.marked ? platform::kValidityDistance : 1);
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
