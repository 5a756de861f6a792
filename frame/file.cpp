#include "frame/file.hpp"

#include <fcntl.h>
#include <unistd.h>

namespace pm {

namespace {

/// The stream itself, or where its descriptor is a standard one another stream in its place.
FILE *aboveStandardStreams(FILE *stream, const char *mode) {
  if (fileno(stream) > STDERR_FILENO) return stream;
  const int descriptor = fcntl(fileno(stream), F_DUPFD, STDERR_FILENO + 1);
  fclose(stream);
  if (descriptor < 0) return nullptr;
  FILE *moved = fdopen(descriptor, mode);
  if (moved == nullptr) close(descriptor);
  return moved;
}

}  // namespace

FILE *openForReading(const char *path) {
  FILE *file = fopen(path, "r");
  return file != nullptr ? aboveStandardStreams(file, "r") : nullptr;
}

FILE *createFile(const char *path) {
  FILE *made = fopen(path, "wx");
  if (made == nullptr) return nullptr;
  FILE *file = aboveStandardStreams(made, "w");
  if (file == nullptr) unlink(path);
  return file;
}

}  // namespace pm
