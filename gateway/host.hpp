// The daemon's process around the library: its memory blocks, the programs that it starts, and what
// it knows of the hardware.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "gateway/section.hpp"
#include "platform/host.h"

namespace gateway {

using namespace platform;

class Gateway;

/// The blocks of GetUB. They outlive a reset: the library keeps some for as long as it is loaded.
class Blocks {
 public:
  void *take(uint32_t size);
  /// False when `block` is none of ours, or was given back already.
  bool give(void *block);

  /// Blocks taken since the last reset and not given back.
  size_t live() const { return liveSizes().size(); }
  std::vector<uint32_t> liveSizes() const;
  void startCounting() { ++period_; }

 private:
  struct Block {
    uint32_t size;
    uint32_t period;
  };

  std::map<void *, Block> blocks_;
  uint32_t period_ = 0;
};

Blocks &blocks();

struct StartedProgram {
  std::string program;
  std::string commandLine;
};

struct Host {
  uint32_t cpuType = 3;
  uint32_t flashSize = 0;
  uint32_t ramSize = 0;
  uint32_t upMode = 0;
  MemInfo memory = {};
  /// Gone after a restart, so no part of a profile.
  std::vector<StartedProgram> programs = {};
};

Host &host();

/// Lives at namespace scope and stands behind one program of PcStartProgram; programs without one
/// are only remembered.
struct ProgramHandler {
  using Run = int32_t (*)(Gateway &gateway, const std::string &commandLine);
  ProgramHandler(std::string_view program, Run run);
};

}  // namespace gateway
