#include <cjson/cJSON.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>

#include "frame/file.hpp"
#include "frame/json_items.hpp"
#include "frame/log.hpp"
#include "frame/parse.hpp"
#include "frame/status.hpp"
#include "frame/text.hpp"
#include "pmapi/config.h"

using namespace pm;

static constexpr char kSourceTag[] = "object_nexumd_config_pmapi.c";

namespace {

/// A line is read in pieces of one character less.
constexpr uint32_t kLineSize = 4096;
/// What the daemon allocates for a value.
constexpr uint32_t kValueRoom = 4096;

/// Readers of the console know the trace by these numbers, wherever the code stands.
enum TraceNumber {
  kAddCalled = 10,
  kAddAccepted = 22,
  kAddReplaces = 55,
  kAddAppends = 79,
  kGetCalled = 107,
  kGetUnlisted = 208,
  kDeleteCalled = 435
};

constexpr char kTextItems[][20] = {
    "if5_gwAddress",       "if5_workkey",        "if5_userkey",        "ifa_deviceId",
    "ifa_deviceToken",     "if6_factorySetting", "if3_deviceMacSaved", "if3_deviceId",
    "if3_gwToken",         "if3_deviceToken",    "if3_andlinkToken",   "if3_reg_gwAddr",
    "if3_g_gwmode",        "if3_ssid",           "if3_password",       "if3_encrypt",
    "if3_channel",         "if3_usrkey",         "if3_lgwAddress",     "if3_cgwAddress",
    "if3_lgwToken",        "if3_cgwToken",       "if3_g_SyncCode",     "MacFilter_WhiteList",
    "MacFilter_BlackList", "interface",          "reportInterval",     "sampleInterval"};

/// Place by place rather than name by name: almost every request is a listed name itself, and a
/// library call for each of the names would cost a tenth of the whole read.
bool isTextItem(const char *item) {
  for (; *item != '\0'; ++item) {
    for (const char(&textItem)[20] : kTextItems) {
      if (abbreviates(textItem, item)) return true;
    }
  }
  return false;
}

const char *printable(const char *text) {
  return text != nullptr ? text : "(null)";
}

/// A name without letters would match every line, a line feed would make lines of its own.
bool isRefused(const Trail &log, const char *item, const char *value) {
  if (*item != '\0' && strchr(item, '\n') == nullptr && strchr(value, '\n') == nullptr)
    return false;
  PM_LOG(log, kError, 0, "[%s] item %s is refused\n", log.function, item);
  return true;
}

void cutAtLineFeed(char *text) {
  if (char *lineFeed = strchr(text, '\n'); lineFeed != nullptr) *lineFeed = '\0';
}

/// The value behind a name and the character that parts them; empty where the name ends the line.
const char *valueAfter(const char *nameEnd) {
  return *nameEnd == '\0' ? nameEnd : nameEnd + 1;
}

/// Finds the first line with the item and returns its value within `line`, or nullptr.
const char *findValue(const char *item, const char *path, char (&line)[kLineSize]) {
  FILE *store = openForReading(path);
  if (store == nullptr) return nullptr;
  char *match = nullptr;
  // Nobody else has this stream: doing without its lock pays for looking the item up by name.
  while (match == nullptr && fgets_unlocked(line, kLineSize, store) != nullptr)
    match = strstr(line, item);
  fclose(store);
  if (match == nullptr) return nullptr;
  cutAtLineFeed(match);
  return valueAfter(match + strlen(item));
}

/// Older releases of cJSON do not say whether the object has taken the value: it is the last one in
/// there, or still the caller's.
void addJson(cJSON *object, const char *name, const char *value) {
  cJSON *parsed = cJSON_Parse(value);
  cJSON_AddItemToObject(object, name, parsed);
  const cJSON *last = cJSON_GetArrayItem(object, cJSON_GetArraySize(object) - 1);
  if (last != parsed) cJSON_Delete(parsed);
}

void traceUnlisted(const char *function, const char *item, const cJSON *object) {
  char *printed = cJSON_PrintUnformatted(object);
  printf("%s %d %s: %s\n", function, kGetUnlisted, item, printable(printed));
  cJSON_free(printed);
}

/// The store on its way, line by line, into the temporary file that is to replace it.
class StoreRewrite {
 public:
  StoreRewrite(const char *path, const char *temporaryPath)
      : path_(path), temporaryPath_(temporaryPath) {}
  StoreRewrite(const StoreRewrite &) = delete;
  StoreRewrite &operator=(const StoreRewrite &) = delete;

