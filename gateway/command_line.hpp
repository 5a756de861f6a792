// Command lines, split as a shell would split them.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace gateway {

/// The words of a command line: blanks separate, quotes hold together, a backslash takes the next
/// character as it is. None when a quote is left open, which a shell refuses to run. Throws Refusal
/// for whatever a shell would expand or take for the end of the command: nothing that is started
/// here ever means that.
std::optional<std::vector<std::string>> splitCommandLine(std::string_view line);

}  // namespace gateway
