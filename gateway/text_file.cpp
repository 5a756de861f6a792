#include "gateway/text_file.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "records/json.hpp"

namespace gateway {

using records::InputError;

namespace fs = std::filesystem;

namespace {

constexpr size_t kLargest = size_t{64} << 20;
constexpr mode_t kNewFileMode = 0666;

[[noreturn]] void refuse(const std::string &fileName, const std::string &what) {
  throw InputError(fileName, what + ": " + std::strerror(errno));
}

class Descriptor {
 public:
  Descriptor(const std::string &fileName, int flags)
      : number_(::open(fileName.c_str(), flags | O_CLOEXEC, kNewFileMode)) {}
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }
  Descriptor(const Descriptor &) = delete;
  Descriptor &operator=(const Descriptor &) = delete;
  operator int() const { return number_; }

 private:
  int number_;
};

bool isWritten(int descriptor, std::string_view content) {
  while (!content.empty()) {
    const ssize_t done = ::write(descriptor, content.data(), content.size());
    if (done < 0 && errno == EINTR) continue;
    if (done < 0) return false;
    content.remove_prefix(static_cast<size_t>(done));
  }
  return ::fsync(descriptor) == 0;
}

bool isSameFile(int descriptor, const std::string &fileName) {
  struct stat opened;
  struct stat named;
  return ::fstat(descriptor, &opened) == 0 && ::stat(fileName.c_str(), &named) == 0 &&
         opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

}  // namespace

std::string readTextFile(const std::string &fileName) {
  const Descriptor file(fileName, O_RDONLY);
  if (file < 0) refuse(fileName, "cannot be opened");
  std::string content;
  char block[65536];
  for (;;) {
    const ssize_t length = ::read(file, block, sizeof block);
    if (length < 0 && errno == EINTR) continue;
    if (length < 0) refuse(fileName, "cannot be read");
    if (length == 0) return content;
    content.append(block, static_cast<size_t>(length));
    if (content.size() > kLargest) throw InputError(fileName, "larger than 64 MiB");
  }
}

OwnedFile::OwnedFile(std::string fileName, void (*onWait)(const std::string &fileName))
    : given_(std::move(fileName)) {
  std::error_code failed;
  // A link stays one: it is its target that is replaced.
  name_ = fs::weakly_canonical(given_, failed).string();
  if (failed) throw InputError(given_, "cannot be used: " + failed.message());
  const fs::file_status status = fs::status(given_, failed);
  if (fs::exists(status) && !fs::is_regular_file(status)) {
    throw InputError(given_, "no regular file");
  }
  lockName_ = name_ + ".lock";
  lock(onWait);
}

void OwnedFile::lock(void (*onWait)(const std::string &fileName)) {
  for (;;) {
    lock_ = ::open(lockName_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, kNewFileMode);
    if (lock_ < 0) refuse(given_, "cannot be locked");
    if (::flock(lock_, LOCK_EX | LOCK_NB) != 0) {
      onWait(given_);
      if (::flock(lock_, LOCK_EX) != 0) refuse(given_, "cannot be locked");
    }
    // The one before removed the lock that it held: it locks nobody out any more.
    if (isSameFile(lock_, lockName_)) return;
    ::close(lock_);
  }
}

OwnedFile::~OwnedFile() {
  ::unlink(lockName_.c_str());
  ::close(lock_);
}

void OwnedFile::replace(std::string_view content) const {
  const std::string fresh = name_ + ".new";
  {
    const Descriptor file(fresh, O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW);
    if (file < 0) refuse(given_, "cannot be written");
    struct stat old;
    const bool replaces = ::stat(name_.c_str(), &old) == 0;
    if (!isWritten(file, content) || (replaces && ::fchmod(file, old.st_mode) != 0)) {
      const int reason = errno;
      ::unlink(fresh.c_str());
      errno = reason;
      refuse(given_, "cannot be written");
    }
  }
  if (::rename(fresh.c_str(), name_.c_str()) != 0) refuse(given_, "cannot be replaced");
}

}  // namespace gateway
