#include "frame/parse.hpp"

#include <cstring>

#include "pmapi/helpers.h"

namespace pm {

bool nextListItem(const char *&rest, std::string_view &item) {
  rest += strspn(rest, ",");
  item = {rest, strcspn(rest, ",")};
  rest += item.size();
  return !item.empty();
}

bool parseMacDigits(const char *digits, uint8_t mac[6]) {
  for (uint32_t i = 0; i < 6; ++i) {
    const uint32_t high = HexCharToVal(digits[2 * i]);
    if (high == UINT32_MAX) return false;
    const uint32_t low = HexCharToVal(digits[2 * i + 1]);
    if (low == UINT32_MAX) return false;
    mac[i] = static_cast<uint8_t>(high << 4 | low);
  }
  return true;
}

int32_t numberIn(const char *text) {
  int32_t number = 0;
  StrToInt(text, &number);
  return number;
}

}  // namespace pm
