// The gateway's file system: what the library opens under /userconfig, /proc and /tmp lies in a
// directory of this machine.
#pragma once

#include <cstdio>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace gateway {

class Files {
 public:
  Files() = default;
  ~Files();
  Files(const Files &) = delete;
  Files &operator=(const Files &) = delete;

  /// Keeps the gateway's files in a directory of the user's and leaves them there.
  void useRoot(const std::filesystem::path &directory);
  /// Back to a directory of its own, removed at the end.
  void useTemporaryRoot();
  const std::filesystem::path &root();

  /// Where a path of the gateway lies on this machine; std::invalid_argument for one anywhere else.
  std::string map(const std::string &path);

  // The gateway's own files. InputError for what cannot be written or read.
  void write(const std::string &path, const std::string &content);
  /// Nothing when there is no such file.
  std::optional<std::string> read(const std::string &path);
  void remove(const std::string &path);
  /// Every file below the root, by its path on the gateway.
  std::vector<std::string> list();

  /// Streams that the library opened and has not closed.
  size_t openStreams() const { return streams_.size(); }

  void reset();

  // What stands behind the library's own calls of libc.
  FILE *open(const char *path, const char *mode);
  int duplicate(int descriptor, int lowest);
  FILE *openDuplicate(int descriptor, const char *mode);
  int descriptorOf(FILE *stream) const;
  std::string pathOfDescriptor(int descriptor) const;
  void closed(FILE *stream) { streams_.erase(stream); }

 private:
  struct Stream {
    std::string path;
    int descriptor;
  };

  FILE *streamOn(int descriptor, const std::string &path, const char *mode);
  void makeRoot();
  void removeRoot();

  std::filesystem::path root_;
  bool temporary_ = false;
  std::map<FILE *, Stream> streams_;
  std::map<int, std::string> duplicates_; /**< paths of descriptors without a stream */
};

}  // namespace gateway
