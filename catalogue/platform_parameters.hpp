// Platform records that a few exported functions take as they are.
#pragma once

#include <nlohmann/json.hpp>

#include "catalogue/parameters.hpp"

namespace catalogue {

/// A platform record given as an object of its fields; those left out are zero.
template <class Record>
struct PlatformIn {
  const char *name;

  template <class C>
  class Bound {
   public:
    Bound(const PlatformIn &in, Call &call) : buffer_(Record::kSize) {
      fromJson(call.require(in.name), call.at(in.name), shapeOf(layoutOf<Record>()),
               buffer_.data());
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
      call.put(out.name, toJson(shapeOf(layoutOf<Record>()), buffer_.data(),
                                {.omitsZeros = true, .escapesBytes = true}));
    }

   private:
    Buffer buffer_;
  };

  template <class C>
  void describe(std::vector<Parameter> &out) const {
    out.push_back({.name = name, .direction = Direction::kOut, .type = "platform record"});
  }
};

}  // namespace catalogue
