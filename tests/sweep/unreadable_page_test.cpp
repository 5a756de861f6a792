// Every method of the catalogue with its records placed so that they end at an unreadable page, and
// with request texts that nobody ended: what the library reads of a record, or writes into it, lies
// inside. Each call is made in a process of its own, so that a crash names its method.
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory_resource>
#include <vector>

#include "catalogue/answer.hpp"
#include "catalogue/catalogue.hpp"
#include "tests/support/gateway_test.hpp"

namespace gateway {
namespace {

using catalogue::Example;
using catalogue::Method;
using catalogue::Object;
using records::Json;
using records::Kind;
using records::Member;
using records::Shape;

/// Memory whose last byte is the last of its page; the page behind it cannot be touched.
class GuardedMemory : public std::pmr::memory_resource {
  static size_t page() { return static_cast<size_t>(::sysconf(_SC_PAGESIZE)); }
  static size_t pagesFor(size_t size) { return (size + page() - 1) / page() * page(); }

  void *do_allocate(size_t size, size_t) override {
    const size_t readable = pagesFor(size);
    void *begin = ::mmap(nullptr, readable + page(), PROT_READ | PROT_WRITE,
                         MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (begin == MAP_FAILED) std::abort();
    auto *end = static_cast<uint8_t *>(begin) + readable;
    if (::mprotect(end, page(), PROT_NONE) != 0) std::abort();
    return end - size;
  }

  void do_deallocate(void *place, size_t size, size_t) override {
    ::munmap(static_cast<uint8_t *>(place) + size - pagesFor(size), pagesFor(size) + page());
  }

  bool do_is_equal(const memory_resource &other) const noexcept override { return this == &other; }
};

/// Which of a record's texts are filled to their last byte.
constexpr uint32_t kEveryText = UINT32_MAX;

/// A digit is a number, a piece of a MAC and a keyword.
constexpr char kFiller = '1';

/// Fills the text of that number, counted in `met`; of a counted array all elements are in use.
void fillTexts(const Shape &shape, uint8_t *record, uint32_t wanted, uint32_t &met) {
  for (const Member &field : shape.members) {
    const uint32_t number = met;
    if (field.kind == Kind::kText) ++met;
    for (uint32_t i = 0; i < field.elements; ++i) {
      uint8_t *place = record + field.offset + i * field.size;
      if (field.kind == Kind::kText && (wanted == kEveryText || wanted == number)) {
        std::memset(place, kFiller, field.size);
      } else if (field.kind == Kind::kRecord) {
        met = number;
        fillTexts(*field.shape, place, wanted, met);
      }
    }
    if (field.counter != records::kUncounted) {
      std::memcpy(record + field.counter, &field.elements, sizeof field.elements);
    }
  }
}

uint32_t textsOf(const Method &method) {
  uint32_t texts = 0;
  for (const catalogue::Parameter &parameter : method.parameters) {
    if (parameter.shape == nullptr || parameter.direction == catalogue::Direction::kOut) continue;
    std::vector<uint8_t> record(parameter.shape->allocation());
    fillTexts(*parameter.shape, record.data(), kEveryText, texts);
  }
  return texts;
}

class UnreadablePageTest : public GatewayTest {
 protected:
  static void call(const Object &object, const Method &method, uint32_t filled) {
    const Json arguments = Json::parse(method.examples.front().arguments);
    catalogue::Answer answer;
    records::Secrets secrets;
    catalogue::Call call(object.name + " " + method.name, arguments, answer, secrets);
    uint32_t met = 0;
    call.onRecord = [&](const Shape &shape, void *record) {
      fillTexts(shape, static_cast<uint8_t *>(record), filled, met);
    };
    GuardedMemory memory;
    std::pmr::set_default_resource(&memory);
    method.invoke(call);
    std::pmr::set_default_resource(nullptr);
  }

  void expectInside(const Object &object, const Method &method, uint32_t filled) {
    const auto callAndLeave = [&] {
      call(object, method, filled);
      ::_exit(0);
    };
    EXPECT_EXIT(callAndLeave(), ::testing::ExitedWithCode(0), "")
        << object.name << " " << method.name << ", text " << static_cast<int32_t>(filled);
  }
};

TEST_F(UnreadablePageTest, NoMethodLeavesItsRecords) {
  uint32_t texts = 0;
  for (const Object &object : catalogue::catalogue()) {
    for (const Method &method : object.methods) {
      const Example &example = method.examples.front();
      loadExample(example.profile);
      catalogue::prepare(example);
      expectInside(object, method, kEveryText);
      // One at a time gets further: what the method checks before is as it should be.
      for (uint32_t text = 0; text < textsOf(method); ++text, ++texts) {
        expectInside(object, method, text);
      }
    }
  }
  EXPECT_GT(texts, 0u);
}

}  // namespace
}  // namespace gateway
