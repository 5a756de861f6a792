#include "gateway/files.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <memory>
#include <stdexcept>
#include <string_view>

#include "boundary/boundary.hpp"
#include "gateway/gateway.hpp"
#include "gateway/temporary_root.hpp"
#include "gateway/text_file.hpp"

namespace gateway {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kMapped[] = {"/userconfig/", "/proc/", "/tmp/"};
constexpr mode_t kNewFileMode = 0644;

/// What stands behind a stream of the library: a real descriptor, every use of which is a call.
struct Cookie {
  int descriptor;
  std::string path;
  FILE *stream = nullptr;
};

using Cookies = std::map<Cookie *, std::unique_ptr<Cookie>>;

/// Kept where a leak checker sees them: the library leaves the ARP table's stream open on purpose.
Cookies &cookies() {
  static auto *const kept = new Cookies;
  return *kept;
}

Cookie *keep(std::unique_ptr<Cookie> cookie) {
  Cookie *const place = cookie.get();
  cookies()[place] = std::move(cookie);
  return place;
}

/// Moves up to `size` bytes; a fault lets through only as many as it answers, and then fails.
template <class Transfer>
ssize_t transferred(const char *call, const Cookie &cookie, int failure, size_t size,
                    Transfer transfer) {
  boundary::Passage passage(call, cookie.path);
  if (passage.fault() == nullptr) {
    const ssize_t done = transfer(size);
    passage.answered(done);
    return done;
  }
  const int32_t allowed = std::max(passage.fault()->answer.value_or(0), 0);
  const ssize_t done =
      allowed == 0 ? kFailed : transfer(std::min(size, static_cast<size_t>(allowed)));
  passage.answered(done);
  errno = failure;
  return done;
}

ssize_t readCookie(void *opaque, char *buffer, size_t size) {
  const boundary::Outside outside;
  const auto *cookie = static_cast<Cookie *>(opaque);
  return transferred("read", *cookie, EIO, size,
                     [&](size_t most) { return ::read(cookie->descriptor, buffer, most); });
}

ssize_t writeCookie(void *opaque, const char *buffer, size_t size) {
  const boundary::Outside outside;
  const auto *cookie = static_cast<Cookie *>(opaque);
  const ssize_t done = transferred("write", *cookie, ENOSPC, size, [&](size_t most) {
    return ::write(cookie->descriptor, buffer, most);
  });
  return std::max<ssize_t>(done, 0);
}

int seekCookie(void *opaque, off64_t *offset, int whence) {
  const boundary::Outside outside;
  const auto *cookie = static_cast<Cookie *>(opaque);
  const off64_t reached = ::lseek64(cookie->descriptor, *offset, whence);
  if (reached < 0) return -1;
  *offset = reached;
  return 0;
}

int closeCookie(void *opaque) {
  const boundary::Outside outside;
  auto *cookie = static_cast<Cookie *>(opaque);
  Gateway::current().files().closed(cookie->stream);
  const int32_t result =
      boundary::status("fclose", cookie->path, [&] { return ::close(cookie->descriptor); });
  if (result != 0) {
    ::close(cookie->descriptor);
    errno = ENOSPC;
  }
  cookies().erase(cookie);
  return result == 0 ? 0 : EOF;
}

void makeDirectories(const fs::path &path) {
  std::error_code failed;
  fs::create_directories(path, failed);
  if (failed) throw InputError(path, "cannot be made: " + failed.message());
}

/// False when there is nothing of that name. To open a FIFO or a device could take for ever.
bool refuseOtherThanFile(const fs::path &path) {
  std::error_code failed;
  const fs::file_status status = fs::status(path, failed);
  if (status.type() == fs::file_type::not_found) return false;
  if (!fs::status_known(status)) throw InputError(path, "cannot be read: " + failed.message());
  if (!fs::is_regular_file(status)) throw InputError(path, "no regular file");
  return true;
}

int openFlags(std::string_view mode) {
  const bool both = mode.find('+') != std::string_view::npos;
  if (mode.starts_with('r')) return both ? O_RDWR : O_RDONLY;
  const int exclusive = mode.find('x') != std::string_view::npos ? O_EXCL : 0;
  const int how = O_CREAT | exclusive | (mode.starts_with('a') ? O_APPEND : O_TRUNC);
  return how | (both ? O_RDWR : O_WRONLY);
}

}  // namespace

Files::~Files() {
  removeRoot();
}

void Files::makeRoot() {
  if (root_.empty()) {
    std::string name = (fs::temp_directory_path() / "pmapi-gateway-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) {
      throw InputError(name, std::string("cannot be made: ") + std::strerror(errno));
    }
    root_ = name;
    temporary_ = true;
    rememberTemporaryRoot(name);
  }
  for (const std::string_view directory : kMapped) makeDirectories(root_ / directory.substr(1));
}

