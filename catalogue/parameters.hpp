// How the parameters of exported functions meet JSON. A table names a function and describes each
// of its parameters; the C types come from the function itself:
//
//   method("get", PM_FUNCTION(pm_ubus_get_portinfo), In{"portIndex"}, TextIn{"instance", 31},
//          RecordOut{})
//       .example(R"({"portIndex": 0, "instance": "IGD.LD1.ETH1"})")
#pragma once

#include <algorithm>
#include <cstring>
#include <memory_resource>
#include <optional>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "catalogue/method.hpp"
#include "records/addresses.hpp"

#define PM_FUNCTION(function) #function, &::function

namespace catalogue {

/// Called right before an export is entered and right after it has returned.
class CallObserver {
 public:
  static void onCall(void (*entering)(), void (*returned)()) {
    entering_ = entering;
    returned_ = returned;
  }

  CallObserver() {
    if (entering_ != nullptr) entering_();
  }
  ~CallObserver() {
    if (returned_ != nullptr) returned_();
  }

 private:
  static inline void (*entering_)() = nullptr;
  static inline void (*returned_)() = nullptr;
};

/// The one place where the catalogue's methods enter the library.
template <class Result, class... C>
Result callExport(Result (*function)(C...), std::type_identity_t<C>... arguments) {
  const CallObserver observer;
  return function(arguments...);
}

// The bytes that a handler reads or writes, and not one more. They lie where the default memory
// resource puts them, aligned like the daemon's records as all memory for general use is.
class Buffer {
 public:
  explicit Buffer(size_t size) : bytes_(std::max<size_t>(size, 1)), size_(size) {}
  Buffer(const void *content, size_t size) : Buffer(size) { std::memcpy(data(), content, size); }
  template <class Pointer>
  Pointer as() {
    return reinterpret_cast<Pointer>(bytes_.data());
  }
  void *data() { return bytes_.data(); }
  size_t size() const { return size_; }

 private:
  std::pmr::vector<uint8_t> bytes_;
  size_t size_;
};

template <class C>
using Pointee = std::remove_const_t<std::remove_pointer_t<C>>;

template <class Integer>
std::string integerType() {
  if constexpr (std::is_same_v<Integer, char>) return "character";
  return (std::is_signed_v<Integer> ? "int" : "uint") + std::to_string(8 * sizeof(Integer));
}

inline std::string textType(size_t size) {
  return "text[" + std::to_string(size) + "]";
}

inline Parameter parameter(Direction direction, const char *name, std::string type) {
  return {.name = name, .direction = direction, .type = std::move(type)};
}

inline Parameter argument(const char *name, std::string type) {
  return parameter(Direction::kIn, name, std::move(type));
}

inline Parameter result(const char *name, std::string type) {
  return parameter(Direction::kOut, name, std::move(type));
}

/// What may be left out.
inline Parameter optional(Parameter described) {
  described.isOptional = true;
  return described;
}

template <class Record>
Parameter record(Direction direction, const char *name = nullptr) {
  return {.name = name == nullptr ? "" : name,
          .direction = direction,
          .type = std::string(kShape<Record>.name),
          .shape = &kShape<Record>};
}

template <class Record>
Parameter rows(Direction direction, const char *name) {
  Parameter described = record<Record>(direction, name);
  described.isRows = true;
  return described;
}

// What follows are the kinds of descriptions. For a parameter of type C each can
//   read<C>(call)       make what the parameter points to, or is: from an argument, or zeroed
//   put<C>(held, call)  put what the function left there into the answer
//   describe<C>()       say this to those who list or check the arguments
// and leaves out what it has no use for.

/// An integer or a character, by value or behind a pointer to const.
struct In {
  const char *name;
  std::optional<int64_t> preset = std::nullopt;

  template <class C>
  Buffer read(Call &call) const {
    Pointee<C> value = 0;
    if constexpr (std::is_same_v<Pointee<C>, char>) {
      value = *call.text(name, 1).c_str();
    } else {
      value = call.integer<Pointee<C>>(name, preset);
    }
    return {&value, sizeof value};
  }
  template <class C>
  Parameter describe() const {
    const Parameter described = argument(name, integerType<Pointee<C>>());
    return preset ? optional(described) : described;
  }
};

/// A word that the handler writes.
struct Out {
  const char *name;

