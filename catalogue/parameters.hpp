// How the parameters of exported functions meet JSON. A table names a function and describes each
// of its parameters; the C types come from the function itself:
//
//   method("get", PM_FUNCTION(pm_ubus_get_portinfo), "One Ethernet port.",
//          In{"portIndex"}, TextIn{"instance", 31}, RecordOut{})
#pragma once

#include <algorithm>
#include <cstring>
#include <memory>
#include <memory_resource>
#include <optional>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "catalogue/method.hpp"

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

template <class Pointer>
using Pointee = std::remove_const_t<std::remove_pointer_t<Pointer>>;

template <class Integer>
std::string integerType() {
  if constexpr (std::is_same_v<Integer, char>) return "character";
  return (std::is_signed_v<Integer> ? "int" : "uint") + std::to_string(8 * sizeof(Integer));
}

inline std::string textType(size_t size) {
  return "text[" + std::to_string(size) + "]";
}

inline Parameter argument(const char *name, std::string type) {
  return {.name = name, .direction = Direction::kIn, .type = std::move(type)};
}

/// An argument that may be left out.
inline Parameter option(const char *name, std::string type) {
  return {.name = name, .direction = Direction::kIn, .type = std::move(type), .isOptional = true};
}

inline Parameter result(const char *name, std::string type) {
  return {.name = name, .direction = Direction::kOut, .type = std::move(type)};
}

template <class Record>
Parameter argumentRecord(const char *name = nullptr) {
  return {.name = name == nullptr ? "" : name,
          .direction = Direction::kIn,
          .type = std::string(kShape<Record>.name),
          .shape = &kShape<Record>};
}

template <class Record>
Parameter resultRecord(const char *name = nullptr) {
  return {.name = name == nullptr ? "" : name,
          .direction = Direction::kOut,
          .type = std::string(kShape<Record>.name),
          .shape = &kShape<Record>};
}

// Each description `bind`s to a C type: an object that reads its argument when it is made, hands
// the value to the function, and puts what the function wrote into the answer.

/// Base of those that have nothing to put.
struct OnlyRead {
  template <class Description>
  void finish(const Description &, Call &) {}
};

/// An integer or a character, by value or behind a pointer to const.
struct In {
  const char *name;
  std::optional<int64_t> preset = std::nullopt;

  template <class C>
  class Bound : public OnlyRead {
   public:
    using Value = std::remove_const_t<std::remove_pointer_t<C>>;
    Bound(const In &in, Call &call) : value_(read(in, call)) {}
    C value() {
      if constexpr (std::is_pointer_v<C>) {
        return &value_;
      } else {
        return value_;
      }
    }

   private:
    static Value read(const In &in, Call &call) {
      if constexpr (std::is_same_v<Value, char>) {
        const std::string text = call.text(in.name, 1);
        return text.empty() ? '\0' : text[0];
      } else {
        return call.integer<Value>(in.name, in.preset);
      }
    }
    Value value_;
  };

  template <class C>
  void describe(std::vector<Parameter> &out) const {
    out.push_back((preset ? option : argument)(name, integerType<Pointee<C>>()));
  }
};

/// A terminated text of at most `longest` bytes.
struct TextIn {
  const char *name;
  size_t longest = 255;
  const char *preset = nullptr;

  template <class C>
  class Bound : public OnlyRead {
   public:
    Bound(const TextIn &in, Call &call) : text_(call.text(in.name, in.longest, in.preset)) {}
    C value() { return text_.c_str(); }

   private:
    std::string text_;
  };

  template <class C>
  void describe(std::vector<Parameter> &out) const {
    out.push_back((preset == nullptr ? argument : option)(name, textType(longest)));
  }
};

/// Six bytes of a MAC address.
struct MacIn {
  const char *name;

  template <class C>
  class Bound : public OnlyRead {
   public:
    Bound(const MacIn &in, Call &call) { call.mac(in.name, mac_); }
    C value() { return mac_; }

   private:
    uint8_t mac_[6];
  };

  template <class C>
  void describe(std::vector<Parameter> &out) const {
    out.push_back(argument(name, "MAC"));
  }
};

/// A record, by pointer or by value; without a name its members are arguments of their own.
struct RecordIn {
  const char *name = nullptr;

