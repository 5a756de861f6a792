// The passage of one call, made from its prototype: what it is about, what it may not be given,
// how it fails, and what it says of lists and replies follows from the parameters' types and names.
#pragma once

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <span>
#include <string>
#include <tuple>

#include "boundary/boundary.hpp"
#include "boundary/names.hpp"
#include "boundary/reply.hpp"
#include "platform/config_database.h"
#include "platform/host.h"
#include "platform/layout.hpp"
#include "platform/wan.h"
#include "records/row.hpp"

namespace boundary {

/// What a failing call leaves where it should have written a number.
inline constexpr int kLeftBehind = 0x5a;

struct Parameter {
  std::string_view name;
  uint32_t elements; /**< of an array whose prototype says how many it has, else 0 */
};

/// What stands in the key for a parameter; nothing for those that say how rather than what.
using KeyPart = std::optional<std::string>;
KeyPart keyOf(const Parameter &parameter, uint64_t number);
KeyPart keyOf(const Parameter &parameter, const char *given);
KeyPart keyOf(const Parameter &parameter, const uint8_t *bytes);
KeyPart keyOf(const Parameter &parameter, const platform::UpModeInfo *uplink);
/// The text with which a request begins, if it begins with one: it names what the request is about.
KeyPart keyOfRequest(const void *request, uint32_t length);

/// A record that says no more than which station it is about.
template <class Record>
KeyPart keyOfStation(const Record *record) {
  if (record == nullptr) return {};
  const records::Row row(records::layoutOf<Record>(), const_cast<uint8_t *>(record->bytes));
  if (row.mark(Record::macText) == 0) return {};
  return row.text(Record::macText);
}

/// What a call answers when it fails by itself, where that is a status.
int32_t naturalFailure(std::string_view name);

/// Whether the call is a getter of numbers.
bool delivers(std::string_view name);

/// Throws Refusal for a path that no path of the platform can be.
void checkPath(const Parameter &parameter, const char *given);

template <class Type>
KeyPart keyOfArgument(const Parameter &parameter, Type argument) {
  if constexpr (std::is_integral_v<Type>) {
    return keyOf(parameter,
                 static_cast<uint64_t>(static_cast<std::make_unsigned_t<Type>>(argument)));
  } else if constexpr (std::is_same_v<Type, const char *> ||
                       std::is_same_v<Type, const uint8_t *> ||
                       std::is_same_v<Type, const platform::UpModeInfo *>) {
    return keyOf(parameter, argument);
  } else if constexpr (requires { std::remove_pointer_t<Type>::macText; }) {
    return keyOfStation(argument);
  } else {
    return {};
  }
}

/// A list that says how many it found: the word that says so.
template <class List>
requires requires(List list) {
  list.dwCount;
}
uint32_t *countOf(List *list) {
  return &list->dwCount;
}

template <class Record>
requires requires {
  Record::count.offset;
}
uint32_t *countOf(Record *record) {
  return reinterpret_cast<uint32_t *>(record->bytes + Record::count.offset);
}

template <class Record>
requires requires {
  Record::entryCount.offset;
}
uint32_t *countOf(Record *record) {
  return reinterpret_cast<uint32_t *>(record->bytes + Record::entryCount.offset);
}

/// How one call goes through: `parameters` and `arguments` run beside each other.
template <class Result, class... Arguments>
class Crossing {
 public:
  using Platform = Result (*)(Arguments...);
  using Parameters = std::array<Parameter, sizeof...(Arguments)>;

  Crossing(const char *name, const Parameters &parameters, const Arguments &...arguments)
      : name_(name), passage_(name, key(parameters, arguments...), kKind) {}

  Result make(Platform platform, const Parameters &parameters, Arguments... arguments) {
    const auto work = [&] {
      checkArguments(parameters, arguments...);
      return platform(arguments...);
    };
    if constexpr (std::is_void_v<Result>) {
      passage_.template run<int32_t>(kFailed, [&] {
        work();
        return kOk;
      });
    } else {
      const Result result = answered(work, natural(), arguments...);
      if constexpr (kKind == Passage::Kind::kFallible) passage_.answered(result);
      return result;
    }
  }

 private:
  /// Nobody asks these for a status: they cannot be made to fail.
  static constexpr auto kKind = std::is_void_v<Result> || std::is_same_v<Result, char *>
                                    ? Passage::Kind::kInfallible
                                    : Passage::Kind::kFallible;

  auto natural() const {
    if constexpr (std::is_pointer_v<Result>) {
      return Result{nullptr};
    } else {
      return naturalFailure(name_);
    }
  }

