#include "pmapi/config.h"

#include <cjson/cJSON.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <pthread.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <optional>

#include "tests/support/closed_streams.hpp"
#include "tests/support/gateway_test.hpp"

namespace {

/// Whether cJSON is to be one of those that do not tell what became of an addition.
bool saysNothing = false;

}  // namespace

// Stands before cJSON's own, for the library too.
cJSON_bool cJSON_AddItemToObject(cJSON *object, const char *name, cJSON *item) {
  using Add = cJSON_bool (*)(cJSON *, const char *, cJSON *);
  static const auto own = reinterpret_cast<Add>(dlsym(RTLD_NEXT, "cJSON_AddItemToObject"));
  const cJSON_bool kept = own(object, name, item);
  return saysNothing ? cJSON_bool{} : kept;
}

namespace {

using gateway::testing::ClosedStandardStreams;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StrEq;
using namespace std::string_literals;

constexpr char kPath[] = "/userconfig/nexumd_cfgfile";
constexpr char kTemporary[] = "/userconfig/nexumd_cfgfile.tmp";
constexpr size_t kPiece = 4095;

int32_t add(const std::string &item, const std::string &value) {
  std::string record = item;
  record.resize(sizeof(UbusAddItem::item));
  record += value;
  return pm_ubus_config_additem(reinterpret_cast<const UbusAddItem *>(record.c_str()), kPath,
                                kTemporary);
}

class ConfigTest : public GatewayTest {
 protected:
  ConfigTest() { expectNoLeaks(); }

  void fill(const std::string &content) { files().write(kPath, content); }
  std::string content() { return files().read(kPath).value_or("(none)"); }
  bool temporaryExists() { return files().read(kTemporary).has_value(); }

  static int32_t remove(const char *item) {
    return pm_ubus_config_deleteitem(item, kPath, kTemporary);
  }

