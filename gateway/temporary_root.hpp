// The temporary directory of a process that ends by a signal.
#pragma once

#include <string>

namespace gateway {

/// Names the directory that must not outlive the process; empty when there is none.
void rememberTemporaryRoot(const std::string &directory);

/// From now on a signal that ends the process removes that directory first.
void removeTemporaryRootOnSignals();

}  // namespace gateway
