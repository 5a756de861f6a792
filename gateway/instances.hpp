// Instance paths between the library and the gateway.
#pragma once

#include <string>
#include <vector>

#include "platform/config_database.h"

namespace gateway {

using namespace platform;

/// The path as a text.
std::string pathFrom(const char *path);

/// Writes a path into the caller's 32 bytes.
void writePath(const std::string &path, char out[PLATFORM_INSTANCE_SIZE]);

/// Writes as many paths as there is room for; returns how many there are.
uint32_t writePaths(const std::vector<std::string> &paths, uint32_t capacity,
                    char (*instances)[PLATFORM_INSTANCE_SIZE]);

/// Checks the list's marker, then fills it.
void fill(InstanceList *list, const std::vector<std::string> &paths);

}  // namespace gateway