  /// The destination's bytes after a read that returned 0; the byte behind it must not change.
  static std::string text(const char *item, size_t length) {
    std::string destination(length + 1, '#');
    EXPECT_EQ(pm_ubus_config_getitem(item, destination.data(), static_cast<int32_t>(length), kPath),
              0);
    EXPECT_EQ(destination.back(), '#');
    destination.pop_back();
    return destination;
  }
};

using PmUbusConfigAdditem = ConfigTest;
using PmUbusConfigGetitem = ConfigTest;
using PmUbusConfigDeleteitem = ConfigTest;
using ItemStoreRewrite = ConfigTest;

std::string letters(size_t count) {
  return std::string(count, 'a');
}

TEST_F(PmUbusConfigAdditem, ReplacesEveryMatchingLineElseAppends) {
  const std::string longName(31, 'n');
  const struct {
    const char *about;
    std::string before, item, value, after;
  } cases[] = {
      {"one of two lines", "reportInterval=10\nsampleInterval=5\n", "reportInterval", "30",
       "reportInterval=30\nsampleInterval=5\n"},
      {"a new item", "a=1\n", "x", "1", "a=1\nx=1\n"},
      {"an empty store", "", "x", "1", "x=1\n"},
      {"within another name", "if5_interface=eth0\nb=2\n", "interface", "wlan0",
       "if5_interface=wlan0\nb=2\n"},
      {"several lines", "interface=a\nb=2\nif5_interface=c\n", "interface", "",
       "interface=\nb=2\nif5_interface=\n"},
      {"another separator stays", "x:old\n", "x", "new=er one", "x:new=er one\n"},
      {"a line that ends with the name", "x\nb=2\n", "x", "1", "x=1\nb=2\n"},
      {"the last line lacks its line feed", "a=1\nb=2", "a", "9", "a=9\nb=2"},
      {"it is the one replaced", "a=1\nb=2", "b", "9", "a=1\nb=9\n"},
      {"appended behind it", "a=1\nb=2", "x", "9", "a=1\nb=2\nx=9\n"},
      {"appended behind a long line", letters(2 * kPiece), "x", "9",
       letters(2 * kPiece) + "\nx=9\n"},
      {"unmatched long lines", letters(kPiece) + "\n" + letters(9000) + "\n", "x", "9",
       letters(kPiece) + "\n" + letters(9000) + "\nx=9\n"},
      {"the second piece", letters(kPiece) + "x=old\n", "x", "9", letters(kPiece) + "x=9\n"},
      {"the first piece", "x=" + letters(kPiece - 2) + "rest\n", "x", "9", "x=9\nrest\n"},
      {"a piece that ends with the name", letters(kPiece - 1) + "x=old\n", "x", "9",
       letters(kPiece - 1) + "x\n=old\n"},
      {"a piece with room for the separator only", letters(kPiece - 2) + "x=old\n", "x", "9",
       letters(kPiece - 2) + "x=\nold\n"},
      {"a value that no longer fits", letters(4000) + "x=1\n", "x", letters(200),
       letters(4000) + "x=" + letters(kPiece - 4002) + "\n"},
      {"a new item that does not fit", "", longName, letters(kPiece),
       longName + "=" + letters(kPiece - 1 - 32) + "\n"},
      {"a zero byte in another line", "a\0b\nc=1\n"s, "x", "9", "a\0b\nc=1\nx=9\n"s},
      {"zero bytes at the end", "a=1\n\0b\0"s, "x", "9", "a=1\n\0b\0\nx=9\n"s},
      {"a zero byte in a long line", letters(kPiece - 1) + "\0a\0\nb=1\n"s, "b", "9",
       letters(kPiece - 1) + "\0a\0\nb=9\n"s},
      {"a zero byte in the old value", "x=1\02\nb=1\n"s, "x", "9", "x=9\nb=1\n"},
      {"a name behind a zero byte", "a\0x=1\nx=2\n"s, "x", "9", "a\0x=1\nx=9\n"s},
  };
  for (const auto &c : cases) {
    SCOPED_TRACE(c.about);
    fill(c.before);
    EXPECT_EQ(add(c.item, c.value), 0);
    EXPECT_EQ(content(), c.after);
    EXPECT_FALSE(temporaryExists());
  }
}

TEST_F(PmUbusConfigDeleteitem, BlanksEveryMatchingLineAndKeepsTheRest) {
  const struct {
    const char *about;
    std::string before;
    const char *item;
    std::string after;
  } cases[] = {
      {"the last item", "reportInterval=10\nsampleInterval=5\n", "sampleInterval",
       "reportInterval=10\n\n"},
      {"several lines", "interface=a\nb=2\nif5_interface=c\n", "interface", "\nb=2\n\n"},
      {"no such item, no last line feed", "a=1\n\nb=2", "x", "a=1\n\nb=2"},
      {"the last line without line feed", "a=1\nb=2", "b", "a=1\n\n"},
      {"one piece of a long line", letters(kPiece) + "x=1\nb=2\n", "x",
       letters(kPiece) + "\nb=2\n"},
      {"a zero byte in another line", "a\0b\nc=1\n"s, "c", "a\0b\n\n"s},
      {"zero bytes at the end", "a=1\nb\0c"s, "a", "\nb\0c"s},
  };
  for (const auto &c : cases) {
    SCOPED_TRACE(c.about);
    fill(c.before);
    EXPECT_EQ(remove(c.item), 0);
    EXPECT_EQ(content(), c.after);
    EXPECT_FALSE(temporaryExists());
  }
}

TEST_F(PmUbusConfigGetitem, DeliversTextOfTheFirstMatchCutAtTheLength) {
  const std::string zeros(8, '\0');
  const struct {
    const char *about;
    std::string store;
    const char *item;
    std::string destination;
  } cases[] = {
      {"room for all", "interface=br0\n", "interface", std::string("br0") + zeros},
      {"no room for the terminator", "interface=br0-uplink\n", "interface", "br0-uplin"},
      {"exactly the value", "interface=br0\n", "interface", "br0"},
      {"the first line that matches", "if5_interface=a\ninterface=b\n", "interface", "a"},
      {"a name that contains a listed one", "my_interface_2=a b=c\n", "my_interface_2", "a b=c"},
      {"no line feed at the end", "a=1\ninterface=b", "interface", "b"},
      {"a line that ends with the name", "interface\nb=2\n", "interface", zeros},
      {"nothing at all behind the name", "a=much longer\ninterface", "interface", zeros},
      {"the second piece of a long line", letters(kPiece) + "interface=b\n", "interface", "b"},
      {"up to the end of the piece", "interface=" + letters(5000) + "\n", "interface",
       letters(kPiece - 10) + zeros},
      {"an item of neither kind", "foo=1\n", "foo", zeros},
      {"a JSON item as a text", "if5_token={}\n", "if5_token", zeros},
  };
  for (const auto &c : cases) {
    SCOPED_TRACE(c.about);
    fill(c.store);
    EXPECT_EQ(text(c.item, c.destination.size()), c.destination);
  }
}

TEST_F(PmUbusConfigGetitem, KnowsEveryTextItem) {
  const char *const items[] = {
      "if5_gwAddress",       "if5_workkey",        "if5_userkey",        "ifa_deviceId",
      "ifa_deviceToken",     "if6_factorySetting", "if3_deviceMacSaved", "if3_deviceId",
      "if3_gwToken",         "if3_deviceToken",    "if3_andlinkToken",   "if3_reg_gwAddr",
      "if3_g_gwmode",        "if3_ssid",           "if3_password",       "if3_encrypt",
      "if3_channel",         "if3_usrkey",         "if3_lgwAddress",     "if3_cgwAddress",
      "if3_lgwToken",        "if3_cgwToken",       "if3_g_SyncCode",     "MacFilter_WhiteList",
      "MacFilter_BlackList", "interface",          "reportInterval",     "sampleInterval"};
  for (const char *item : items) {
    fill(std::string(item) + "=v\n");
    EXPECT_EQ(text(item, 2), std::string("v\0", 2)) << item;
    const std::string shorter(item, std::string(item).size() - 1);
    fill(shorter + "=v\n");
    EXPECT_EQ(text(shorter.c_str(), 2), std::string(2, '\0')) << shorter;
  }
}

TEST_F(PmUbusConfigGetitem, AddsJsonUnderTheListedName) {
  const std::unique_ptr<cJSON, void (*)(cJSON *)> object(cJSON_CreateObject(), cJSON_Delete);
  const auto get = [&](const char *item) {
    return pm_ubus_config_getitem(item, object.get(), 0, kPath);
  };
  fill(
      "if5_token={\"a\":1}\nIF5_ap_config={broken\nifa_service_config=\"t\"\nif6_ap_config=true\n"
      "if6_service_config=2\nIF5_ap_config_ifa_ap_config=[1,2]\ninterface=3\n");
  for (const char *item : {"if5_token", "IF5_ap_config_ifa_ap_config", "ifa_service_config",
                           "if6_ap_config", "if6_service_config", "IF5_ap_config", "interface"}) {
    EXPECT_EQ(get(item), 0) << item;
  }
  EXPECT_EQ(
      printedBy([&] { get("interface"); }),
      "pm_ubus_config_getitem 107  item:interface bufsize:0\n"
      "pm_ubus_config_getitem 208 interface: {\"if5_token\":{\"a\":1},\"ifa_ap_config\":[1,2],"
      "\"ifa_service_config\":\"t\",\"if6_ap_config\":true,\"if6_service_config\":2}\n");
}

/// Runs on the stack that a daemon owes the library; one that is too small ends the process.
void onOwedStack(void *(*run)(void *), void *argument) {
  constexpr size_t kOwedStack = 160 * 1024;
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, kOwedStack), 0);
  pthread_t thread;
  ASSERT_EQ(pthread_create(&thread, &attributes, run, argument), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

TEST_F(PmUbusConfigGetitem, ReadsAndPrintsTheDeepestJsonOnTheOwedStack) {
  const std::string deepest = std::string(1000, '[') + std::string(1000, ']');
  const std::unique_ptr<cJSON, void (*)(cJSON *)> object(cJSON_CreateObject(), cJSON_Delete);
  fill("if5_token=" + deepest + "\ninterface=br0\n");
  const auto get = [](void *tree) -> void * {
    pm_ubus_config_getitem("if5_token", tree, 0, kPath);
    pm_ubus_config_getitem("interface", tree, 0, kPath);
    return nullptr;
  };
  EXPECT_THAT(printedBy([&] { onOwedStack(get, object.get()); }),
              ::testing::EndsWith(" interface: {\"if5_token\":" + deepest + "}\n"));
}

uint32_t allocationsLeft;
uint32_t liveAllocations;

TEST_F(PmUbusConfigGetitem, KeepsJsonWhateverTheAdditionAnswers) {
  const std::unique_ptr<cJSON, void (*)(cJSON *)> object(cJSON_CreateObject(), cJSON_Delete);
  fill("if5_token={\"a\":1}\nifa_ap_config=[1,2]\n");
  saysNothing = true;
  for (const char *item : {"if5_token", "ifa_ap_config"}) {
    EXPECT_EQ(pm_ubus_config_getitem(item, object.get(), 0, kPath), 0);
  }
  saysNothing = false;
  const std::unique_ptr<char, void (*)(void *)> text(cJSON_PrintUnformatted(object.get()),
                                                     cJSON_free);
  EXPECT_STREQ(text.get(), R"({"if5_token":{"a":1},"ifa_ap_config":[1,2]})");
}

TEST_F(PmUbusConfigGetitem, AFailedAllocationLeavesNothingBehind) {
  cJSON_Hooks hooks = {[](size_t size) -> void * {
                         if (allocationsLeft == 0) return nullptr;
                         --allocationsLeft;
                         ++liveAllocations;
                         return malloc(size);
                       },
                       [](void *block) {
                         if (block != nullptr) --liveAllocations;
                         free(block);
                       }};
  cJSON_InitHooks(&hooks);
  fill("if5_token={\"a\":[1]}\ninterface=br0\n");
  for (const char *item : {"if5_token", "interface"}) {
    uint32_t given = 0;
    do {
      SCOPED_TRACE(std::string(item) + " with allocations: " + std::to_string(++given));
      allocationsLeft = given;
      cJSON *object = cJSON_CreateObject();
      EXPECT_EQ(pm_ubus_config_getitem(item, object, 0, kPath), 0);
      cJSON_Delete(object);
      EXPECT_EQ(liveAllocations, 0u);
    } while (allocationsLeft == 0);
    EXPECT_GT(given, 2u);
  }
  cJSON_InitHooks(nullptr);
}

TEST_F(PmUbusConfigAdditem, TracesToStandardOutputAndLogsItsEntry) {
  fill("my x=old one\n");
  EXPECT_EQ(printedBy([] { add("x", "new"); }),
            "line:10, ubusadditem->item:x, ubusadditem->value:new\n"
            "line:22, item:x, value:new\n"
            "function:pm_ubus_config_additem,line:55, item exist x value old one\r\n"
            "item new value my x=new\r\n");
  EXPECT_EQ(printedBy([] { add("b", "2"); }),
            "line:10, ubusadditem->item:b, ubusadditem->value:2\n"
            "line:22, item:b, value:2\n"
            "function:pm_ubus_config_additem,line:79, new item fputs b=2 \r\n");
  ASSERT_EQ(logs().size(), 2u);
  EXPECT_EQ(logs()[0].tag, "object_nexumd_config_pmapi.c");
  EXPECT_THAT(logs(), HasLogLine({5, "pm_ubus_config_additem",
                                  "now in function pm_ubus_config_additem\n"}));
}

TEST_F(PmUbusConfigGetitem, TracesTheRequestAndLogsWhatItFound) {
  fill("interface=br0\nfoo=1\n");
  EXPECT_EQ(printedBy([] { text("interface", 4); }),
            "pm_ubus_config_getitem 107  item:interface bufsize:4\n");
  ASSERT_EQ(logs().size(), 1u);
  EXPECT_EQ(logs()[0].level, 5);
  EXPECT_EQ(logs()[0].text, "pm_ubus_config_getitem " + std::to_string(logs()[0].line) +
                                ":item exist  interface = br0---\r\n");
  text("foo", 4);
  ASSERT_EQ(logs().size(), 3u);
  EXPECT_EQ(logs()[2].level, 5);
  EXPECT_EQ(logs()[2].text, "pm_ubus_config_getitem " + std::to_string(logs()[2].line) + " : \n");
}

TEST_F(PmUbusConfigDeleteitem, TracesTheRequestAndLogsEachBlankedLine) {
  fill("a=1\nab=2\nc=3\n");
  EXPECT_EQ(printedBy([] { remove("a"); }), "line:435, pm_ubus_config_deleteitem 435 a\n");
  ASSERT_EQ(logs().size(), 2u);
  EXPECT_EQ(logs()[0].text, "item new value \r\n");
  EXPECT_EQ(logs()[0].level, 5);
}

TEST_F(PmUbusConfigAdditem, RefusesANullRecordAndAMissingStore) {
  EXPECT_EQ(printedBy([] { EXPECT_EQ(pm_ubus_config_additem(nullptr, kPath, kTemporary), -257); }),
            "");
  EXPECT_THAT(logs(),
              HasLogLine({4, "pm_ubus_config_additem", "pm_ubus_config_additem para is null"}));
  EXPECT_EQ(add("x", "1"), -1);
  EXPECT_THAT(logs(), HasLogLine({4, "pm_ubus_config_additem", "fopen path error\r\n"}));
  EXPECT_THAT(files().list(), IsEmpty());
}

TEST_F(ItemStoreRewrite, RefusesNamesAndValuesThatMakeNoLineOfTheirOwn) {
  const std::string before = "a=1\ninterface=br0\n";
  fill(before);
  const auto refused = [&](const std::string &function, const std::string &item) {
    EXPECT_EQ(content(), before);
    EXPECT_THAT(logs(),
                HasLogLine({4, function, "[" + function + "] item " + item + " is refused\n"}));
    EXPECT_THAT(trace("unlink"), IsEmpty());
    forgetCalls();
  };
  for (const auto &[item, value] :
       {std::pair("", "1"), {"a\nb", "1"}, {"a", "1\nif3_gwToken=2"}, {"a", "\n"}}) {
    EXPECT_EQ(add(item, value), -1);
    refused("pm_ubus_config_additem", item);
  }
  for (const char *item : {"", "a\n", "1\ninterface"}) {
    EXPECT_EQ(remove(item), -1);
    refused("pm_ubus_config_deleteitem", item);
  }
}

TEST_F(ItemStoreRewrite, TouchesNoTemporaryPathThatIsNoFileOfItsOwn) {
  namespace fs = std::filesystem;
  const fs::path store = files().map(kPath), temporary = files().map(kTemporary);
  const fs::path other = files().map("/userconfig/other");
  const struct {
    const char *about;
    std::function<void()> make;
  } cases[] = {
      {"a hard link to the store", [&] { fs::create_hard_link(store, temporary); }},
      {"a symbolic link to the store", [&] { fs::create_symlink(store, temporary); }},
      {"a symbolic link to a file", [&] { fs::create_symlink(other, temporary); }},
      {"a symbolic link to nothing", [&] { fs::create_symlink(other / "x", temporary); }},
      {"a directory", [&] { fs::create_directory(temporary); }},
      {"a FIFO", [&] { ASSERT_EQ(mkfifo(temporary.c_str(), 0600), 0); }},
  };
  for (const auto &c : cases) {
    SCOPED_TRACE(c.about);
    fill("a=1\n");
    files().write("/userconfig/other", "kept");
    c.make();
    const fs::file_status before = fs::symlink_status(temporary);
    // A FIFO is opened for writing without waiting as long as somebody reads it.
    const int reader = open(temporary.c_str(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW);
    EXPECT_EQ(add("x", "1"), -1);
    EXPECT_EQ(remove("a"), -1);
    close(reader);
    EXPECT_EQ(content(), "a=1\n");
    EXPECT_EQ(files().read("/userconfig/other"), "kept");
    EXPECT_EQ(fs::symlink_status(temporary).type(), before.type());
    fs::remove_all(temporary);
  }
  EXPECT_EQ(pm_ubus_config_deleteitem("a", kPath, kPath), -1);
  EXPECT_EQ(content(), "a=1\n");
}

TEST_F(ItemStoreRewrite, TheRestOfAnEarlierRewriteMakesWay) {
  fill("a=1\n");
  files().write(kTemporary, "a rest that is longer than the store");
  const std::filesystem::path elsewhere = files().map("/userconfig/elsewhere");
  std::filesystem::create_hard_link(files().map(kTemporary), elsewhere);
  EXPECT_EQ(add("x", "1"), 0);
  EXPECT_EQ(content(), "a=1\nx=1\n");
  EXPECT_FALSE(temporaryExists());
  EXPECT_EQ(files().read("/userconfig/elsewhere"), "a rest that is longer than the store");
  fail("unlink", kTemporary, -1, 1, 1);
  files().write(kTemporary, "rest");
  EXPECT_EQ(add("x", "2"), -1);
  EXPECT_EQ(content(), "a=1\nx=1\n");
}

TEST_F(PmUbusConfigGetitem, RefusesSilently) {
  char destination[4] = "abc";
  fill("interface=br0\n");
  EXPECT_EQ(
      printedBy([&] { EXPECT_EQ(pm_ubus_config_getitem(nullptr, destination, 4, kPath), -1); }),
      "pm_ubus_config_getitem 107  item:(null) bufsize:4\n");
  EXPECT_EQ(pm_ubus_config_getitem("interface", nullptr, 4, kPath), -1);
  EXPECT_EQ(pm_ubus_config_getitem("interface", destination, -1, kPath), -1);
  EXPECT_EQ(pm_ubus_config_getitem("interface", destination, 4, "/userconfig/none"), -1);
  EXPECT_EQ(pm_ubus_config_getitem("reportInterval", destination, 4, kPath), -1);
  EXPECT_THAT(logs(), IsEmpty());
  EXPECT_STREQ(destination, "abc");
}

TEST_F(PmUbusConfigDeleteitem, RefusesANullNameAndAMissingStore) {
  EXPECT_EQ(printedBy([] { EXPECT_EQ(remove(nullptr), -1); }),
            "line:435, pm_ubus_config_deleteitem 435 (null)\n");
  EXPECT_EQ(remove("x"), -1);
  ASSERT_EQ(logs().size(), 2u);
  const auto place = [](const gateway::LogLine &line) {
    return "pm_ubus_config_deleteitem  " + std::to_string(line.line);
  };
  EXPECT_EQ(logs()[0].text, place(logs()[0]) + " delete error\r\n");
  EXPECT_EQ(logs()[1].text, place(logs()[1]) + " fopen path\r\n");
  EXPECT_EQ(logs()[1].level, 5);
  EXPECT_THAT(files().list(), IsEmpty());
}

TEST_F(ItemStoreRewrite, GivesUpTheOldFileOnlyForOneThatIsOnTheDisk) {
  fill("a=1\n");
  add("x", "1");
  std::vector<std::string> calls;
  for (const boundary::Call &call : gateway().boundary().calls()) {
    if (call.name != "read") calls.push_back(call.name + " " + call.key);
  }
  const std::string path = kPath, temporary = kTemporary;
  EXPECT_THAT(
      calls, ElementsAre("fopen " + path + " r", "lstat " + temporary, "fopen " + temporary + " wx",
                         "write " + temporary, "fsync " + temporary, "fclose " + path,
                         "fclose " + temporary, "unlink " + path,
                         "rename " + temporary + " " + path, "unlink " + temporary));
}

/// A change of a store that takes several reads and writes.
struct Change {
  const char *about;
  std::string before, after;
  std::function<int32_t()> make;
};

std::vector<Change> largeChanges() {
  const std::string bulk = letters(9000) + "\n" + letters(9000) + "\n";
  return {
      {"replace", "x=1\n" + bulk, "x=new\n" + bulk, [] { return add("x", "new"); }},
      {"append", bulk, bulk + "x=new\n", [] { return add("x", "new"); }},
      {"delete", bulk + "x=1\n", bulk + "\n",
       [] { return pm_ubus_config_deleteitem("x", kPath, kTemporary); }},
  };
}

TEST_F(ItemStoreRewrite, NoFailingCallLosesTheStore) {
  for (const Change &change : largeChanges()) {
    SCOPED_TRACE(change.about);
    beforeEachRun([&] { fill(change.before); });
    sweepFaults(change.make, [&](const gateway::testing::SweepRun &run) {
      if (run.status == 0) {
        EXPECT_EQ(content(), change.after);
        return;
      }
      EXPECT_EQ(run.status, -1);
      if (!files().read(kPath).has_value()) {
        EXPECT_EQ(files().read(kTemporary), change.after);
        return;
      }
      EXPECT_EQ(content(), change.before);
      EXPECT_FALSE(run.once && temporaryExists());
    });
  }
}

TEST_F(PmUbusConfigGetitem, NoFailingCallLeavesAPartOfTheValue) {
  char destination[8];
  beforeEachRun([&] {
    fill(letters(9000) + "\ninterface=br0\n");
    strcpy(destination, "before");
  });
  const auto get = [&] { return pm_ubus_config_getitem("interface", destination, 8, kPath); };
  sweepFaults(get, [&](const gateway::testing::SweepRun &run) {
    EXPECT_STREQ(destination, run.status == 0 ? "br0" : "before");
    EXPECT_TRUE(run.status == 0 || run.status == -1);
  });
}

TEST_F(ItemStoreRewrite, AFullDiskLeavesTheStoreAsItWas) {
  for (const Change &change : largeChanges()) {
    for (const auto &[call, room] : {std::pair{"write", 0}, {"write", 100}, {"fsync", -1}}) {
      SCOPED_TRACE(std::string(change.about) + " " + call + " " + std::to_string(room));
      restart();
      fill(change.before);
      const size_t fault = fail(call, kTemporary, room);
      EXPECT_EQ(change.make(), -1);
      EXPECT_GT(gateway().boundary().fault(fault).fired, 0u);
      EXPECT_EQ(content(), change.before);
      EXPECT_FALSE(temporaryExists());
    }
  }
}

TEST_F(ItemStoreRewrite, AStoreThatCannotBeReadToItsEndGetsNoNewItem) {
  fill(letters(9000));
  fail("read", kPath, 0, 2);
  const std::string printed = printedBy([] { EXPECT_EQ(add("x", "1"), -1); });
  EXPECT_THAT(printed, ::testing::Not(::testing::HasSubstr("new item")));
  EXPECT_EQ(content(), letters(9000));
}

TEST_F(ItemStoreRewrite, AStoreOfUnknownLengthStaysAsItIs) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  const std::string place = files().map(kPath);
  ASSERT_EQ(symlink(("/proc/self/fd/" + std::to_string(ends[0])).c_str(), place.c_str()), 0);
  ASSERT_EQ(write(ends[1], "x=1\na\0b\n", 8), 8);
  close(ends[1]);
  EXPECT_EQ(add("x", "2"), -1);
  EXPECT_TRUE(std::filesystem::is_symlink(place));
  EXPECT_FALSE(temporaryExists());
  close(ends[0]);
}

TEST_F(ItemStoreRewrite, AFailedRenameLeavesTheWholeStoreInTheTemporaryFile) {
  for (const Change &change : largeChanges()) {
    SCOPED_TRACE(change.about);
    restart();
    fill(change.before);
    fail("rename");
    EXPECT_EQ(change.make(), -1);
    EXPECT_EQ(files().read(kTemporary), change.after);
    // A later change must not mistake the missing store for an empty one.
    EXPECT_EQ(add("y", "1"), -1);
    EXPECT_EQ(files().read(kTemporary), change.after);
  }
}

constexpr int kKilled = 1;
constexpr int kSurvived = 2;

/// Where a process dies: right after its n-th call, or with a hundred bytes of its n-th write done.
enum class Moment { kAfterCall, kWithinWrite };

/// False when the change needs fewer calls than that.
bool killed(Moment moment, uint32_t number, const Change &change, bool withoutStreams) {
  // Not fork(): what libc does besides in its child crashes under the ARM emulator.
  const pid_t child = _Fork();
  if (child == 0) {
    boundary::Boundary &boundary = gateway::Gateway::current().boundary();
    if (moment == Moment::kWithinWrite) boundary.addFault({"write", kTemporary, number, 1, 100});
    boundary.onCall([&](const boundary::Call &call) {
      const bool due =
          moment == Moment::kWithinWrite ? call.faulted : boundary.calls().size() + 1 == number;
      if (due) _exit(kKilled);
    });
    std::optional<ClosedStandardStreams> closed;
    if (withoutStreams) closed.emplace();
    change.make();
    _exit(kSurvived);
  }
  int status = 0;
  EXPECT_EQ(waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status));
  return WEXITSTATUS(status) == kKilled;
}

