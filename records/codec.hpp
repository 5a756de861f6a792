// Records to JSON and back, whatever kind of record it is: one way to read a value, one to print
// it, one set of messages about what is wrong where.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <string_view>

#include "records/json.hpp"
#include "records/layouts.hpp"
#include "records/shape.hpp"

namespace records {

inline constexpr std::string_view kMask = "***";

/// Texts that must not reach the screen.
using Secrets = std::set<std::string>;

/// Which members a JSON object must have.
enum class Needed : uint8_t { kAll, kInputs, kNone };

/// What is printed of a record.
struct Print {
  bool showsSecrets = true;
  bool omitsZeros = false;
  bool escapesBytes = false; /**< "\\xNN" for a byte that is no UTF-8 */
};

/// "stations.all" and "rssi" are "stations.all.rssi"; "call: " and "ssid" are "call: ssid".
std::string placeOf(std::string_view where, std::string_view member);
std::string placeOf(std::string_view where, size_t index);

// Each of these throws InputError with `where` when the value is another.
int64_t integerFromJson(const Json &value, const std::string &where, int64_t least, int64_t most);
uint64_t unsignedFromJson(const Json &value, const std::string &where, uint64_t most);
/// A text of at most `longest` bytes, without zeros in it.
std::string textFromJson(const Json &value, const std::string &where, size_t longest);
void requireObject(const Json &value, const std::string &where);

/// Fills a record; members that `value` lacks, and need not have, stay as they were. Secrets found
/// are added to `secrets`.
void fromJson(const Json &value, const std::string &where, const Shape &shape, void *record,
              Needed needed = Needed::kNone, Secrets *secrets = nullptr);

/// Appends the record's members to the object `out`.
void appendJson(const Shape &shape, const void *record, const Print &print, Json &out);
Json toJson(const Shape &shape, const void *record, const Print &print = {});

/// A JSON schema of what fromJson() takes.
Json schemaOf(const Shape &shape);

/// A platform's layout as the same kind of table.
const Shape &shapeOf(const Layout &layout);

}  // namespace records