  template <class C>
  Buffer read(Call &) const {
    return Buffer(sizeof(Pointee<C>));
  }
  template <class C>
  void put(Buffer &held, Call &call) const {
    call.putNumber(name, *held.as<C>());
  }
  template <class C>
  Parameter describe() const {
    return result(name, integerType<Pointee<C>>());
  }
};

/// A word that the handler reads and writes.
struct InOut {
  const char *name;
  std::optional<int64_t> preset = 0;

  template <class C>
  Buffer read(Call &call) const {
    return In{name, preset}.read<C>(call);
  }
  template <class C>
  void put(Buffer &held, Call &call) const {
    Out{name}.put<C>(held, call);
  }
  template <class C>
  Parameter describe() const {
    Parameter described = In{name, preset}.describe<C>();
    described.direction = Direction::kInOut;
    return described;
  }
};

/// A terminated text of at most `longest` bytes.
struct TextIn {
  const char *name;
  size_t longest = 255;
  const char *preset = nullptr;

  template <class C>
  Buffer read(Call &call) const {
    const std::string text = call.text(name, longest, preset);
    return {text.c_str(), text.size() + 1};
  }
  template <class C>
  Parameter describe() const {
    const Parameter described = argument(name, textType(longest));
    return preset == nullptr ? described : optional(described);
  }
};

/// A zeroed text of `size` bytes that the handler writes.
struct TextOut {
  const char *name;
  size_t size = 32;
  bool isSecret = false;

  template <class C>
  Buffer read(Call &) const {
    return Buffer(size);
  }
  template <class C>
  void put(Buffer &held, Call &call) const {
    call.putText(name, boundedText(held.data(), size), isSecret);
  }
  template <class C>
  Parameter describe() const {
    Parameter described = result(name, textType(size));
    described.isSecret = isSecret;
    return described;
  }
};

/// A text that the function changes in place.
struct TextInOut {
  const char *name;
  size_t size = 256;

  template <class C>
  Buffer read(Call &call) const {
    std::string text = call.text(name, size - 1);
    text.resize(size);
    return {text.data(), size};
  }
  template <class C>
  void put(Buffer &held, Call &call) const {
    TextOut{name, size}.put<C>(held, call);
  }
  template <class C>
  Parameter describe() const {
    return parameter(Direction::kInOut, name, textType(size));
  }
};

/// Six bytes of a MAC address.
struct MacIn {
  const char *name;

  template <class C>
  Buffer read(Call &call) const {
    Buffer mac(6);
    call.mac(name, mac.as<uint8_t *>());
    return mac;
  }
  template <class C>
  Parameter describe() const {
    return argument(name, "MAC");
  }
};

/// `size` bytes that the handler writes, printed as hexadecimal digits.
struct BytesOut {
  const char *name;
  size_t size;

  template <class C>
  Buffer read(Call &) const {
    return Buffer(size);
  }
  template <class C>
  void put(Buffer &held, Call &call) const {
    const auto *bytes = held.as<const uint8_t *>();
    call.putText(name, printHex({bytes, bytes + size}));
  }
  template <class C>
  Parameter describe() const {
    return result(name, "bytes[" + std::to_string(size) + "]");
  }
};

/// A record, by pointer or by value; without a name its members are arguments of their own.
struct RecordIn {
  const char *name = nullptr;

  template <class C>
  Buffer read(Call &call) const {
    Buffer given(kShape<Pointee<C>>.allocation());
    call.record(name, kShape<Pointee<C>>, given.data());
    return given;
  }
  template <class C>
  Parameter describe() const {
    return record<Pointee<C>>(Direction::kIn, name);
  }
};

/// A zeroed record that the handler fills; members marked input() are arguments as well.
struct RecordOut {
  const char *name = nullptr;

