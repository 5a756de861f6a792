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

/// A call that shows what a method does. The sweeps and the reference make it.
struct Example {
  std::string arguments = "{}";
  std::string profile = "home_router.json";  ///< of examples/
  /// A call "OBJECT METHOD" that comes first, where there is one.
  std::string before = {};
  std::string beforeArguments = {};
  int64_t status = 0;  ///< what it is answered
};

struct Method {
  /// Its summary is the first sentence that the header says of the function.
  Method(const char *ownName, const char *exportName);

  std::string name;
  std::string function;  ///< the export behind it
  std::string summary;
  std::vector<Parameter> parameters = {};
  std::function<int64_t(Call &)> invoke = {};
  /// Member of the answer that holds what the function returned.
  std::string result = "status";
  /// One, or two where the method goes two ways.
  std::vector<Example> examples = {Example()};

  bool returnsStatus() const { return result == "status"; }

  // What differs from the usual is said behind the description of a method.

  /// For functions that return a value rather than whether they succeeded.
  Method &returning(const char *member);
  /// For functions of which a caller must know more than the header's first sentence.
  Method &saying(const char *sentence);
  /// The arguments of its example, if it has any.
  Method &example(const char *arguments);
  Method &otherExample(const char *arguments);
  /// The profile of the example before it,
  Method &on(const char *profile);
  /// a call that it needs,
  Method &after(const char *call, const char *arguments);
  /// and what it is answered where that is not 0.
  Method &answering(int64_t status);
};

struct Object {
  std::string name;
  std::string source;  ///< tag of its log lines
  std::string summary;
  std::vector<Method> methods;
};

}  // namespace catalogue
