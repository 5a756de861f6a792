#include "tools/probe/cjson_check.hpp"

#include <cjson/cJSON.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

// Releases without it are older than the header's and run all the same.
extern "C" const char *cJSON_Version(void) __attribute__((weak));

namespace probe {

namespace {

constexpr char kSample[] = R"({"name":"text","list":[null,{}]})";
constexpr size_t kAlignment = alignof(std::max_align_t);

/// All that the sample's nodes can point to: a pointer taken from a wrong place is seen before it
/// is followed.
alignas(kAlignment) char arena[4096];
size_t used;

void *give(size_t size) {
  const size_t taken = (size + kAlignment - 1) / kAlignment * kAlignment;
  if (taken > sizeof arena - used) return nullptr;
  used += taken;
  return arena + used - taken;
}

bool lies(const void *pointer, size_t size) {
  const auto place = reinterpret_cast<uintptr_t>(pointer);
  const auto begin = reinterpret_cast<uintptr_t>(arena);
  return place >= begin && place - begin <= sizeof arena - size;
}

bool isText(const char *text, const char *expected) {
  const size_t size = std::strlen(expected) + 1;
  return lies(text, size) && std::memcmp(text, expected, size) == 0;
}

struct Sample {
  const cJSON *root;
  const cJSON *text;
  const cJSON *list;
  const cJSON *nothing;
  const cJSON *object;
};

/// Asks cJSON itself for the nodes; none of them is read here.
Sample parseSample() {
  cJSON *const root = cJSON_Parse(kSample);
  cJSON *const list = root != nullptr ? cJSON_GetArrayItem(root, 1) : nullptr;
  if (list == nullptr) return {};
  return {root, cJSON_GetArrayItem(root, 0), list, cJSON_GetArrayItem(list, 0),
          cJSON_GetArrayItem(list, 1)};
}

std::string typeDifference(const char *what, const cJSON *node, int expected) {
  const int type = node->type & 0xFF;
  if (type == expected) return {};
  return std::string("the type of ") + what + " is " + std::to_string(type) + " and not " +
         std::to_string(expected);
}

std::string differenceOf(const Sample &sample) {
  for (const cJSON *node : {sample.root, sample.text, sample.list, sample.nothing, sample.object}) {
    if (!lies(node, sizeof *node)) return "its nodes are shorter";
  }
  if (sample.root->child != sample.text) return "\"child\" lies elsewhere";
  if (sample.text->next != sample.list) return "\"next\" lies elsewhere";
  if (!isText(sample.text->string, "name")) return "\"string\" lies elsewhere";
  if (!isText(sample.text->valuestring, "text")) return "\"valuestring\" lies elsewhere";
  const std::string differences[] = {typeDifference("a text", sample.text, cJSON_String),
                                     typeDifference("a null", sample.nothing, cJSON_NULL),
                                     typeDifference("an object", sample.object, cJSON_Object)};
  for (const std::string &difference : differences) {
    if (!difference.empty()) return difference;
  }
  return {};
}

}  // namespace

std::string cjsonDifference() {
  cJSON_Hooks hooks = {give, [](void *) {}};
  cJSON_InitHooks(&hooks);
  const std::string difference = differenceOf(parseSample());
  cJSON_InitHooks(nullptr);
  used = 0;
  if (difference.empty()) return {};
  const char *version = cJSON_Version != nullptr ? cJSON_Version() : "without a version";
  return std::string("cJSON ") + version + " differs from that of the library's build (" +
         std::to_string(CJSON_VERSION_MAJOR) + "." + std::to_string(CJSON_VERSION_MINOR) + "." +
         std::to_string(CJSON_VERSION_PATCH) +
         "), the mesh topology cannot be read with it: " + difference;
}

}  // namespace probe
