// A daemon may have closed its standard streams: no file of the library takes their place.
#include <pmapi/config.h>
#include <pmapi/control.h>
#include <pmapi/helpers.h>
#include <pmapi/uplinkinfo.h>

#include <cstring>
#include <vector>

#include "tests/support/closed_streams.hpp"
#include "tests/support/gateway_test.hpp"

namespace {

using gateway::testing::ClosedStandardStreams;

constexpr char kStore[] = "/userconfig/nexumd_cfgfile";
constexpr char kTemporary[] = "/userconfig/nexumd_cfgfile.tmp";
constexpr char kArpTable[] = "/proc/net/arp";

const struct {
  const char *about;
  int32_t (*run)();
} kReaders[] = {
    {"add",
     [] {
       const char record[40] = "interface";
       return pm_ubus_config_additem(reinterpret_cast<const UbusAddItem *>(record), kStore,
                                     kTemporary);
     }},
    {"delete", [] { return pm_ubus_config_deleteitem("b", kStore, kTemporary); }},
    {"get",
     [] {
       char value[8];
       return pm_ubus_config_getitem("interface", value, sizeof value, kStore);
     }},
    {"file size", [] { return file_size(kStore) == 20 ? 0 : -1; }},
    {"kernel count",
     [] {
       int32_t count = 0;
       return pm_ubus_get_kernelcount(&count);
     }},
    {"gateway MAC",
     [] {
       char mac[32] = {};
       return ubus_getGatewayMac(mac);
     }},
};

class FileTest : public GatewayTest {
 protected:
  void fill() {
    files().write(kStore, "a=1\ninterface=br0\nb=");
    files().write("/proc/ffe/hff_enable", "1\n");
    files().write("/proc/ffe/hff_skip_num", "7\n");
    files().write(kArpTable,
                  "IP address       HW type     Flags       HW address            Mask"
                  "     Device\n10.0.0.1 0x1 0x2 02:00:00:00:00:01 * nbif0\n");
  }
};

TEST_F(FileTest, NoOpenFileIsAStandardStream) {
  for (const auto &reader : kReaders) {
    SCOPED_TRACE(reader.about);
    restart();
    fill();
    uint32_t uses = 0, wrongUses = 0;
    gateway().boundary().onCall([&](const boundary::Call &call) {
      if (call.name != "read" && call.name != "write" && call.name != "fdopen") return;
      ++uses;
      if (ClosedStandardStreams::anyOpen()) ++wrongUses;
    });
    int32_t status = 1;
    bool taken = true;
    {
      const ClosedStandardStreams closed;
      status = reader.run();
      taken = ClosedStandardStreams::anyOpen();
    }
    gateway().boundary().onCall({});
    EXPECT_EQ(status, 0);
    EXPECT_FALSE(taken);
    EXPECT_GT(uses, 0u);
    EXPECT_EQ(wrongUses, 0u);
  }
}

TEST_F(FileTest, WhatCannotMoveAwayIsNotOpened) {
  expectNoLeaks();
  for (const char *call : {"fcntl", "fdopen"}) {
    for (const char *path : {kStore, kTemporary}) {
      SCOPED_TRACE(std::string(call) + " " + path);
      restart();
      fill();
      boundary::Fault fault{call};
      // A duplicate's key is its number: the store is the first that is moved.
      if (std::strcmp(call, "fcntl") == 0) {
        fault.match = path;
      } else {
        fault.from = path == kStore ? 1 : 2;
      }
      fail(fault);
      int32_t status = 0;
      {
        const ClosedStandardStreams closed;
        status = kReaders[0].run();
      }
      EXPECT_EQ(status, -1);
      EXPECT_EQ(files().read(kStore), "a=1\ninterface=br0\nb=");
      EXPECT_FALSE(files().read(kTemporary).has_value());
    }
  }
}

}  // namespace
