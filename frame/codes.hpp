// Words and daemon's numbers for the platform's codes, and back. Where nothing in a table fits,
// the row is nullptr.
#pragma once

#include <span>

#include "platform/codes.hpp"

namespace pm {

using namespace platform;

using CodeTable = std::span<const Code>;

/// The first row of that code.
const Code *codeOf(CodeTable table, uint32_t value);

/// Its word.
const char *nameOf(CodeTable table, uint32_t value, const char *otherwise = nullptr);

/// The first row whose word begins with `text`; an empty text names the first row of all.
const Code *codeNamed(CodeTable table, const char *text);

/// The row for which the daemon says that number.
const Code *codeNumbered(CodeTable table, uint32_t daemonNumber);

}  // namespace pm
