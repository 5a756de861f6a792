#pragma once

#include <vector>

namespace bench {

/// What the multi-AP daemon dumps; stays the case's own.
extern const char *meshDump;

/// Which blocks of GetUB are free. Calls that are made again must leave them as they were.
using BlockState = std::vector<void *>;
BlockState saveBlocks();
void restoreBlocks(const BlockState &state);
/// Takes all blocks back, whoever holds them.
void freeAllBlocks();

}  // namespace bench
