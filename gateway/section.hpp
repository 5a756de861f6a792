// A family's part of the gateway: its state, and its member of the profile.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "records/codec.hpp"
#include "records/json.hpp"
#include "records/shape.hpp"

namespace gateway {

using namespace records;

/// A text without zeros; throws InputError.
std::string textIn(const Json &value, const std::string &place);

/// One object of the profile while it is read. Every member must be taken; the others are refused.
class Members {
 public:
  /// Throws InputError unless `value` is an object.
  Members(const Json &value, std::string place);

  const std::string &place() const { return place_; }
  std::string placeOf(std::string_view member) const;

  /// The member, or nullptr when the profile leaves it out.
  const Json *take(std::string_view member);
  void word(std::string_view member, uint32_t *out);
  void number(std::string_view member, int64_t *out);
  void flag(std::string_view member, bool *out);
  void text(std::string_view member, std::string *out);
  /// Reads an array of any kind of element.
  void each(std::string_view member,
            const std::function<void(const Json &element, const std::string &place)> &read);
  /// One of `choices`, as its position.
  void choice(std::string_view member, const std::vector<std::string_view> &choices, uint32_t *out);

  /// Throws InputError for a member that nobody took.
  void finish() const;

 private:
  const Json &value_;
  std::string place_;
  std::vector<std::string> taken_;
};

/// Lives at namespace scope in its family's file and announces itself to the gateway.
class Section {
 public:
  explicit Section(std::string_view name);
  virtual ~Section() = default;
  Section(const Section &) = delete;
  Section &operator=(const Section &) = delete;

  std::string_view name() const { return name_; }

  /// Takes over the family's member of a profile; the section was reset before.
  virtual void load(const Json &value, const std::string &place) = 0;
  /// The same form; null when there is nothing to keep.
  virtual Json save() const = 0;
  virtual void reset() = 0;
  /// The whole profile is loaded, whether or not it has the family's member; throws InputError when
  /// its parts do not go together.
  virtual void complete() {}

  /// For the schema; nullptr for a section without a table.
  virtual const char *description() const { return nullptr; }
  virtual const Shape *shape() const { return nullptr; }

  static const std::vector<Section *> &all();

 private:
  std::string_view name_;
};

/// A section that is one structure with a table of its members.
class TableSection : public Section {
 public:
  TableSection(std::string_view name, const char *description)
      : Section(name), description_(description) {}

  const char *description() const override { return description_; }
  void load(const Json &value, const std::string &place) override;
  /// What a profile named is kept even where it says what a reset leaves: that it is there may be
  /// all that matters.
  Json save() const override;
  void reset() override { isNamed_ = false; }

 private:
  virtual void *data() const = 0;
  /// The structure as a reset leaves it.
  virtual const void *untouched() const = 0;
  virtual void loaded(const std::string &place) = 0;
  virtual void saving() const = 0;

  const char *description_;
  bool isNamed_ = false;
};

/// Lives at namespace scope in its family's file and announces itself to the gateway:
///
///   struct Host { uint32_t cpuType = 3; uint32_t flashSize = 0; };       // host.hpp
///
///   PM_RECORD(gateway::Host, PM_FIELD(cpuType).means("number of the processor model, 1 to 5"),
///             PM_FIELD(flashSize).means(platform::unit("KiB")));          // host.cpp
///   namespace gateway {
///   SectionOf<Host> section{"host", "Processor, memory and kinds of uplink"};
///   Host &host() { return section.state(); }
///   }
///
/// What a profile may say, what is saved, what a reset leaves and the schema follow from the table
/// and from the members' own defaults.
template <class State>
class SectionOf : public TableSection {
 public:
  /// Called with what was loaded, to check or complete it (throws InputError), and with what is to
  /// be saved.
  struct Hooks {
    void (*loaded)(State &state, const std::string &place) = nullptr;
    void (*saving)(State &state) = nullptr;
    /// Called when the whole profile is loaded, whether or not it has the section's member.
    void (*complete)(State &state) = nullptr;
  };

  SectionOf(std::string_view name, const char *description, Hooks hooks = {})
      : TableSection(name, description), hooks_(hooks) {}

  State &state() { return state_; }
  const Shape *shape() const override { return &kShape<State>; }
  void reset() override {
    TableSection::reset();
    state_ = State();
  }
  void complete() override {
    if (hooks_.complete != nullptr) hooks_.complete(state_);
  }

 private:
  void *data() const override { return &state_; }
  const void *untouched() const override {
    static const State state;
    return &state;
  }
  void loaded(const std::string &place) override {
    if (hooks_.loaded != nullptr) hooks_.loaded(state_, place);
  }
  void saving() const override {
    if (hooks_.saving != nullptr) hooks_.saving(state_);
  }

  // Never destroyed: the library may make calls until the process is gone.
  State &state_ = *new State();
  Hooks hooks_;
};

}  // namespace gateway
