// The list of stations whose channel state is collected, as it comes from the bus.
//
// Input: a byte that chooses to add or to delete, then the list.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "gateway/gateway.hpp"
#include "platform/wlan.hpp"
#include "pmapi/wifi_csi.h"

using namespace platform;

namespace {

constexpr size_t kListRoom = 416;
constexpr size_t kStep = 13;

void require(bool held, const char *what) {
  if (held) return;
  std::fprintf(stderr, "the list of stations broke its promise: %s\n", what);
  std::abort();
}

/// A record on the heap with exactly the room of its list, so that the sanitizer sees a byte too
/// many.
class Request {
 public:
  explicit Request(size_t room) : bytes_(new uint8_t[sizeof(CsiMacRecord) + room]()) {}
  CsiMacRecord *get() { return reinterpret_cast<CsiMacRecord *>(bytes_.get()); }

 private:
  std::unique_ptr<uint8_t[]> bytes_;
};

size_t piecesHandedOn(const std::string &list) {
  size_t pieces = 0;
  for (const boundary::Call &call : gateway::Gateway::current().boundary().calls()) {
    const bool handsOn = call.name == "pm_wlan_add_csi_mac" || call.name == "pm_wlan_del_csi_mac";
    if (!handsOn) continue;
    const std::string piece = list.substr(pieces * kStep, kStep - 1);
    require(call.key == "IGD " + piece, "each piece is handed on as it is");
    ++pieces;
  }
  return pieces;
}

void requireListed() {
  gateway::Store &store = gateway::Gateway::current().store();
  std::string expected;
  for (const std::string &path : store.paths(gateway::layoutOf<WlanCsiMacRecord>())) {
    if (!expected.empty()) expected += ',';
    expected += store.row<WlanCsiMacRecord>(path).text(WlanCsiMacRecord::macText);
  }
  Request answer(kListRoom);
  require(pm_ubus_get_csi_mac(answer.get()) == 0, "the stations can be listed");
  require(answer.get()->macList == expected, "the stations are those that the platform kept");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size == 0) return 0;
  gateway::Gateway &gateway = gateway::Gateway::current();
  gateway.boundary().clearCalls();
  gateway.clearLogs();

  const auto *text = reinterpret_cast<const char *>(data + 1);
  const std::string list(text, strnlen(text, std::min(size - 1, kListRoom - 1)));
  Request request(list.size() + 1);
  request.get()->operation = data[0] % 4;
  std::memcpy(request.get()->macList, list.c_str(), list.size() + 1);

  const int32_t status = pm_ubus_set_csi_mac(request.get());
  const bool known = request.get()->operation == 1 || request.get()->operation == 2;
  require(status == (known ? 0 : -1), "operations are 1 and 2");
  const size_t pieces = known ? (list.size() + kStep - 1) / kStep : 0;
  require(piecesHandedOn(list) == pieces, "every piece is handed on once");
  requireListed();
  return 0;
}