class ItemStoreKill : public ConfigTest {
 protected:
  /// True when the process died; what it left must then be one of two whole stores.
  bool killAndRecover(const Change &change, Moment moment, uint32_t number, bool withoutStreams) {
    fill(change.before);
    files().remove(kTemporary);
    const bool dead = killed(moment, number, change, withoutStreams);
    const std::string whole =
        files().read(kPath).has_value() ? content() : files().read(kTemporary).value_or("(none)");
    EXPECT_TRUE(whole == change.after || (dead && whole == change.before));
    return dead;
  }

  void killEverywhere(bool withoutStreams) {
    for (const Change &change : largeChanges()) {
      for (const Moment moment : {Moment::kAfterCall, Moment::kWithinWrite}) {
        SCOPED_TRACE(change.about);
        uint32_t number = 1;
        while (killAndRecover(change, moment, number, withoutStreams)) ++number;
        EXPECT_GT(number, moment == Moment::kAfterCall ? 10u : 2u) << "killed too seldom";
      }
    }
  }
};

TEST_F(ItemStoreKill, AnyCallLeavesOneWholeStore) {
  killEverywhere(false);
}

TEST_F(ItemStoreKill, AnyCallWithoutStandardStreamsLeavesOneWholeStore) {
  killEverywhere(true);
}

TEST_F(ItemStoreRewrite, NoTraceGetsIntoTheStoreOfADaemonWithoutStandardStreams) {
  for (const Change &change : largeChanges()) {
    SCOPED_TRACE(change.about);
    fill(change.before);
    int32_t status = -1;
    {
      const ClosedStandardStreams closed;
      status = change.make();
    }
    EXPECT_EQ(status, 0);
    EXPECT_EQ(content(), change.after);
  }
}

}  // namespace
