// Which items of the store hold JSON rather than a plain text.
#pragma once

namespace pm {

/// The first of the JSON items whose name occurs in `item`, nullptr when none does.
const char *findJsonItem(const char *item);

}  // namespace pm
