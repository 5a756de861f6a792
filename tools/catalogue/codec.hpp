// Records to JSON and back.
#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>

#include "tools/catalogue/json.hpp"
#include "tools/catalogue/record_shape.hpp"

namespace command {

inline constexpr std::string_view kMask = "***";

/// Texts that must not reach the screen.
using Secrets = std::set<std::string>;

/// Bytes that are no UTF-8 become "\xNN", so that any text can be printed.
std::string printable(std::string_view bytes);

/// Up to `size` bytes, to the terminating zero where there is one.
std::string_view boundedText(const void *bytes, size_t size);

int64_t integerFromJson(const Json &value, const std::string &where, int64_t min, int64_t max);
uint64_t unsignedFromJson(const Json &value, const std::string &where, uint64_t max);

/// A text of at most `longest` bytes, without zeros in it.
std::string textFromJson(const Json &value, const std::string &where, size_t longest);

enum class Needed : uint8_t { kAll, kInputs };

/// Fills a zeroed record; optional members that `value` lacks stay zero, as do those that are no
/// inputs where only these are needed. Secrets found are added to `secrets`.
void recordFromJson(const Json &value, const std::string &where, const Shape &shape, void *record,
                    Secrets &secrets, Needed needed = Needed::kAll);

/// Appends the record's members to the object `out`.
void recordToJson(const Shape &shape, const void *record, bool showSecrets, Json &out);

}  // namespace command
