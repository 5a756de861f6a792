#include "tools/command/stage.hpp"

namespace command {
namespace {

[[noreturn]] void refuse(const char *step) {
  throw UsageError(step, "only a virtual gateway can do that");
}

}  // namespace

void Stage::load(const std::string & /*profile*/) {
  refuse("gateway");
}
void Stage::planFault(const std::string & /*rule*/) {
  refuse("fail");
}
void Stage::advance(int64_t /*seconds*/) {
  refuse("advance");
}
void Stage::writeFile(const std::string & /*path*/, const std::vector<std::string> & /*lines*/) {
  refuse("write");
}
std::optional<std::vector<std::string>> Stage::readFile(const std::string & /*path*/) {
  refuse("read");
}
Json Stage::gatewayState() {
  refuse("state");
}
const Trail &Stage::trail() const {
  refuse("trail");
}

}  // namespace command
