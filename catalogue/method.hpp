// The catalogue's entries: an object of the daemon, its methods, their parameters.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "catalogue/call.hpp"
#include "records/shape.hpp"

namespace catalogue {

using namespace records;

enum class Direction : uint8_t { kIn, kOut, kInOut };

/// One member of the arguments, of the answer, or of both, for those who list or check them.
struct Parameter {
  std::string name;  ///< empty for a record whose members stand for themselves
  Direction direction;
  std::string type;  ///< "text[31]", "int32", "MAC", or a record's name
  const Shape *shape = nullptr;
  bool isRows = false;
  bool isOptional = false;
  bool isSecret = false;
};

struct Method {
  std::string name;
  std::string function;  ///< the export behind it
  std::string summary;
  std::vector<Parameter> parameters = {};
  std::function<int64_t(Call &)> invoke = {};
  /// Member of the answer that holds what the function returned.
  std::string result = "status";

  bool returnsStatus() const { return result == "status"; }

  /// For functions that return a value rather than whether they succeeded.
  Method returning(const char *member) const {
    Method method = *this;
    method.result = member;
    return method;
  }
};

struct Object {
  std::string name;
  std::string source;  ///< tag of its log lines
  std::string summary;
  std::vector<Method> methods;
};

}  // namespace catalogue
