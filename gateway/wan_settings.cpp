// What the management side rewrites of the WAN connections: addressing, the PPPoE account, and
// bridge or route mode.
#include <nlohmann/json.hpp>

#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "gateway/section.hpp"
#include "platform/wan.h"
#include "platform/wan.hpp"

namespace gateway {

namespace {

/// The adapter must forget its connections before each rewriting.
class WanSettings : public Section {
 public:
  WanSettings() : Section("wanSettings") {}

  bool adapterCleared = false;

  void load(const Json &value, const std::string &place) override {
    Members members(value, place);
    members.flag("adapterCleared", &adapterCleared);
    members.finish();
  }
  Json save() const override {
    return adapterCleared ? Json{{"adapterCleared", true}} : Json(nullptr);
  }
  void reset() override { adapterCleared = false; }
};

WanSettings settings;

/// The Internet connection: what a rewriting without an instance means.
std::string internetConnection(Store &store) {
  return store.row<NetworkingDeviceView>("IGD").text(NetworkingDeviceView::wanInstance);
}

template <class Record>
int32_t rewrite(Gateway &gateway, const char *instance, void *record) {
  if (instance == nullptr || record == nullptr) throw Refusal(kNullArgument, "no connection");
  if (instance[0] != '\0') throw Refusal(kBadRequest, "the instance is written, not read");
  if (!settings.adapterCleared) {
    throw Refusal(kBadRequest, "the adapter still holds the old connections");
  }
  settings.adapterCleared = false;
  const std::string path = internetConnection(gateway.store());
  gateway.store().create<Record>(path);
  return gateway.store().set(layoutOf<Record>(), path, record, Unchanged::kReported);
}

void copyAccount(const Row &from, const platform::Field &user, const platform::Field &password,
                 const Row &to) {
  to.setText(WanPppConnectionView::userName, from.text(user));
  to.setText(WanPppConnectionView::password, from.text(password));
}

}  // namespace

}  // namespace gateway

using namespace gateway;

int32_t gateway::si_ifsadapt_clear_wanc() {
  settings.adapterCleared = true;
  return kOk;
}

int32_t gateway::pm_e8_wanc_set_comm_ppp_ext(char instance[128], WanPppExtRecord *record) {
  Gateway &gateway = Gateway::current();
  return rewrite<WanPppExtRecord>(gateway, instance, record);
}

int32_t gateway::pm_e8_wanc_set_comm_ip_ext(char instance[128], WanIpExtRecord *record) {
  Gateway &gateway = Gateway::current();
  return rewrite<WanIpExtRecord>(gateway, instance, record);
}

int32_t gateway::pm_wanc_set_ppp_username_passwd(PppoeAccountRecord *record) {
  Gateway &gateway = Gateway::current();
  const Row account = fieldsOf<PppoeAccountRecord>(record);
  if (account.validity(PppoeAccountRecord::userName) == -1 ||
      account.validity(PppoeAccountRecord::password) == -1) {
    return kInvalidField;
  }
  const std::string path = internetConnection(gateway.store());
  if (!gateway.store().has<WanPppConnectionView>(path)) return kUnknownInstance;
  copyAccount(account, PppoeAccountRecord::userName, PppoeAccountRecord::password,
              gateway.store().row<WanPppConnectionView>(path));
  return kOk;
}

int32_t gateway::pm_wanc_change_brg_route_mode(WorkingModeRecord *record, uint32_t flag) {
  Gateway &gateway = Gateway::current();
  if (flag != 1) throw Refusal(kBadRequest, "the mode is to be applied at once");
  const Row mode = fieldsOf<WorkingModeRecord>(record);
  const auto *addressing = reinterpret_cast<const char *>(
      static_cast<uintptr_t>(mode.word(WorkingModeRecord::addressingType)));
  if (addressing == nullptr || std::string_view(addressing) != "DHCP") {
    throw Refusal(kInvalidField, "the connection's addressing is not named");
  }
  const Row networking = gateway.store().row<NetworkingDeviceView>("IGD");
  networking.setWord(NetworkingDeviceView::workingMode, mode.word(WorkingModeRecord::workingMode));
  networking.setWord(NetworkingDeviceView::accessMode, mode.word(WorkingModeRecord::internetType));
  gateway.store().create<WorkingModeRecord>("IGD");
  return gateway.store().set(layoutOf<WorkingModeRecord>(), "IGD", record);
}
