#include "gateway/files.hpp"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <fstream>

#include "gateway/library_calls.hpp"
#include "pmapi/pmapi.h"
#include "tests/support/gateway_test.hpp"

namespace gateway {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsSupersetOf;

class FilesTest : public GatewayTest {
 protected:
  /// Writes through a stream as the library gets it; the result of closing it.
  int writeThrough(const char *path, const std::string &text) {
    FILE *stream = files().open(path, "w");
    std::fputs(text.c_str(), stream);
    const int flushed = std::fflush(stream);
    const int closed = std::fclose(stream);
    return flushed != 0 ? flushed : closed;
  }
};

TEST_F(FilesTest, LibraryOpensFilesOfTheGateway) {
  files().write("/userconfig/nexumd_cfgfile", "a=1\n");
  EXPECT_EQ(file_size("/userconfig/nexumd_cfgfile"), 4);
  EXPECT_EQ(file_size("/userconfig/missing"), -1);
  EXPECT_THAT(trace(), IsSupersetOf({"fopen(/userconfig/nexumd_cfgfile r) = ok",
                                     "fclose(/userconfig/nexumd_cfgfile) = 0",
                                     "fopen(/userconfig/missing r) = NULL"}));
  EXPECT_EQ(files().openStreams(), 0u);
}

TEST_F(FilesTest, NobodyElseIsDiverted) {
  EXPECT_EQ(std::fopen("/userconfig/nexumd_cfgfile", "r"), nullptr);
  EXPECT_TRUE(trace().empty());
}

TEST_F(FilesTest, LibraryReadsTheGatewaysUptime) {
  gateway().clock().set(86400, 1700000000);
  EXPECT_EQ(GetUpTime(), 86400);
  gateway().clock().sleep(10);
  EXPECT_EQ(GetUpTime(), 86410);
  EXPECT_EQ(gateway().clock().slept(), 10);
  EXPECT_EQ(gateway().clock().time(), 1700000010);
}

TEST_F(FilesTest, StreamsCanFailAtEveryStep) {
  EXPECT_EQ(writeThrough("/tmp/file", "first"), 0);
  fail("write", "/tmp/file", 3, 1, 1);
  EXPECT_NE(writeThrough("/tmp/file", "second"), 0);
  EXPECT_EQ(files().read("/tmp/file"), "sec") << "the disk was full after three bytes";

  FILE *stream = files().open("/tmp/file", "r");
  fail("read", "/tmp/file");
  EXPECT_EQ(std::fgetc(stream), EOF);
  EXPECT_TRUE(std::ferror(stream));
  EXPECT_EQ(errno, EIO);
  fail("fclose", "/tmp/file");
  EXPECT_EQ(std::fclose(stream), EOF);
  EXPECT_EQ(files().openStreams(), 0u);
}

TEST_F(FilesTest, TemporaryRootGoesAndTheUsersStays) {
  files().write("/userconfig/item", "x");
  const fs::path temporary = files().root();
  EXPECT_TRUE(fs::exists(temporary / "userconfig/item"));
  EXPECT_THAT(files().list(), ElementsAre("/userconfig/item"));

  const fs::path own = fs::temp_directory_path() / ("pmapi-own-" + std::to_string(::getpid()));
  files().useRoot(own);
  EXPECT_FALSE(fs::exists(temporary));
  files().write("/userconfig/item", "kept");
  files().reset();
  EXPECT_EQ(files().read("/userconfig/item"), "kept");
  fs::remove_all(own);
  files().useTemporaryRoot();
}

TEST_F(FilesTest, PathsCannotLeaveTheGateway) {
  EXPECT_THROW(files().write("/tmp/../../etc/item", "x"), std::invalid_argument);
  EXPECT_THROW(files().write("/etc/item", "x"), std::invalid_argument);
  EXPECT_THROW(files().write("/tmp/..", "x"), std::invalid_argument);
  EXPECT_EQ(file_size("/etc/passwd"), -1) << "the library cannot leave it either";
  EXPECT_THAT(gateway().takeComplaints(),
              ElementsAre("fopen(/etc/passwd r): not a path of the gateway"));
}

}  // namespace
}  // namespace gateway
