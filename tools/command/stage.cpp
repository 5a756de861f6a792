#include "tools/command/stage.hpp"

#include "pmapi/uplinkinfo.h"

namespace command {
namespace {

[[noreturn]] void refuse(const char *step) {
  throw InputError(step, "only a virtual gateway can do that");
}

}  // namespace

Stage::Stage() {
  for (ListLink *head :
       {&g_net_sta_ifa_list, &g_net_sta_if6_list, &g_net_uplink_ifa_list, &g_net_uplink_if6_list}) {
    head->next = head->prev = head;
  }
}

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
