// Fields that a record takes over from the getters of its values.
#pragma once

#include <type_traits>

#include "frame/text.hpp"

namespace pm {

/// Room that a getter of one text has, all of it zero, and never terminates.
inline constexpr uint32_t kGetterTextSize = 32;

/// Fills a field with what `getter` finds for `keys`. The getter runs into an empty local, so that
/// one that finds nothing leaves the field empty, or 0.
template <uint32_t Size, class Getter, class... Keys>
void fill(char (&field)[Size], Getter *getter, Keys... keys) {
  char text[Size > kGetterTextSize ? Size : kGetterTextSize] = {};
  getter(keys..., text);
  copyText(field, text);
}

template <class Number, class Getter, class... Keys>
void fill(Number &field, Getter *getter, Keys... keys) {
  std::make_unsigned_t<Number> number = 0;
  getter(keys..., &number);
  field = static_cast<Number>(number);
}

}  // namespace pm
