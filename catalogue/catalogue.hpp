// All objects that the command knows. `list`, `call`, `run` and the reference read nothing else.
//
// To add an object, write catalogue/objects/<object>.cpp:
//
//   PM_RECORD(RadioRecord, PM_FIELD(radio), PM_FIELD(transmitPower), PM_FIELD(channel));
//   namespace catalogue {
//   namespace {
//   const Entry kEntry{{
//       .name = "set_radio", .source = "objest_nexumd_set_radio_pmapi.c",
//       .summary = "Power and channel of a radio.",
//       .methods = {method("set", PM_FUNCTION(pm_ubus_radio_set), RecordIn{})
//                       .example(R"({"radio": "5G", "transmitPower": "80", "channel": "44"})")}}};
//   }  // namespace
//   }  // namespace catalogue
//
// Records: list every member that a user may see or give; .secret() masks, .input() marks what an
// answering record is asked by, .optional() what may be left out of an argument, .capacity(n) sizes
// an open tail, PM_COUNTED(rows, count) ties an array to its count. Parameters: parameters.hpp, one
// description per parameter of the prototype, under the prototype's name. The summary is what the
// header says, and the example is a call that the virtual gateway answers: method.hpp. Name only
// exports that the library has: the command links to each.
#pragma once

#include <string_view>

#include "catalogue/method.hpp"
#include "catalogue/parameters.hpp"

namespace catalogue {

/// Puts an object into the catalogue.
class Entry {
 public:
  explicit Entry(Object object);
};

/// Sorted by name.
const std::vector<Object> &catalogue();

/// Both refuse what they do not know.
const Object &findObject(std::string_view name);
const Method &findMethod(const Object &object, std::string_view name);

/// Refuses an argument that the method does not have.
void checkArguments(const Object &object, const Method &method, const Json &arguments);

/// Calls the library. `secrets` receives what the arguments hold of them, before the call is made.
Answer invoke(const Object &object, const Method &method, const Json &arguments, Secrets &secrets);

/// Makes the call that comes before an example, where there is one.
void prepare(const Example &example);

}  // namespace catalogue