  template <class C>
  class Bound : public OnlyRead {
   public:
    using Record = Pointee<C>;
    Bound(const RecordIn &in, Call &call) : buffer_(kShape<Record>.allocation()) {
      call.record(in.name, kShape<Record>, buffer_.data());
    }
    C value() {
      if constexpr (std::is_pointer_v<C>) {
        return buffer_.as<C>();
      } else {
        return *buffer_.as<C *>();
      }
    }

   private:
    Buffer buffer_;
  };

  template <class C>
  void describe(std::vector<Parameter> &out) const {
    out.push_back(argumentRecord<Pointee<C>>(name));
  }
};

/// A zeroed record that the handler fills; members marked input() are arguments as well.
struct RecordOut {
  const char *name = nullptr;

  template <class C>
  class Bound {
   public:
    using Record = Pointee<C>;
    Bound(const RecordOut &, Call &call) : buffer_(kShape<Record>.allocation()) {
      call.inputs(kShape<Record>, buffer_.data());
    }
    C value() { return buffer_.as<C>(); }
    void finish(const RecordOut &out, Call &call) {
      call.putRecord(out.name, kShape<Record>, buffer_.data());
    }

   private:
    Buffer buffer_;
  };

  template <class C>
  void describe(std::vector<Parameter> &out) const {
    out.push_back(resultRecord<Pointee<C>>(name));
  }
};

/// A word that the handler writes.
struct Out {
  const char *name;

  template <class C>
  class Bound {
   public:
    Bound(const Out &, Call &) {}
    C value() { return &value_; }
    void finish(const Out &out, Call &call) {
      if constexpr (std::is_signed_v<Pointee<C>>) {
        call.putInteger(out.name, value_);
      } else {
        call.putUnsigned(out.name, value_);
      }
    }

   private:
    Pointee<C> value_ = 0;
  };

  template <class C>
  void describe(std::vector<Parameter> &out) const {
    out.push_back(result(name, integerType<Pointee<C>>()));
  }
};

/// A word that the handler reads and writes.
struct InOut {
  const char *name;
  std::optional<int64_t> preset = 0;

  template <class C>
  class Bound {
   public:
    Bound(const InOut &out, Call &call) : value_(call.integer<Pointee<C>>(out.name, out.preset)) {}
    C value() { return &value_; }
    void finish(const InOut &out, Call &call) {
      if constexpr (std::is_signed_v<Pointee<C>>) {
        call.putInteger(out.name, value_);
      } else {
        call.putUnsigned(out.name, value_);
      }
    }

   private:
    Pointee<C> value_;
  };

  template <class C>
  void describe(std::vector<Parameter> &out) const {
    out.push_back({.name = name,
                   .direction = Direction::kInOut,
                   .type = integerType<Pointee<C>>(),
                   .isOptional = preset.has_value()});
  }
};

/// A zeroed text of `size` bytes that the handler writes.
struct TextOut {
  const char *name;
  size_t size = 32;
  bool isSecret = false;

  template <class C>
  class Bound {
   public:
    Bound(const TextOut &out, Call &) : buffer_(out.size) {}
    C value() { return buffer_.as<C>(); }
    void finish(const TextOut &out, Call &call) {
      call.putText(out.name, boundedText(buffer_.data(), out.size), out.isSecret);
    }

   private:
    Buffer buffer_;
  };

  template <class C>
  void describe(std::vector<Parameter> &out) const {
    out.push_back(
        {.name = name, .direction = Direction::kOut, .type = textType(size), .isSecret = isSecret});
  }
};

/// A text that the function changes in place.
struct TextInOut {
  const char *name;
  size_t size = 256;

  template <class C>
  class Bound {
   public:
    Bound(const TextInOut &out, Call &call) : buffer_(out.size) {
      const std::string text = call.text(out.name, out.size - 1);
      std::memcpy(buffer_.data(), text.data(), text.size());
    }
    C value() { return buffer_.as<C>(); }
    void finish(const TextInOut &out, Call &call) {
      call.putText(out.name, boundedText(buffer_.data(), out.size));
    }

   private:
    Buffer buffer_;
  };

  template <class C>
  void describe(std::vector<Parameter> &out) const {
    out.push_back({.name = name, .direction = Direction::kInOut, .type = textType(size)});
  }
};

/// `size` bytes that the handler writes, printed as hexadecimal digits.
struct BytesOut {
  const char *name;
  size_t size;