void Files::removeRoot() {
  std::error_code ignored;
  if (temporary_) fs::remove_all(root_, ignored);
  if (temporary_) rememberTemporaryRoot("");
  root_.clear();
  temporary_ = false;
}

void Files::useRoot(const fs::path &directory) {
  removeRoot();
  root_ = fs::absolute(directory);
  makeRoot();
}

void Files::useTemporaryRoot() {
  removeRoot();
}

const fs::path &Files::root() {
  if (root_.empty()) makeRoot();
  return root_;
}

std::string Files::map(const std::string &path) {
  const bool mapped =
      std::any_of(std::begin(kMapped), std::end(kMapped),
                  [&](std::string_view directory) { return path.starts_with(directory); });
  if (!mapped) throw std::invalid_argument("not a path of the gateway");
  for (const fs::path &part : fs::path(path)) {
    if (part == "..") throw std::invalid_argument("path leaves the gateway: " + path);
  }
  return (root() / path.substr(1)).string();
}

void Files::write(const std::string &path, const std::string &content) {
  const fs::path real = map(path);
  makeDirectories(real.parent_path());
  refuseOtherThanFile(real);
  std::ofstream file(real, std::ios::binary);
  file << content;
  if (!file.flush())
    throw InputError(real, std::string("cannot be written: ") + std::strerror(errno));
}

std::optional<std::string> Files::read(const std::string &path) {
  const fs::path real = map(path);
  if (!refuseOtherThanFile(real)) return std::nullopt;
  return readTextFile(real);
}

void Files::remove(const std::string &path) {
  fs::remove(map(path));
}

std::vector<std::string> Files::list() {
  std::vector<std::string> paths;
  // What else lies in a directory of the user's is none of the gateway's.
  for (const std::string_view directory : kMapped) {
    const fs::path top = root() / directory.substr(1);
    std::error_code failed;
    fs::recursive_directory_iterator entry(top, failed);
    for (; !failed && entry != fs::recursive_directory_iterator(); entry.increment(failed)) {
      std::error_code gone;
      if (!entry->is_regular_file(gone)) continue;
      paths.push_back("/" + entry->path().lexically_relative(root()).string());
    }
    if (failed) throw InputError(top, "cannot be listed: " + failed.message());
  }
  std::sort(paths.begin(), paths.end());
  return paths;
}

void Files::reset() {
  // Streams that an earlier gateway's caller left open stay open, but are no longer counted.
  streams_.clear();
  duplicates_.clear();
  if (temporary_) removeRoot();
}

FILE *Files::open(const char *path, const char *mode) {
  // A FIFO has nobody at its other end to wait for.
  const int flags = openFlags(mode) | O_CLOEXEC | O_NONBLOCK;
  const int descriptor = ::open(map(path).c_str(), flags, kNewFileMode);
  if (descriptor < 0) return nullptr;
  FILE *stream = streamOn(descriptor, path, mode);
  if (stream == nullptr) ::close(descriptor);
  return stream;
}

int Files::duplicate(int descriptor, int lowest) {
  const int copy = ::fcntl(descriptor, F_DUPFD_CLOEXEC, lowest);
  if (copy >= 0) duplicates_[copy] = pathOfDescriptor(descriptor);
  return copy;
}

FILE *Files::openDuplicate(int descriptor, const char *mode) {
  return streamOn(descriptor, pathOfDescriptor(descriptor), mode);
}

FILE *Files::streamOn(int descriptor, const std::string &path, const char *mode) {
  Cookie *const cookie = keep(std::make_unique<Cookie>(Cookie{descriptor, path}));
  FILE *stream = ::fopencookie(cookie, mode, {readCookie, writeCookie, seekCookie, closeCookie});
  if (stream == nullptr) {
    cookies().erase(cookie);
    return nullptr;
  }
  cookie->stream = stream;
  streams_[stream] = {path, descriptor};
  return stream;
}

int Files::descriptorOf(FILE *stream) const {
  const auto found = streams_.find(stream);
  return found == streams_.end() ? -1 : found->second.descriptor;
}

std::string Files::pathOfDescriptor(int descriptor) const {
  for (const auto &[stream, opened] : streams_) {
    if (opened.descriptor == descriptor) return opened.path;
  }
  if (const auto copy = duplicates_.find(descriptor); copy != duplicates_.end()) {
    return copy->second;
  }
  return "descriptor " + std::to_string(descriptor);
}

}  // namespace gateway
