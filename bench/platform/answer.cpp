#include "bench/platform/answer.hpp"

#include <array>
#include <cstring>
#include <string>

#include "platform/config_database.h"

namespace bench {

namespace {

std::array<Answer, kMaxSelector> viewAnswers;
std::array<Answer, kMaxSelector> viewListAnswers;
std::array<Answer, kMaxSelector> eventAnswers;

}  // namespace

std::vector<Answer *> &Answer::all() {
  static std::vector<Answer *> answers;
  return answers;
}

Answer &Answer::bytes(uint32_t offset, const void *data, uint32_t size) {
  Patch patch{offset, (size + 3) / 4, {}};
  patch.words.resize(patch.size);
  memcpy(patch.words.data(), data, size);
  patches_.push_back(std::move(patch));
  return *this;
}

Answer &Answer::word(uint32_t offset, uint32_t value) {
  return bytes(offset, &value, sizeof value);
}

Answer &Answer::text(uint32_t offset, std::string_view value) {
  return bytes(offset, value.data(), static_cast<uint32_t>(value.size()));
}

Answer &Answer::status(int32_t value) {
  status_ = value;
  return *this;
}

Answer &Answer::length(uint16_t value) {
  length_ = value;
  return *this;
}

Answer &Answer::paths(uint32_t number, const char *stem) {
  for (uint32_t i = 0; i < number; ++i) {
    const std::string path = stem + std::to_string(i + 1);
    bytes(i * PLATFORM_INSTANCE_SIZE, path.c_str(), static_cast<uint32_t>(path.size()) + 1);
  }
  found_ = number;
  return *this;
}

void Answer::forgetAll() {
  for (Answer *answer : all()) {
    answer->patches_.clear();
    answer->status_ = 0;
    answer->found_ = 0;
    answer->length_ = 0;
  }
}

Answer &viewAnswer(uint32_t viewId) {
  return viewAnswers.at(viewId);
}
Answer &viewListAnswer(uint32_t viewId) {
  return viewListAnswers.at(viewId);
}
Answer &eventAnswer(uint32_t event) {
  return eventAnswers.at(event);
}

}  // namespace bench
