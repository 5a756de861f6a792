#pragma once

#include <string>

#include "boundary/boundary.hpp"
#include "records/json.hpp"

namespace command {

using namespace records;

/// CALL[/MATCH][@FROM[xTIMES]][=ANSWER]: calls of that name whose key contains MATCH, from the
/// FROM-th one, TIMES of them, answer ANSWER. ANSWER is a number, `reply:N` for the status in a
/// proxy's reply, `length:N` for the length of a reply, or `count:N` for what a list counts;
/// without it the call's own failure.
/// Throws InputError.
boundary::Fault parseFault(const std::string &rule);

}  // namespace command
