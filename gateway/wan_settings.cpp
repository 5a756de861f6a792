// What the management side rewrites of the WAN connections: addressing, the PPPoE account, and
// bridge or route mode.
#include <string_view>

#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "gateway/section.hpp"
#include "platform/wan.hpp"

namespace gateway {

struct WanSettings {
  bool adapterCleared = false;
};

}  // namespace gateway

PM_RECORD(
    gateway::WanSettings,
    PM_FIELD(adapterCleared)
        .means("the adapter has forgotten its connections, as it must before each rewriting"));

namespace gateway {

namespace {

SectionOf<WanSettings> section{"wanSettings", "The adapter of the WAN connections"};

/// The Internet connection: what a rewriting without an instance means.
std::string internetConnection() {
  return store().row<NetworkingDeviceView>("IGD").text(NetworkingDeviceView::wanInstance);
}

template <class Record>
int32_t rewrite(const char *instance, const Record *record) {
  if (instance[0] != '\0') throw Refusal(kBadRequest, "the instance is written, not read");
  if (!section.state().adapterCleared) {
    throw Refusal(kBadRequest, "the adapter still holds the old connections");
  }
  section.state().adapterCleared = false;
  const std::string path = internetConnection();
  store().create<Record>(path);
  return store().set(path, record, Unchanged::kReported);
}

}  // namespace

int32_t si_ifsadapt_clear_wanc() {
  section.state().adapterCleared = true;
  return kOk;
}

int32_t pm_e8_wanc_set_comm_ppp_ext(char instance[128], WanPppExtRecord *record) {
  return rewrite(instance, record);
}

int32_t pm_e8_wanc_set_comm_ip_ext(char instance[128], WanIpExtRecord *record) {
  return rewrite(instance, record);
}

int32_t pm_wanc_set_ppp_username_passwd(PppoeAccountRecord *record) {
  const Row account = fieldsOf<PppoeAccountRecord>(record);
  if (account.validity(PppoeAccountRecord::userName) == -1 ||
      account.validity(PppoeAccountRecord::password) == -1) {
    return kInvalidField;
  }
  const std::string path = internetConnection();
  if (!store().has<WanPppConnectionView>(path)) return kUnknownInstance;
  const Row view = store().row<WanPppConnectionView>(path);
  view.setText(WanPppConnectionView::userName, account.text(PppoeAccountRecord::userName));
  view.setText(WanPppConnectionView::password, account.text(PppoeAccountRecord::password));
  return kOk;
}

int32_t pm_wanc_change_brg_route_mode(WorkingModeRecord *record, uint32_t flag) {
  if (flag != 1) throw Refusal(kBadRequest, "the mode is to be applied at once");
  const Row mode = fieldsOf<WorkingModeRecord>(record);
  const auto *addressing = reinterpret_cast<const char *>(
      static_cast<uintptr_t>(mode.word(WorkingModeRecord::addressingType)));
  if (addressing == nullptr || std::string_view(addressing) != "DHCP") {
    throw Refusal(kInvalidField, "the connection's addressing is not named");
  }
  const Row networking = store().row<NetworkingDeviceView>("IGD");
  networking.setWord(NetworkingDeviceView::workingMode, mode.word(WorkingModeRecord::workingMode));
  networking.setWord(NetworkingDeviceView::accessMode, mode.word(WorkingModeRecord::internetType));
  store().create<WorkingModeRecord>("IGD");
  return store().set("IGD", record);
}

}  // namespace gateway
