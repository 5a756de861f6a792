// Files of the gateway. None of their streams takes the place of a standard stream that the daemon
// has closed: what the process prints would go into the file.
#pragma once

#include <cstdio>

namespace pm {

/// nullptr when the file cannot be opened.
FILE *openForReading(const char *path);

/// Makes a file that was not there and opens it for writing; nullptr, and no file made, when that
/// fails. A symbolic link is not followed.
FILE *createFile(const char *path);

}  // namespace pm
