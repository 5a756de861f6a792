// Platform records that a few exported functions take as they are.
#pragma once

#include <nlohmann/json.hpp>

#include "gateway/record_json.hpp"
#include "tools/catalogue/parameters.hpp"

namespace command {

/// A platform record given as an object of its fields; those left out are zero.
template <class Record>
struct PlatformIn {
  const char *name;

  template <class C>
  class Bound {
   public:
    Bound(const PlatformIn &in, Call &call) : buffer_(Record::kSize) {
      const gateway::Row row(gateway::layoutOf<Record>(), buffer_.as<uint8_t *>());
      try {
        gateway::loadRecord(row, call.require(in.name), call.at(in.name));
      } catch (const gateway::ProfileError &error) {
        throw UsageError(error.what());
      }
    }
    C value() { return buffer_.data(); }
    void finish(const PlatformIn &, Call &) {}

   private:
    Buffer buffer_;
  };

  template <class C>
  void describe(std::vector<Parameter> &out) const {
    out.push_back({.name = name, .direction = Direction::kIn, .type = "platform record"});
  }
};

/// A platform record that the function fills; fields that are zero are not printed.
template <class Record>
struct PlatformOut {
  const char *name;

  template <class C>
  class Bound {
   public:
    Bound(const PlatformOut &, Call &) : buffer_(Record::kSize) {}
    C value() { return buffer_.data(); }
    void finish(const PlatformOut &out, Call &call) {
      call.put(out.name, gateway::saveRecord(
                             gateway::Row(gateway::layoutOf<Record>(), buffer_.as<uint8_t *>())));
    }

   private:
    Buffer buffer_;
  };

  template <class C>
  void describe(std::vector<Parameter> &out) const {
    out.push_back({.name = name, .direction = Direction::kOut, .type = "platform record"});
  }
};

}  // namespace command
