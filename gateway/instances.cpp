#include "gateway/instances.hpp"

#include <algorithm>
#include <cstring>

#include "boundary/boundary.hpp"
#include "gateway/gateway.hpp"
#include "gateway/habits.hpp"

namespace gateway {

namespace {

void checkWhole(const char *path) {
  if (!habits().copiesWholePaths) return;
  const size_t length = strnlen(path, PLATFORM_INSTANCE_SIZE);
  const bool isWhole =
      length < PLATFORM_INSTANCE_SIZE && std::all_of(path + length, path + PLATFORM_INSTANCE_SIZE,
                                                     [](char byte) { return byte == '\0'; });
  if (!isWhole) throw Refusal(kBadRequest, "the instance path does not lie in 32 zeroed bytes");
}

[[maybe_unused]] const bool kIsChecked = (Boundary::current().onPath(checkWhole), true);

}  // namespace

std::string pathFrom(const char *path) {
  return path;
}

void writePath(const std::string &path, char out[PLATFORM_INSTANCE_SIZE]) {
  if (path.size() >= PLATFORM_INSTANCE_SIZE + (habits().endsNoPaths ? 1 : 0)) {
    throw Refusal(kPathTooLong, "the path " + path + " does not fit a list");
  }
  std::memset(out, 0, PLATFORM_INSTANCE_SIZE);
  std::memcpy(out, path.data(), path.size());
}

uint32_t writePaths(const std::vector<std::string> &paths, uint32_t capacity,
                    char (*instances)[PLATFORM_INSTANCE_SIZE]) {
  if (instances == nullptr && capacity > 0) throw Refusal(kNullArgument, "a list without room");
  for (size_t i = 0; i < paths.size() && i < capacity; ++i) writePath(paths[i], instances[i]);
  return static_cast<uint32_t>(paths.size());
}

void fill(InstanceList *list, const std::vector<std::string> &paths) {
  if (list->marker != PLATFORM_BLOCK_MARKER) throw Refusal(kBadHeader, "the list has no marker");
  list->dwCount = writePaths(paths, list->capacity, list->instances);
}

}  // namespace gateway
