#include "catalogue/method.hpp"

#include "catalogue/contract.hpp"

namespace catalogue {

Method::Method(const char *ownName, const char *exportName)
    : name(ownName), function(exportName), summary(contractOf(exportName).summary) {}

Method &Method::returning(const char *member) {
  result = member;
  return *this;
}

Method &Method::saying(const char *sentence) {
  summary = sentence;
  return *this;
}

Method &Method::example(const char *arguments) {
  examples = {Example{.arguments = arguments}};
  return *this;
}

Method &Method::otherExample(const char *arguments) {
  examples.push_back({.arguments = arguments});
  return *this;
}

Method &Method::on(const char *profile) {
  examples.back().profile = profile;
  return *this;
}

Method &Method::after(const char *call, const char *arguments) {
  examples.back().before = call;
  examples.back().beforeArguments = arguments;
  return *this;
}

Method &Method::answering(int64_t status) {
  examples.back().status = status;
  return *this;
}

Method customMethod(const char *name, const char *function, std::vector<Parameter> parameters,
                    std::function<int64_t(Call &)> invoke) {
  Method method(name, function);
  method.parameters = std::move(parameters);
  method.invoke = std::move(invoke);
  return method;
}

}  // namespace catalogue
