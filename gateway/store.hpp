// The gateway's configuration: records of every layout, kept under (layout, instance path) in the
// order in which they were made, and served by the rules of marked fields.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "records/row.hpp"

namespace gateway {

using namespace records;

enum class Unchanged { kAccepted, kReported };

class Store {
 public:
  static constexpr uint32_t kDefaultLimit = 256;

  bool has(const Layout &layout, std::string_view path) const;

  /// Copies the record out; the caller's header stays.
  int32_t get(const Layout &layout, std::string_view path, void *record) const;
  /// Applies the fields marked 1; one of them declared invalid refuses the whole record.
  int32_t set(const Layout &layout, std::string_view path, const void *record,
              Unchanged unchanged = Unchanged::kAccepted);
  /// Finds the instances that equal `key` in every field marked 2.
  int32_t query(const Layout &layout, const void *key, std::vector<std::string> *found) const;
  std::vector<std::string> list(const Layout &layout, std::string_view parent) const;
  int32_t add(const Layout &layout, std::string_view parent, std::string *path);
  int32_t remove(const Layout &layout, std::string_view path);

  /// The instance's record, made of zeros when there is none yet.
  Row create(const Layout &layout, std::string_view path);
  /// Throws std::out_of_range when there is no such instance.
  Row row(const Layout &layout, std::string_view path) const;

  template <class Record>
  Row create(std::string_view path) {
    return create(layoutOf<Record>(), path);
  }
  template <class Record>
  Row row(std::string_view path) const {
    return row(layoutOf<Record>(), path);
  }
  template <class Record>
  bool has(std::string_view path) const {
    return has(layoutOf<Record>(), path);
  }

  template <class Record>
  int32_t get(std::string_view path, Record *record) const {
    return get(layoutOf<Record>(), path, record);
  }
  template <class Record>
  int32_t set(std::string_view path, const Record *record,
              Unchanged unchanged = Unchanged::kAccepted) {
    return set(layoutOf<Record>(), path, record, unchanged);
  }
  template <class Record>
  std::vector<std::string> paths() const {
    return paths(layoutOf<Record>());
  }
  template <class Record>
  std::vector<std::string> list(std::string_view parent) const {
    return list(layoutOf<Record>(), parent);
  }
  template <class Record>
  int32_t add(std::string_view parent, std::string *path) {
    return add(layoutOf<Record>(), parent, path);
  }
  template <class Record>
  int32_t remove(std::string_view path) {
    return remove(layoutOf<Record>(), path);
  }

  /// The row is saved with the section that made it, not as a row.
  template <class Record>
  void leaveToSection(std::string_view path) {
    ofSections_.emplace(&layoutOf<Record>(), path);
  }
  bool isLeftToSection(const Layout &layout, std::string_view path) const;

  /// Instances that a layout may have before `add` answers that the table is full.
  void limit(const Layout &layout, uint32_t instances) { limits_[&layout] = instances; }

  /// All instances of a layout, oldest first.
  std::vector<std::string> paths(const Layout &layout) const;
  void clear();

 private:
  struct Instance {
    std::string path;
    std::vector<uint8_t> bytes;
  };
  using Table = std::vector<Instance>;

  const Instance *find(const Layout &layout, std::string_view path) const;

  std::map<const Layout *, Table> tables_;
  std::map<const Layout *, uint32_t> limits_;
  std::set<std::pair<const Layout *, std::string>> ofSections_;
};

/// That of the current gateway.
Store &store();

}  // namespace gateway