  template <class C>
  Buffer read(Call &call) const {
    Buffer asked(kShape<Pointee<C>>.allocation());
    call.inputs(kShape<Pointee<C>>, asked.data());
    return asked;
  }
  template <class C>
  void put(Buffer &held, Call &call) const {
    call.putRecord(name, kShape<Pointee<C>>, held.data());
  }
  template <class C>
  Parameter describe() const {
    return record<Pointee<C>>(Direction::kOut, name);
  }
};

/// An array of records; the parameter Count says how many.
struct RowsIn {
  const char *name;
  uint32_t capacity;

  template <class C>
  Buffer read(Call &call) const {
    using Row = Pointee<C>;
    const uint32_t count = call.rowCount(name, capacity);
    Buffer given(count * sizeof(Row));
    for (uint32_t i = 0; i < count; ++i) call.row(name, i, kShape<Row>, given.as<Row *>() + i);
    call.rows = static_cast<int32_t>(count);
    return given;
  }
  template <class C>
  Parameter describe() const {
    return rows<Pointee<C>>(Direction::kIn, name);
  }
};

/// An array of `capacity` records that the handler fills; the parameter Count says how many.
struct RowsOut {
  const char *name;
  uint32_t capacity;

  template <class C>
  Buffer read(Call &) const {
    return Buffer(capacity * sizeof(Pointee<C>));
  }
  template <class C>
  void put(Buffer &held, Call &call) const {
    const auto count = static_cast<uint32_t>(std::max(call.rows, 0));
    call.putRows(name, kShape<Pointee<C>>, held.data(), std::min(count, capacity));
  }
  template <class C>
  Parameter describe() const {
    return rows<Pointee<C>>(Direction::kOut, name);
  }
};

/// Number of the rows beside it, by value or behind a pointer.
struct Count {
  template <class C>
  int32_t *read(Call &call) const {
    return &call.rows;
  }
};

/// Zeroed working storage that the function asks for and nobody reads.
struct Scratch {
  size_t size;

  template <class C>
  Buffer read(Call &) const {
    return Buffer(size);
  }
};

/// What a description has read, as its parameter.
template <class C, class Held>
C passed(Held &held) {
  void *place = nullptr;
  if constexpr (std::is_pointer_v<Held>) {
    place = held;
  } else {
    place = held.data();
  }
  if constexpr (std::is_pointer_v<C>) {
    return static_cast<C>(place);
  } else {
    return *static_cast<C *>(place);
  }
}

template <class C, class Description>
void addTo(std::vector<Parameter> &parameters, const Description &description) {
  if constexpr (requires { description.template describe<C>(); }) {
    parameters.push_back(description.template describe<C>());
  }
}

template <class C, class Description, class Held>
void putInto(Call &call, const Description &description, Held &held) {
  if constexpr (requires { description.template put<C>(held, call); }) {
    description.template put<C>(held, call);
  }
}

/// A method whose parameters are described one by one, in the prototype's order.
template <class Result, class... C, class... Description>
Method method(const char *name, const char *function, Result (*call)(C...),
              Description... description) {
  static_assert(sizeof...(C) == sizeof...(Description), "each parameter needs its description");
  Method entry(name, function);
  (addTo<C>(entry.parameters, description), ...);
  entry.invoke = [call, description...](Call &context) -> int64_t {
    // Braces: arguments are read from left to right.
    std::tuple bound{description.template read<C>(context)...};
    const auto invoke = [call](auto &...held) { return callExport(call, passed<C>(held)...); };
    const auto finish = [&](auto &...held) { (putInto<C>(context, description, held), ...); };
    int64_t result = 0;
    if constexpr (std::is_void_v<Result>) {
      std::apply(invoke, bound);
    } else {
      // Statuses travel as signed 32-bit words, whatever the prototype calls them.
      result = static_cast<int32_t>(std::apply(invoke, bound));
    }
    std::apply(finish, bound);
    return result;
  };
  return entry;
}

/// The same under the name of the function itself.
template <class Result, class... C, class... Description>
Method method(const char *function, Result (*call)(C...), Description... description) {
  return method(function, function, call, description...);
}

/// A method whose call is a function of its own; `parameters` describes what it reads and puts.
Method customMethod(const char *name, const char *function, std::vector<Parameter> parameters,
                    std::function<int64_t(Call &)> invoke);

}  // namespace catalogue
