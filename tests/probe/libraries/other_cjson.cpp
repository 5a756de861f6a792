// Loaded in front of cJSON: makes it one that differs in the way that OTHER_CJSON names.
#include <cjson/cJSON.h>
#include <dlfcn.h>

#include <cstdlib>
#include <string_view>
#include <utility>

namespace {

/// Numbers of the first releases: 4 a text, 2 a null, 6 an object.
void renumber(cJSON *node) {
  for (; node != nullptr; node = node->next) {
    renumber(node->child);
    node->type = __builtin_ctz(static_cast<unsigned>(node->type));
  }
}

void swapTexts(cJSON *node) {
  for (; node != nullptr; node = node->next) {
    swapTexts(node->child);
    std::swap(node->string, node->valuestring);
  }
}

}  // namespace

cJSON *cJSON_Parse(const char *text) {
  using Parse = cJSON *(*)(const char *);
  static const auto own = reinterpret_cast<Parse>(dlsym(RTLD_NEXT, "cJSON_Parse"));
  cJSON *root = own(text);
  const char *way = std::getenv("OTHER_CJSON");
  if (way == nullptr) return root;
  if (std::string_view(way) == "types") renumber(root);
  if (std::string_view(way) == "layout") swapTexts(root);
  return root;
}
