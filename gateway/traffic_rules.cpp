// IPTV VLAN bindings and QoS classification rules, each a table in the store.
#include "platform/traffic_rules.h"

#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "gateway/instances.hpp"
#include "platform/traffic_rules.hpp"

using namespace gateway;

namespace {

constexpr uint32_t kMaxVlan = 4096;
constexpr const char *kPortStems[] = {"IGD.LD1.ETH", "IGD.LD1.WLAN"};

bool isPort(const std::string &path) {
  for (const std::string_view stem : kPortStems) {
    if (path.starts_with(stem) && path.size() > stem.size()) return true;
  }
  return false;
}

/// The path of the instance whose text field holds `value`, or an empty one.
template <class View>
std::string pathByText(Store &store, const platform::Field &field, const std::string &value) {
  for (const std::string &path : store.paths(layoutOf<View>())) {
    if (store.row<View>(path).text(field) == value) return path;
  }
  return {};
}

int32_t bindPort(Store &store, const std::string &port, uint32_t vlanId) {
  std::string path = pathByText<IptvVlanBindingView>(store, IptvVlanBindingView::portPath, port);
  if (vlanId == 0) {
    return path.empty() ? kNothingChanged : store.remove(layoutOf<IptvVlanBindingView>(), path);
  }
  if (path.empty()) {
    if (const int32_t status = store.add(layoutOf<IptvVlanBindingView>(), "IGD", &path);
        status != kOk) {
      return status;
    }
  }
  const Row binding = store.row<IptvVlanBindingView>(path);
  if (binding.word(IptvVlanBindingView::vlanId) == vlanId) return kNothingChanged;
  binding.setText(IptvVlanBindingView::portPath, port);
  binding.setWord(IptvVlanBindingView::vlanId, vlanId);
  return kOk;
}

void checkRule(const Row &rule) {
  if (rule.validity(QosClassificationRecord::label) == -1) throw Refusal(kInvalidField);
  for (const platform::Field &field : {platform::Field(QosClassificationRecord::qosCommon),
                                       platform::Field(QosClassificationRecord::label),
                                       platform::Field(QosClassificationRecord::mac1),
                                       platform::Field(QosClassificationRecord::mac2)}) {
    if (rule.mark(field) != 1) {
      throw Refusal(kBadRequest, std::string("the rule has no ") + field.name);
    }
  }
}

int32_t addRule(Store &store, void *record, char *identity) {
  checkRule(fieldsOf<QosClassificationRecord>(record));
  std::string path;
  if (const int32_t status = store.add(layoutOf<QosClassificationView>(), "IGD", &path);
      status != kOk) {
    return status;
  }
  // The view is the record behind a header, so its fields stand at the same places.
  alignas(8) QosClassificationView view = {};
  std::copy_n(static_cast<const uint8_t *>(record), QosClassificationRecord::kSize,
              view.bytes + platform::kViewHeaderSize);
  store.set(layoutOf<QosClassificationView>(), path, &view);
  store.row<QosClassificationView>(path).setText(
      QosClassificationView::ruleName,
      "rule" + path.substr(path.find_last_not_of("0123456789") + 1));
  writePath(path, identity);
  return kOk;
}

}  // namespace

int32_t gateway::pm_iptvvlanbind_set_config(const char *portPath, uint32_t vlanId) {
  Gateway &gateway = Gateway::current();
  const std::string key = boundary::text(portPath) + " " + std::to_string(vlanId);
  const std::string port = portPath;
  if (!isPort(port)) return kUnknownInstance;
  if (vlanId > kMaxVlan) return kInvalidField;
  return bindPort(gateway.store(), port, vlanId);
}

int32_t gateway::pm_qos_qc_set_config(char identity[32], QosClassificationRecord *record) {
  Gateway &gateway = Gateway::current();
  if (identity == nullptr || record == nullptr) throw Refusal(kNullArgument, "no rule");
  if (identity[0] != '\0') throw Refusal(kBadRequest, "rules are added, not changed");
  return addRule(gateway.store(), record, identity);
}

int32_t gateway::pm_qos_qc_del_config(const char *ruleName) {
  Gateway &gateway = Gateway::current();
  const std::string path =
      pathByText<QosClassificationView>(gateway.store(), QosClassificationView::ruleName, ruleName);
  if (path.empty()) return int32_t{kUnknownInstance};
  return gateway.store().remove(layoutOf<QosClassificationView>(), path);
}
