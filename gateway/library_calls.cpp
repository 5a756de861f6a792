// What the library calls in libc, the gateway answers: files, sleeping, uptime, and the one
// allocation that must be able to fail. The library's own import slots are pointed here, so that
// nobody else in the process notices.
#include "gateway/library_calls.hpp"

#include <fcntl.h>
#include <link.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/sysinfo.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string_view>
#include <utility>

#include "gateway/gateway.hpp"

namespace gateway {

namespace {

/// Where a path of the library's lies on this machine.
std::string realPath(const char *path) {
  if (path == nullptr) throw Refusal(kNullArgument, "no path");
  return Gateway::current().files().map(path);
}

/// A call that fails with -1 and this error.
template <class Body>
int32_t answered(const char *call, std::string key, int failure, Body body) {
  errno = failure;
  return boundary::status(call, std::move(key), body);
}

FILE *openForLibrary(const char *path, const char *mode) {
  const std::string key = boundary::text(path) + " " + boundary::text(mode);
  errno = EIO;
  return boundary::pointer<FILE *>("fopen", key, [&] {
    if (path == nullptr || mode == nullptr) throw Refusal(kNullArgument, "no path or mode");
    return Gateway::current().files().open(path, mode);
  });
}

int descriptorForLibrary(FILE *stream) {
  const int own = Gateway::current().files().descriptorOf(stream);
  return own >= 0 ? own : ::fileno(stream);
}

/// Of what fcntl can do, the library asks for one thing only.
int duplicateForLibrary(int descriptor, int command, int lowest) {
  Files &files = Gateway::current().files();
  return answered("fcntl", files.pathOfDescriptor(descriptor), EMFILE, [&] {
    if (command != F_DUPFD) throw Refusal(kBadRequest, "only F_DUPFD");
    return files.duplicate(descriptor, lowest);
  });
}

FILE *openDuplicateForLibrary(int descriptor, const char *mode) {
  const std::string key = std::to_string(descriptor) + " " + boundary::text(mode);
  errno = ENOMEM;
  return boundary::pointer<FILE *>(
      "fdopen", key, [&] { return Gateway::current().files().openDuplicate(descriptor, mode); });
}

int statForLibrary(const char *path, struct stat *found) {
  return answered("lstat", boundary::text(path), EIO,
                  [&] { return ::lstat(realPath(path).c_str(), found); });
}

int syncForLibrary(int descriptor) {
  const std::string path = Gateway::current().files().pathOfDescriptor(descriptor);
  return answered("fsync", path, EIO, [&] { return ::fsync(descriptor); });
}

int renameForLibrary(const char *from, const char *to) {
  return answered("rename", boundary::text(from) + " " + boundary::text(to), EIO,
                  [&] { return std::rename(realPath(from).c_str(), realPath(to).c_str()); });
}

int unlinkForLibrary(const char *path) {
  return answered("unlink", boundary::text(path), EIO,
                  [&] { return ::unlink(realPath(path).c_str()); });
}

void *allocateForLibrary(size_t count, size_t size) {
  const std::string key = std::to_string(count) + " " + std::to_string(size);
  errno = ENOMEM;
  return boundary::pointer<void *>("calloc", key, [&] { return std::calloc(count, size); });
}

unsigned sleepForLibrary(unsigned seconds) {
  boundary::Passage passage("sleep", std::to_string(seconds), Passage::Kind::kInfallible);
  return Gateway::current().clock().sleep(seconds);
}

int sysinfoForLibrary(struct sysinfo *info) {
  return answered("sysinfo", "", EFAULT, [&] {
    std::memset(info, 0, sizeof *info);
    info->uptime = static_cast<decltype(info->uptime)>(Gateway::current().clock().uptime());
    info->mem_unit = 1;
    return kOk;
  });
}

template <auto Function, class Result, class... Arguments>
Result answer(Arguments... arguments) {
  const boundary::Outside outside;
  return Function(arguments...);
}

template <auto Function, class Result, class... Arguments>
ReplacedCall replacement(std::string_view symbol, Result (*)(Arguments...)) {
  return {symbol, reinterpret_cast<uintptr_t>(answer<Function, Result, Arguments...>)};
}

template <auto Function>
ReplacedCall replacement(std::string_view symbol) {
  return replacement<Function>(symbol, Function);
}

const ReplacedCall kReplacements[] = {
    replacement<openForLibrary>("fopen"),      replacement<descriptorForLibrary>("fileno"),
    replacement<syncForLibrary>("fsync"),      replacement<renameForLibrary>("rename"),
    replacement<unlinkForLibrary>("unlink"),   replacement<allocateForLibrary>("calloc"),
    replacement<duplicateForLibrary>("fcntl"), replacement<openDuplicateForLibrary>("fdopen"),
    replacement<statForLibrary>("lstat"),      replacement<sleepForLibrary>("sleep"),
    replacement<sysinfoForLibrary>("sysinfo"),
};

void writeSlot(ElfW(Addr) slot, uintptr_t function) {
  const auto pageSize = static_cast<uintptr_t>(::sysconf(_SC_PAGESIZE));
  auto *page = reinterpret_cast<void *>(slot & ~(pageSize - 1));
  ::mprotect(page, pageSize, PROT_READ | PROT_WRITE);
  std::memcpy(reinterpret_cast<void *>(slot), &function, sizeof function);
}

/// Points each slot of a loaded library that holds one of these imports elsewhere.
void redirect(ElfW(Addr) base, const ElfW(Dyn) * dynamic, std::span<const ReplacedCall> calls) {
  std::map<ElfW(Sword), ElfW(Addr)> entries;
  for (; dynamic->d_tag != DT_NULL; ++dynamic) entries[dynamic->d_tag] = dynamic->d_un.d_ptr;
  // The loader may or may not have added the base to the addresses of its dynamic section.
  const auto address = [&](ElfW(Sword) tag) {
    return entries[tag] < base ? base + entries[tag] : entries[tag];
  };
  const auto *symbols = reinterpret_cast<const ElfW(Sym) *>(address(DT_SYMTAB));
  const auto *names = reinterpret_cast<const char *>(address(DT_STRTAB));
  for (const auto &[table, size] : {std::pair(DT_JMPREL, DT_PLTRELSZ), {DT_REL, DT_RELSZ}}) {
    const auto *relocations = reinterpret_cast<const ElfW(Rel) *>(address(table));
    for (const ElfW(Rel) & one : std::span(relocations, entries[size] / sizeof *relocations)) {
      const std::string_view name = names + symbols[ELF32_R_SYM(one.r_info)].st_name;
      for (const ReplacedCall &call : calls) {
        if (name == call.symbol) writeSlot(base + one.r_offset, call.function);
      }
    }
  }
}

struct Visit {
  std::span<const ReplacedCall> calls;
  bool found = false;
};

int visitLibrary(dl_phdr_info *library, size_t, void *given) {
  auto &visit = *static_cast<Visit *>(given);
  const std::string_view path = library->dlpi_name;
  if (path.find("/libpmapi.so") == std::string_view::npos) return 0;
  for (int i = 0; i < library->dlpi_phnum; ++i) {
    const ElfW(Phdr) &header = library->dlpi_phdr[i];
    if (header.p_type != PT_DYNAMIC) continue;
    const ElfW(Addr) base = library->dlpi_addr;
    redirect(base, reinterpret_cast<const ElfW(Dyn) *>(base + header.p_vaddr), visit.calls);
    visit.found = true;
  }
  return 1;
}

}  // namespace

bool replaceLibraryCalls(std::span<const ReplacedCall> calls) {
  Visit visit{calls};
  ::dl_iterate_phdr(visitLibrary, &visit);
  return visit.found;
}

bool takeOverLibraryCalls() {
  static bool taken = false;
  if (!taken) taken = replaceLibraryCalls(kReplacements);
  return taken;
}

namespace {

// A process linked with the library has it from the start; nobody must touch the gateway first.
[[maybe_unused]] const bool takenAtStart = takeOverLibraryCalls();

}  // namespace

}  // namespace gateway
