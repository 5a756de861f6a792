#include "frame/codes.hpp"

#include "frame/text.hpp"

namespace pm {

const Code *codeOf(CodeTable table, uint32_t value) {
  for (const Code &code : table) {
    if (code.value == value) return &code;
  }
  return nullptr;
}

const char *nameOf(CodeTable table, uint32_t value, const char *otherwise) {
  const Code *code = codeOf(table, value);
  return code != nullptr ? code->name : otherwise;
}

const Code *codeNamed(CodeTable table, const char *text) {
  for (const Code &code : table) {
    if (abbreviates(text, code.name)) return &code;
  }
  return nullptr;
}

const Code *codeNumbered(CodeTable table, uint32_t daemonNumber) {
  for (const Code &code : table) {
    if (code.daemonNumber == daemonNumber) return &code;
  }
  return nullptr;
}

}  // namespace pm
