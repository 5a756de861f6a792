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
#include <string_view>

#include "gateway/gateway.hpp"

namespace gateway {

namespace {

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
  const std::string path = Gateway::current().files().pathOfDescriptor(descriptor);
  errno = EMFILE;
  return boundary::status("fcntl", path, [&] {
    if (command != F_DUPFD) throw Refusal(kBadRequest, "only F_DUPFD");
    return Gateway::current().files().duplicate(descriptor, lowest);
  });
}

FILE *openDuplicateForLibrary(int descriptor, const char *mode) {
  const std::string key = std::to_string(descriptor) + " " + boundary::text(mode);
  errno = ENOMEM;
  return boundary::pointer<FILE *>(
      "fdopen", key, [&] { return Gateway::current().files().openDuplicate(descriptor, mode); });
}

int statForLibrary(const char *path, struct stat *found) {
  errno = EIO;
  return boundary::status("lstat", boundary::text(path), [&] {
    if (path == nullptr) throw Refusal(kNullArgument, "no path");
    return ::lstat(Gateway::current().files().map(path).c_str(), found);
  });
}

int syncForLibrary(int descriptor) {
  const std::string path = Gateway::current().files().pathOfDescriptor(descriptor);
  errno = EIO;
  return boundary::status("fsync", path, [&] { return ::fsync(descriptor); });
}

int renameForLibrary(const char *from, const char *to) {
  errno = EIO;
  return boundary::status("rename", boundary::text(from) + " " + boundary::text(to), [&] {
    if (from == nullptr || to == nullptr) throw Refusal(kNullArgument, "no path");
    Files &files = Gateway::current().files();
    return std::rename(files.map(from).c_str(), files.map(to).c_str());
  });
}

int unlinkForLibrary(const char *path) {
  errno = EIO;
  return boundary::status("unlink", boundary::text(path), [&] {
    if (path == nullptr) throw Refusal(kNullArgument, "no path");
    return ::unlink(Gateway::current().files().map(path).c_str());
  });
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
  errno = EFAULT;
  return boundary::status("sysinfo", "", [&] {
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

/// The tables of one loaded library that say which of its slots holds which import.
struct Imports {
  ElfW(Addr) base = 0;
  const ElfW(Sym) *symbols = nullptr;
  const char *names = nullptr;
  const ElfW(Rel) * relocations[2] = {};
  size_t counts[2] = {};
};

Imports importsOf(const dl_phdr_info &library, const ElfW(Dyn) * dynamic) {
  Imports imports;
  imports.base = library.dlpi_addr;
  // The loader may or may not have added the base to the addresses of its dynamic section.
  const auto address = [&](ElfW(Addr) value) {
    return value < imports.base ? imports.base + value : value;
  };
  for (; dynamic->d_tag != DT_NULL; ++dynamic) {
    const ElfW(Addr) value = dynamic->d_un.d_ptr;
    switch (dynamic->d_tag) {
      case DT_SYMTAB:
        imports.symbols = reinterpret_cast<const ElfW(Sym) *>(address(value));
        break;
      case DT_STRTAB:
        imports.names = reinterpret_cast<const char *>(address(value));
        break;
      case DT_JMPREL:
        imports.relocations[0] = reinterpret_cast<const ElfW(Rel) *>(address(value));
        break;
      case DT_PLTRELSZ:
        imports.counts[0] = value / sizeof(ElfW(Rel));
        break;
      case DT_REL:
        imports.relocations[1] = reinterpret_cast<const ElfW(Rel) *>(address(value));
        break;
      case DT_RELSZ:
        imports.counts[1] = value / sizeof(ElfW(Rel));
        break;
      default:
        break;
    }
  }
  return imports;
}

void writeSlot(ElfW(Addr) slot, uintptr_t function) {
  const auto pageSize = static_cast<uintptr_t>(::sysconf(_SC_PAGESIZE));
  auto *page = reinterpret_cast<void *>(slot & ~(pageSize - 1));
  ::mprotect(page, pageSize, PROT_READ | PROT_WRITE);
  std::memcpy(reinterpret_cast<void *>(slot), &function, sizeof function);
}

void redirect(const Imports &imports, std::span<const ReplacedCall> calls) {
  if (imports.symbols == nullptr || imports.names == nullptr) return;
  for (int table = 0; table < 2; ++table) {
    for (size_t i = 0; i < imports.counts[table]; ++i) {
      const ElfW(Rel) &relocation = imports.relocations[table][i];
      const ElfW(Sym) &symbol = imports.symbols[ELF32_R_SYM(relocation.r_info)];
      const std::string_view name = imports.names + symbol.st_name;
      for (const ReplacedCall &call : calls) {
        if (name == call.symbol) writeSlot(imports.base + relocation.r_offset, call.function);
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
    redirect(importsOf(*library,
                       reinterpret_cast<const ElfW(Dyn) *>(library->dlpi_addr + header.p_vaddr)),
             visit.calls);
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