  template <class C>
  class Bound {
   public:
    Bound(const BytesOut &out, Call &) : buffer_(out.size) {}
    C value() { return buffer_.as<C>(); }
    void finish(const BytesOut &out, Call &call) {
      static constexpr char kDigits[] = "0123456789abcdef";
      std::string text;
      for (size_t i = 0; i < out.size; ++i) {
        const uint8_t byte = buffer_.as<const uint8_t *>()[i];
        text += {kDigits[byte >> 4], kDigits[byte & 15]};
      }
      call.putText(out.name, text);
    }

   private:
    Buffer buffer_;
  };

  template <class C>
  void describe(std::vector<Parameter> &out) const {
    out.push_back(result(name, "bytes[" + std::to_string(size) + "]"));
  }
};

/// An array of records; the parameter Count says how many.
struct RowsIn {
  const char *name;
  uint32_t capacity;

  template <class C>
  class Bound : public OnlyRead {
   public:
    using Record = Pointee<C>;
    Bound(const RowsIn &in, Call &call)
        : count_(call.rowCount(in.name, in.capacity)), buffer_(count_ * sizeof(Record)) {
      for (uint32_t i = 0; i < count_; ++i) {
        call.row(in.name, i, kShape<Record>, buffer_.as<Record *>() + i);
      }
      call.rows = static_cast<int32_t>(count_);
    }
    C value() { return buffer_.as<C>(); }

   private:
    uint32_t count_;
    Buffer buffer_;
  };

  template <class C>
  void describe(std::vector<Parameter> &out) const {
    out.push_back(argumentRecord<Pointee<C>>(name));
    out.back().isRows = true;
  }
};

/// An array of `capacity` records that the handler fills; the parameter Count says how many.
struct RowsOut {
  const char *name;
  uint32_t capacity;

  template <class C>
  class Bound {
   public:
    using Record = Pointee<C>;
    Bound(const RowsOut &out, Call &) : buffer_(out.capacity * sizeof(Record)) {}
    C value() { return buffer_.as<C>(); }
    void finish(const RowsOut &out, Call &call) {
      const auto count = static_cast<uint32_t>(call.rows < 0 ? 0 : call.rows);
      call.putRows(out.name, kShape<Record>, buffer_.data(), std::min(count, out.capacity));
    }

   private:
    Buffer buffer_;
  };

  template <class C>
  void describe(std::vector<Parameter> &out) const {
    out.push_back(resultRecord<Pointee<C>>(name));
    out.back().isRows = true;
  }
};

/// Number of the rows beside it, by value or behind a pointer.
struct Count {
  template <class C>
  class Bound : public OnlyRead {
   public:
    Bound(const Count &, Call &call) : call_(&call) {}
    C value() {
      if constexpr (std::is_pointer_v<C>) {
        return &call_->rows;
      } else {
        return static_cast<C>(call_->rows);
      }
    }

   private:
    Call *call_;
  };

  template <class C>
  void describe(std::vector<Parameter> &) const {}
};

/// Zeroed working storage that the function asks for and nobody reads.
struct Scratch {
  size_t size;

  template <class C>
  class Bound : public OnlyRead {
   public:
    Bound(const Scratch &scratch, Call &) : buffer_(scratch.size) {}
    C value() { return buffer_.as<C>(); }

   private:
    Buffer buffer_;
  };

  template <class C>
  void describe(std::vector<Parameter> &) const {}
};

/// A method whose parameters are described one by one, in the prototype's order.
template <class Result, class... C, class... Description>
Method method(const char *name, const char *function, Result (*call)(C...), const char *summary,
              Description... description) {
  static_assert(sizeof...(C) == sizeof...(Description), "each parameter needs its description");
  Method entry{.name = name, .function = function, .summary = summary};
  (description.template describe<C>(entry.parameters), ...);
  entry.invoke = [call, description...](Call &context) -> int64_t {
    // Braces: arguments are read from left to right.
    std::tuple<typename Description::template Bound<C>...> bound{
        typename Description::template Bound<C>(description, context)...};
    const auto invoke = [call](auto &...parameter) {
      return callExport(call, parameter.value()...);
    };
    const auto finish = [&](auto &...parameter) { (parameter.finish(description, context), ...); };
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
Method method(const char *function, Result (*call)(C...), const char *summary,
              Description... description) {
  return method(function, function, call, summary, description...);
}

/// A method whose call is a function of its own; `parameters` describes what it reads and puts.
Method customMethod(const char *name, const char *function, const char *summary,
                    std::vector<Parameter> parameters, std::function<int64_t(Call &)> invoke);

}  // namespace catalogue
