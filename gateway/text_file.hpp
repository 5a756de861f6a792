// Files of the user's: profiles, states and scenarios.
#pragma once

#include <string>
#include <string_view>

namespace gateway {

/// Throws InputError for a file that cannot be read, a directory, or one without an end.
std::string readTextFile(const std::string &fileName);

/// A file that this process alone changes for as long as the object lives: others wait. Its lock is
/// a file beside it, as the file itself is replaced when it is written.
class OwnedFile {
 public:
  /// Calls `onWait` before it waits for another process. Throws InputError.
  OwnedFile(std::string fileName, void (*onWait)(const std::string &fileName));
  ~OwnedFile();
  OwnedFile(const OwnedFile &) = delete;
  OwnedFile &operator=(const OwnedFile &) = delete;

  /// Writes a new file and puts it in the place of the old one, which stays when that fails.
  void replace(std::string_view content) const;

 private:
  void lock(void (*onWait)(const std::string &fileName));

  std::string given_;
  std::string name_;
  std::string lockName_;
  int lock_ = -1;
};

}  // namespace gateway
