#include "gateway/store.hpp"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstring>
#include <stdexcept>

#include "boundary/status.hpp"
#include "gateway/gateway.hpp"

namespace gateway {

using namespace platform;
using namespace boundary;

namespace {

constexpr uint16_t kMarkWrite = 1;
constexpr uint16_t kMarkMatch = 2;
constexpr uint32_t kNameOffset = 36;

bool isInvalid(const Row &row, const Field &field) {
  return field.kind == FieldKind::kText && row.validity(field) == -1;
}

bool sameValue(const Row &a, const Row &b, const Field &field) {
  if (field.kind == FieldKind::kText) return a.text(field) == b.text(field);
  return std::memcmp(a.data() + field.offset, b.data() + field.offset, field.width) == 0;
}

void copyValue(const Row &to, const Row &from, const Field &field) {
  if (field.kind == FieldKind::kText) return to.setText(field, from.text(field));
  std::memcpy(to.data() + field.offset, from.data() + field.offset, field.width);
}

// Reading through a const record: a Row never writes unless one of its setters is called.
Row viewOf(const Layout &layout, const void *record) {
  return {layout, static_cast<uint8_t *>(const_cast<void *>(record))};
}

/// "DBVIEW_TIME_POLICY" names its instances "TimePolicy1", "TimePolicy2" and so on.
std::string instanceStem(const Layout &layout) {
  std::string_view name = layout.name;
  if (name.starts_with("DBVIEW_")) name.remove_prefix(7);
  std::string stem;
  bool upper = true;
  for (const char c : name) {
    if (c == '_') {
      upper = true;
      continue;
    }
    stem += layout.isView() && !upper ? static_cast<char>(std::tolower(c)) : c;
    upper = false;
  }
  return stem;
}

uint32_t trailingNumber(std::string_view path, std::string_view prefix) {
  if (!path.starts_with(prefix)) return 0;
  uint32_t number = 0;
  const char *end = path.data() + path.size();
  const auto [stop, error] = std::from_chars(path.data() + prefix.size(), end, number);
  return error == std::errc() && stop == end ? number : 0;
}

}  // namespace

const Store::Instance *Store::find(const Layout &layout, std::string_view path) const {
  const auto table = tables_.find(&layout);
  if (table == tables_.end()) return nullptr;
  for (const Instance &instance : table->second) {
    if (instance.path == path) return &instance;
  }
  return nullptr;
}

bool Store::has(const Layout &layout, std::string_view path) const {
  return find(layout, path) != nullptr;
}

Row Store::row(const Layout &layout, std::string_view path) const {
  const Instance *instance = find(layout, path);
  if (instance == nullptr) {
    throw std::out_of_range(std::string(layout.name) + " has no instance " + std::string(path));
  }
  return viewOf(layout, instance->bytes.data());
}

Row Store::create(const Layout &layout, std::string_view path) {
  if (has(layout, path)) return row(layout, path);
  Table &table = tables_[&layout];
  table.push_back({std::string(path), std::vector<uint8_t>(layout.size)});
  Instance &made = table.back();
  Row result(layout, made.bytes.data());
  const Field *name = layout.find("name");
  const bool named = name != nullptr && name->kind == FieldKind::kText &&
                     name->offset == kNameOffset && path.size() <= textCapacity(*name);
  if (named) result.setText(*name, path);
  return result;
}

int32_t Store::get(const Layout &layout, std::string_view path, void *record) const {
  const Instance *instance = find(layout, path);
  if (instance == nullptr) return kUnknownInstance;
  const uint32_t skip = layout.headerSize();
  std::memcpy(static_cast<uint8_t *>(record) + skip, instance->bytes.data() + skip,
              layout.size - skip);
  return kOk;
}

int32_t Store::set(const Layout &layout, std::string_view path, const void *record,
                   Unchanged unchanged) {
  const Instance *instance = find(layout, path);
  if (instance == nullptr) return kUnknownInstance;
  const Row from = viewOf(layout, record);
  const Row to = viewOf(layout, instance->bytes.data());

  std::vector<const Field *> written;
  for (const Field &field : layout.fields) {
    if (!field.marked || from.mark(field) != kMarkWrite) continue;
    if (isInvalid(from, field)) return kInvalidField;
    if (field.kind == FieldKind::kText && from.text(field).size() > textCapacity(field)) {
      return kInvalidField;
    }
    written.push_back(&field);
  }
  bool changed = false;
  for (const Field *field : written) {
    if (sameValue(to, from, *field)) continue;
    copyValue(to, from, *field);
    changed = true;
  }
  return changed || unchanged == Unchanged::kAccepted ? kOk : kNothingChanged;
}

int32_t Store::query(const Layout &layout, const void *key, std::vector<std::string> *found) const {
  const Row wanted = viewOf(layout, key);
  std::vector<const Field *> keys;
  for (const Field &field : layout.fields) {
    if (!field.marked || wanted.mark(field) != kMarkMatch) continue;
    if (isInvalid(wanted, field)) return kInvalidField;
    keys.push_back(&field);
  }
  if (keys.empty()) return kInvalidField;

  const auto table = tables_.find(&layout);
  if (table == tables_.end()) return kOk;
  for (const Instance &instance : table->second) {
    const Row row = viewOf(layout, instance.bytes.data());
    const bool matches = std::all_of(keys.begin(), keys.end(), [&](const Field *field) {
      return sameValue(row, wanted, *field);
    });
    if (matches) found->push_back(instance.path);
  }
  return kOk;
}

std::vector<std::string> Store::paths(const Layout &layout) const {
  std::vector<std::string> all;
  const auto table = tables_.find(&layout);
  if (table == tables_.end()) return all;
  for (const Instance &instance : table->second) all.push_back(instance.path);
  return all;
}

std::vector<std::string> Store::list(const Layout &layout, std::string_view parent) const {
  const std::string prefix = std::string(parent) + ".";
  std::vector<std::string> below = paths(layout);
  std::erase_if(below, [&](const std::string &path) { return !path.starts_with(prefix); });
  return below;
}

int32_t Store::add(const Layout &layout, std::string_view parent, std::string *path) {
  const std::vector<std::string> existing = paths(layout);
  const auto limit = limits_.find(&layout);
  if (existing.size() >= (limit == limits_.end() ? kDefaultLimit : limit->second)) {
    return kTableFull;
  }
  const std::string prefix = std::string(parent) + "." + instanceStem(layout);
  uint32_t last = 0;
  for (const std::string &other : existing) last = std::max(last, trailingNumber(other, prefix));
  *path = prefix + std::to_string(last + 1);
  create(layout, *path);
  return kOk;
}

int32_t Store::remove(const Layout &layout, std::string_view path) {
  const auto table = tables_.find(&layout);
  if (table == tables_.end()) return kUnknownInstance;
  ofSections_.erase({&layout, std::string(path)});
  const size_t removed =
      std::erase_if(table->second, [&](const Instance &instance) { return instance.path == path; });
  return removed == 0 ? kUnknownInstance : kOk;
}

bool Store::isLeftToSection(const Layout &layout, std::string_view path) const {
  return ofSections_.contains({&layout, std::string(path)});
}

void Store::clear() {
  tables_.clear();
  limits_.clear();
  ofSections_.clear();
}

Store &store() {
  return Gateway::current().store();
}

}  // namespace gateway
