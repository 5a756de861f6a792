// Profiles of any content: each is refused with a place and a reason, or becomes a gateway that
// saves to a profile of the same gateway.
#include <cstdio>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <string_view>

#include "gateway/gateway.hpp"

using gateway::Gateway;
using gateway::Json;
using gateway::ProfileError;

namespace {

void require(bool held, const char *what) {
  if (held) return;
  std::fprintf(stderr, "the profile broke its promise: %s\n", what);
  std::abort();
}

bool isLoaded(const Json &profile) {
  try {
    Gateway::current().load(profile);
  } catch (const ProfileError &error) {
    require(*error.what() != '\0', "a refusal says why");
    return false;
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  const std::string_view text(reinterpret_cast<const char *>(data), size);
  const Json profile = Json::parse(text, nullptr, false);
  if (profile.is_discarded() || !isLoaded(profile)) return 0;
  const Json saved = Gateway::current().save();
  require(isLoaded(saved), "what was saved is a profile");
  require(Gateway::current().save() == saved, "a saved gateway is the same gateway");
  return 0;
}