  bool openStore() { return (store_ = openForReading(path_)) != nullptr; }

  /// Gives the store back when there can be no copy.
  bool openCopy() {
    if (removeLeftover()) copy_ = createFile(temporaryPath_);
    if (copy_ == nullptr) fclose(store_);
    return copy_ != nullptr;
  }

  bool nextLine();
  void keepLine() { fwrite_unlocked(line, 1, length_, copy_); }

  void writeLine() {
    fputs(line, copy_);
    putc('\n', copy_);
  }

  /// Gives the item whose name ends at `nameEnd` another value, as far as the line has room.
  void setValue(char *nameEnd, const char *value) {
    char *last = line + kLineSize - 1;
    if (nameEnd == last) return;
    if (*nameEnd == '\0') *nameEnd = '=';
    copyText(nameEnd + 1, static_cast<uint32_t>(last - nameEnd), value);
  }

  /// Gives the line read last the line feed it may lack. False when reading ended before the store.
  bool endLastLine() {
    if (!isRead()) return false;
    if (length_ > 0 && line[length_ - 1] != '\n') putc('\n', copy_);
    return true;
  }

  int32_t commit();

  char line[kLineSize];

 private:
  bool isRead() const { return !lost_ && !ferror(store_); }
  bool removeLeftover();
  bool finishCopy();

  const char *const path_;
  const char *const temporaryPath_;
  FILE *store_ = nullptr;
  FILE *copy_ = nullptr;
  size_t length_ = 0; /**< of the line as it was read */
  long read_ = 0;     /**< of the store, up to the end of the line */
  bool lost_ = false; /**< the stream could not tell how much it has read */
};

bool StoreRewrite::nextLine() {
  if (fgets_unlocked(line, sizeof line, store_) == nullptr) return false;
  length_ = strlen(line);
  const bool whole = length_ == kLineSize - 1 || (length_ > 0 && line[length_ - 1] == '\n');
  if (!whole) {
    // A zero byte hides what the line has behind it: only the stream knows how far it was read.
    const long end = ftell(store_);
    lost_ = end < 0;
    if (lost_) return false;
    length_ = static_cast<size_t>(end - read_);
  }
  read_ += static_cast<long>(length_);
  return true;
}

/// Makes way for the copy. False when what lies in its place is not the copy of an earlier rewrite:
/// the store under another name, or no file at all.
bool StoreRewrite::removeLeftover() {
  struct stat leftover, store;
  // What cannot be looked at is either not there or in the way of a new file.
  if (lstat(temporaryPath_, &leftover) != 0) return true;
  if (!S_ISREG(leftover.st_mode) || fstat(fileno(store_), &store) != 0) return false;
  const bool same = leftover.st_dev == store.st_dev && leftover.st_ino == store.st_ino;
  return !same && unlink(temporaryPath_) == 0;
}

/// Closes both files. True when the copy has everything and the disk has the copy.
bool StoreRewrite::finishCopy() {
  // A failed write is remembered by its stream, so one look at the end sees them all.
  const bool written =
      isRead() && fflush(copy_) == 0 && !ferror(copy_) && fsync(fileno(copy_)) == 0;
  fclose(store_);
  return fclose(copy_) == 0 && written;
}

int32_t StoreRewrite::commit() {
  if (!finishCopy()) {
    unlink(temporaryPath_);
    return kFailure;
  }
  unlink(path_);
  // The copy is now the only store there is: it stays when it cannot be moved.
  if (rename(temporaryPath_, path_) != 0) return kFailure;
  unlink(temporaryPath_);
  return kOk;
}

}  // namespace

