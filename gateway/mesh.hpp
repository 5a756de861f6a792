// The multi-AP daemon: the mesh that it sees, and how it is.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace gateway {

enum class MapdState : uint32_t { kUp, kDown, kFailing, kTimingOut };

struct Mesh {
  /// None without a daemon.
  std::optional<MapdState> state;
  /// The dump as the daemon writes it: JSON text, not necessarily well-formed.
  std::string topology;
  /// Control connections that the library has not closed.
  uint32_t openHandles = 0;
};

Mesh &mesh();

}  // namespace gateway
