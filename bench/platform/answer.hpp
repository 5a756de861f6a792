// What the bench's platform answers: a few words stored into the caller's record, and a status. The
// platform of the bench exists to cost next to nothing, the same in a handler and in its floor; it
// keeps nothing and checks nothing. For behaviour there is the virtual gateway.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/layout.hpp"

namespace bench {

class Answer {
 public:
  Answer() { all().push_back(this); }
  Answer(const Answer &) = delete;
  Answer &operator=(const Answer &) = delete;

  Answer &word(uint32_t offset, uint32_t value);
  Answer &text(uint32_t offset, std::string_view value);
  Answer &bytes(uint32_t offset, const void *data, uint32_t size);
  Answer &set(const platform::Field &field, uint32_t value) { return word(field.offset, value); }
  Answer &set(const platform::Field &field, std::string_view value) {
    return text(field.offset, value);
  }
  /// The status, or what else the function returns.
  Answer &status(int32_t value);
  /// Bytes of a reply, where the call reports them.
  Answer &length(uint16_t value);
  /// Paths that a list or query call finds.
  Answer &paths(uint32_t number, const char *stem);

  uint16_t replyLength() const { return length_; }

  int32_t give(void *record) const {
    for (const Patch &patch : patches_) {
      const uint32_t *from = patch.words.data();
      auto *to = reinterpret_cast<uint32_t *>(static_cast<uint8_t *>(record) + patch.offset);
      for (uint32_t left = patch.size; left != 0; --left) *to++ = *from++;
    }
    return status_;
  }

  template <class List>
  int32_t giveList(List *list) const {
    give(list->instances);
    list->dwCount = found_;
    return status_;
  }

  static void forgetAll();

 private:
  struct Patch {
    uint32_t offset;
    uint32_t size;
    std::vector<uint32_t> words;
  };

  static std::vector<Answer *> &all();

  std::vector<Patch> patches_;
  int32_t status_ = 0;
  uint32_t found_ = 0;
  uint16_t length_ = 0;
};

/// The answer of one imported function, e.g. answerTo<pm_upmode_info_get>.
template <auto Function>
inline Answer answerTo;

inline constexpr uint32_t kMaxSelector = 512;

/// What reading, or listing and querying, one view answers; and one proxy event.
Answer &viewAnswer(uint32_t viewId);
Answer &viewListAnswer(uint32_t viewId);
Answer &eventAnswer(uint32_t event);

}  // namespace bench