int32_t pm_ubus_config_additem(const UbusAddItem *given, const char *path,
                               const char *temporaryPath) {
  const Trail log(kSourceTag);
  if (given == nullptr) {
    PM_LOG(log, kInfo, 0, "now in function %s\n", log.function);
    PM_LOG(log, kError, 0, "pm_ubus_config_additem para is null");
    return kNullRecord;
  }
  const BoundedTailRequest<UbusAddItem, kValueRoom> bounded(*given);
  const UbusAddItem *record = &bounded.request();
  printf("line:%d, ubusadditem->item:%s, ubusadditem->value:%s\n", kAddCalled, record->item,
         record->value);
  PM_LOG(log, kInfo, 0, "now in function %s\n", log.function);
  if (isRefused(log, record->item, record->value)) return kFailure;
  printf("line:%d, item:%s, value:%s\n", kAddAccepted, record->item, record->value);

  StoreRewrite rewrite(path, temporaryPath);
  if (!rewrite.openStore()) {
    PM_LOG(log, kError, 0, "fopen path error\r\n");
    return kFailure;
  }
  if (!rewrite.openCopy()) return kFailure;

  bool exists = false;
  while (rewrite.nextLine()) {
    char *match = strstr(rewrite.line, record->item);
    if (match == nullptr) {
      rewrite.keepLine();
      continue;
    }
    exists = true;
    cutAtLineFeed(match);
    char *nameEnd = match + strlen(record->item);
    printf("function:%s,line:%d, item exist %s value %s\r\n", __func__, kAddReplaces, record->item,
           valueAfter(nameEnd));
    rewrite.setValue(nameEnd, record->value);
    printf("item new value %s\r\n", rewrite.line);
    rewrite.writeLine();
  }
  if (!exists && rewrite.endLastLine()) {
    // One short of a replaced line, so that the next reader takes it and its line feed in one
    // piece.
    snprintf(rewrite.line, kLineSize - 1, "%s=%s", record->item, record->value);
    printf("function:%s,line:%d, new item fputs %s \r\n", __func__, kAddAppends, rewrite.line);
    rewrite.writeLine();
  }
  return rewrite.commit();
}

int32_t pm_ubus_config_getitem(const char *item, void *destination, int32_t length,
                               const char *path) {
  const Trail log(kSourceTag);
  printf("%s %d  item:%s bufsize:%d\n", __func__, kGetCalled, printable(item), length);
  if (item == nullptr || destination == nullptr || length < 0) return kFailure;

  char line[kLineSize];
  const char *value = findValue(item, path, line);
  if (value == nullptr) return kFailure;
  PM_LOG(log, kInfo, 0, "%s %d:item exist  %s = %s---\r\n", log.function, __LINE__, item, value);

  if (length == 0) {
    auto *object = static_cast<cJSON *>(destination);
    if (const char *name = findJsonItem(item); name != nullptr) {
      addJson(object, name, value);
    } else {
      traceUnlisted(__func__, item, object);
    }
    return kOk;
  }

  auto *text = static_cast<char *>(destination);
  const auto size = static_cast<size_t>(length);
  if (isTextItem(item)) {
    strncpy(text, value, size);
    return kOk;
  }
  memset(text, 0, size);
  PM_LOG(log, kInfo, 0, "%s %d : %s\n", log.function, __LINE__, text);
  return kOk;
}

int32_t pm_ubus_config_deleteitem(const char *item, const char *path, const char *temporaryPath) {
  const Trail log(kSourceTag);
  printf("line:%d, %s %d %s\n", kDeleteCalled, __func__, kDeleteCalled, printable(item));
  if (item == nullptr) {
    PM_LOG(log, kInfo, 0, "%s  %d delete error\r\n", log.function, __LINE__);
    return kFailure;
  }
  if (isRefused(log, item, "")) return kFailure;

  StoreRewrite rewrite(path, temporaryPath);
  if (!rewrite.openStore()) {
    PM_LOG(log, kInfo, 0, "%s  %d fopen path\r\n", log.function, __LINE__);
    return kFailure;
  }
  if (!rewrite.openCopy()) return kFailure;

  while (rewrite.nextLine()) {
    if (strstr(rewrite.line, item) == nullptr) {
      rewrite.keepLine();
      continue;
    }
    rewrite.line[0] = '\0';
    PM_LOG(log, kInfo, 0, "item new value %s\r\n", rewrite.line);
    rewrite.writeLine();
  }
  return rewrite.commit();
}
