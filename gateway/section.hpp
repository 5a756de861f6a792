// A family's part of the gateway: its state, and its member of the profile.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "gateway/json.hpp"

namespace gateway {

/// A text without zeros; throws ProfileError.
std::string textIn(const Json &value, const std::string &place);

/// One object of the profile while it is read. Every member must be taken; the others are refused.
class Members {
 public:
  /// Throws ProfileError unless `value` is an object.
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

  /// Throws ProfileError for a member that nobody took.
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

  static const std::vector<Section *> &all();

 private:
  std::string_view name_;
};

}  // namespace gateway
