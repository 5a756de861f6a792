// Profiles and states of any content: each is refused with a place and a reason, or becomes a
// gateway that saves to a profile of the same gateway.
#include <cstdio>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <string_view>

#include "gateway/gateway.hpp"
#include "gateway/profile.hpp"

using gateway::Gateway;
using gateway::Json;
using records::InputError;

namespace {

void require(bool held, const char *what) {
  if (held) return;
  std::fprintf(stderr, "the profile broke its promise: %s\n", what);
  std::abort();
}

bool isLoaded(std::string_view text) {
  try {
    Gateway::current().load(gateway::parseProfile(text, ""));
  } catch (const InputError &error) {
    require(*error.what() != '\0', "a refusal says why");
    return false;
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (!isLoaded({reinterpret_cast<const char *>(data), size})) return 0;
  Gateway &platform = Gateway::current();
  const Json saved = platform.save();
  require(isLoaded(gateway::profileText(platform)), "what was saved is a profile");
  require(platform.save() == saved, "a saved gateway is the same gateway");
  return 0;
}
