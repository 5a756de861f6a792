// The multi-AP daemon: the mesh that it sees, and how it is.
#pragma once

#include <cstdint>
#include <string>

#include "gateway/section.hpp"

namespace gateway {

enum class MapdState : uint32_t { kUp, kDown, kFailing, kTimingOut };

class Mesh : public Section {
 public:
  Mesh() : Section("mesh") {}

  MapdState state = MapdState::kDown;
  /// The dump as the daemon writes it: JSON text, not necessarily well-formed.
  std::string topology;
  /// Control connections that the library has not closed.
  uint32_t openHandles = 0;

  void load(const Json &value, const std::string &place) override;
  Json save() const override;
  void reset() override;
};

Mesh &mesh();

}  // namespace gateway
