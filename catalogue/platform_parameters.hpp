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
  Buffer read(Call &call) const {
    Buffer given(Record::kSize);
    fromJson(call.require(name), call.at(name), shapeOf(layoutOf<Record>()), given.data());
    return given;
  }
  template <class C>
  Parameter describe() const {
    return argument(name, "platform record");
  }
};

/// A platform record that the function fills; fields that are zero are not printed.
template <class Record>
struct PlatformOut {
  const char *name;

  template <class C>
  Buffer read(Call &) const {
    return Buffer(Record::kSize);
  }
  template <class C>
  void put(Buffer &held, Call &call) const {
    call.put(name, toJson(shapeOf(layoutOf<Record>()), held.data(),
                          {.omitsZeros = true, .escapesBytes = true}));
  }
  template <class C>
  Parameter describe() const {
    return result(name, "platform record");
  }
};

}  // namespace catalogue
