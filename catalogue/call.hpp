// One call in flight: the user's arguments going in, the answer coming out.
#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <string>

#include "records/codec.hpp"

namespace catalogue {

using namespace records;

struct Answer;

class Call {
 public:
  /// `where` stands in front of what is wrong with the arguments.
  Call(std::string where, const Json &arguments, Answer &answer, Secrets &secrets)
      : where_(std::move(where)), arguments_(arguments), answer_(answer), secrets_(secrets) {}

  bool has(const char *name) const;
  [[noreturn]] void refuse(const char *name, const std::string &why) const;

  /// What the user gave under `name`.
  const Json &require(const char *name) const;
  /// The place of an argument, for those who find fault with it.
  std::string at(const char *name) const;
  /// The integer `name`, or the preset when the user does not give it.
  template <class Integer>
  Integer integer(const char *name, std::optional<int64_t> preset = std::nullopt) const;
  /// A text of at most `longest` bytes, or the preset where there is one.
  std::string text(const char *name, size_t longest, const char *preset = nullptr) const;
  void hide(const std::string &secret) { secrets_.insert(secret); }
  /// Six pairs of hexadecimal digits, with or without ":".
  void mac(const char *name, uint8_t out[6]) const;
  /// The record under `name`; without a name its members stand among the arguments themselves.
  void record(const char *name, const Shape &shape, void *out);
  /// The members of an answering record that its handler reads.
  void inputs(const Shape &shape, void *out);
  uint32_t rowCount(const char *name, uint32_t capacity) const;
  void row(const char *name, uint32_t index, const Shape &shape, void *out);

  void put(const char *name, const Json &value);
  template <class Integer>
  void putNumber(const char *name, Integer value);
  void putText(const char *name, std::string_view value, bool secret = false);
  /// `json` as it stands; a text that is no JSON is put as text.
  void putJson(const char *name, const char *json);
  /// Under `name`, or without one among the members of the answer itself.
  void putRecord(const char *name, const Shape &shape, const void *record);
  void putRows(const char *name, const Shape &shape, const void *records, uint32_t count);

  /// Sees each record that the library is to read, when it is complete.
  std::function<void(const Shape &, void *)> onRecord;
  /// For those who fill a record by themselves.
  void handOver(const Shape &shape, void *record) const {
    if (onRecord) onRecord(shape, record);
  }

  /// The count of the rows that travel beside it as another parameter.
  int32_t rows = 0;

 private:
  int64_t signedInteger(const char *name, int64_t min, int64_t max) const;
  uint64_t unsignedInteger(const char *name, uint64_t max) const;
  void putSigned(const char *name, int64_t value);
  void putUnsigned(const char *name, uint64_t value);

  std::string where_;
  const Json &arguments_;
  Answer &answer_;
  Secrets &secrets_;
};

template <class Integer>
Integer Call::integer(const char *name, std::optional<int64_t> preset) const {
  if (preset && !has(name)) return static_cast<Integer>(*preset);
  using Limits = std::numeric_limits<Integer>;
  if constexpr (Limits::is_signed) {
    return static_cast<Integer>(signedInteger(name, Limits::min(), Limits::max()));
  } else {
    return static_cast<Integer>(unsignedInteger(name, Limits::max()));
  }
}

template <class Integer>
void Call::putNumber(const char *name, Integer value) {
  if constexpr (std::is_signed_v<Integer>) {
    putSigned(name, value);
  } else {
    putUnsigned(name, value);
  }
}

}  // namespace catalogue
