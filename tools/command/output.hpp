#pragma once

#include <exception>
#include <string>

#include "records/json.hpp"

namespace command {

using namespace records;

/// One line of JSON, or for the eye: a line for each member, and a table where rows are listed.
void printAnswer(const Json &answer, bool asTable);

/// Makes sure that no file takes the place of a standard stream that is closed, and that a closed
/// pipe and a file that grows too large are errors like others.
void keepStandardDescriptors();

/// Whether everything that was printed has left the process.
bool isOutputWritten();

/// Why `error` ended the work, in the command's own words.
std::string reasonOf(const std::exception &error);

}  // namespace command