  static std::string key(const Parameters &parameters, const Arguments &...arguments) {
    std::string all;
    size_t next = 0;
    bool isFirst = true;
    const auto append = [&](const KeyPart &part) {
      if (!part) return;
      all += (isFirst ? "" : " ") + *part;
      isFirst = false;
    };
    (append(keyOfArgument(parameters[next++], arguments)), ...);
    appendRequest(std::tuple(arguments...), append, std::index_sequence_for<Arguments...>());
    return all;
  }

  template <class Append, size_t... Index>
  static void appendRequest(const std::tuple<Arguments...> &all, const Append &append,
                            std::index_sequence<Index...>) {
    [[maybe_unused]] const auto look = [&]<size_t At>() {
      if constexpr (At + 1 < sizeof...(Arguments)) {
        using First = std::tuple_element_t<At, std::tuple<Arguments...>>;
        using Second = std::tuple_element_t<At + 1, std::tuple<Arguments...>>;
        if constexpr (std::is_same_v<First, const void *> && std::is_same_v<Second, uint32_t>) {
          append(keyOfRequest(std::get<At>(all), std::get<At + 1>(all)));
        }
      }
    };
    (look.template operator()<Index>(), ...);
  }

  template <class Work, class Value>
  Value answered(Work work, Value failing, Arguments... arguments) {
    Fault *fault = passage_.fault();
    if (fault == nullptr) return passage_.template run<Value>(failing, work);
    if (fault->count) {
      const Value result = passage_.template run<Value>(failing, work);
      (falsifyCount(*fault, arguments), ...);
      falsifyText(*fault, std::tuple(arguments...));
      return result;
    }
    if constexpr (!std::is_same_v<Value, int32_t>) {
      return failing;
    } else {
      if (fault->workDone) passage_.template run<Value>(failing, work);
      if (!fault->workDone && delivers(name_)) (spoil(arguments), ...);
      if (fault->replyStatus || fault->replyLength) {
        writeFaultyReply(*fault, std::tuple(arguments...));
        return answer(*fault, kOk);
      }
      return answer(*fault, failing);
    }
  }

  template <class Argument>
  static void falsifyCount(Fault &fault, Argument argument) {
    if constexpr (requires { countOf(argument); }) {
      *countOf(argument) = static_cast<uint32_t>(*fault.count);
      ++fault.fired;
    }
  }

  /// A count makes a text of that many letters; one that fills its room has no end.
  static void falsifyText(Fault &fault, const std::tuple<Arguments...> &arguments) {
    constexpr size_t kCount = sizeof...(Arguments);
    if constexpr (kCount >= 2) {
      using Text = std::tuple_element_t<kCount - 2, std::tuple<Arguments...>>;
      using Length = std::tuple_element_t<kCount - 1, std::tuple<Arguments...>>;
      if constexpr (std::is_same_v<Text, char *> && std::is_same_v<Length, uint32_t>) {
        const auto letters = static_cast<uint32_t>(*fault.count);
        std::memset(std::get<kCount - 2>(arguments), 'f',
                    std::min(letters, std::get<kCount - 1>(arguments)));
        ++fault.fired;
      }
    }
  }

  /// A call that fails promises nothing about a number's room.
  template <class Argument>
  static void spoil(Argument argument) {
    if constexpr (std::is_pointer_v<Argument>) {
      using Value = std::remove_pointer_t<Argument>;
      constexpr bool kIsNumber = std::is_same_v<Value, int32_t> || std::is_same_v<Value, uint32_t>;
      if constexpr (kIsNumber || std::is_same_v<Value, platform::MemInfo>) {
        if (argument != nullptr) std::memset(argument, kLeftBehind, sizeof *argument);
      }
    }
  }

  static void checkArguments(const Parameters &parameters, const Arguments &...arguments) {
    size_t next = 0;
    (checkArgument(parameters[next++], arguments), ...);
  }

  template <class Argument>
  static void checkArgument(const Parameter &parameter, Argument argument) {
    if constexpr (std::is_pointer_v<Argument>) {
      // A message may be empty.
      constexpr bool kMayBeNull = std::is_same_v<Argument, const void *>;
      if (argument == nullptr && !kMayBeNull) {
        throw Refusal(kNullArgument, "no " + std::string(parameter.name));
      }
      if constexpr (std::is_same_v<Argument, const char *>) checkPath(parameter, argument);
    }
  }

  const char *const name_;
  Passage passage_;
};

template <class Result, class... Arguments>
Result pass(const char *name, const std::array<Parameter, sizeof...(Arguments)> &parameters,
            Result (*platform)(Arguments...), std::type_identity_t<Arguments>... arguments) {
  Crossing<Result, Arguments...> crossing(name, parameters, arguments...);
  return crossing.make(platform, parameters, arguments...);
}

}  // namespace boundary
