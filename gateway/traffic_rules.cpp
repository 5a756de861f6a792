// IPTV VLAN bindings and QoS classification rules, each a table in the store.
#include <algorithm>

#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "gateway/instances.hpp"
#include "gateway/requests.hpp"
#include "platform/traffic_rules.hpp"

using namespace gateway;

namespace {

constexpr uint32_t kMaxVlan = 4096;
constexpr const char *kPortStems[] = {"IGD.LD1.ETH", "IGD.LD1.WLAN"};

bool isPort(const std::string &path) {
  return std::ranges::any_of(kPortStems, [&](std::string_view stem) {
    return path.starts_with(stem) && path.size() > stem.size();
  });
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

int32_t addRule(Store &store, QosClassificationRecord &record, char *identity) {
  using Rule = QosClassificationRecord;
  requireMarks(fieldsOf<Rule>(&record), {Rule::qosCommon, Rule::label, Rule::mac1, Rule::mac2});
  std::string path;
  if (const int32_t status = store.add(layoutOf<QosClassificationView>(), "IGD", &path);
      status != kOk) {
    return status;
  }
  // The view is the record behind a header, so its fields stand at the same places.
  alignas(8) QosClassificationView view = {};
  std::ranges::copy(record.bytes, view.bytes + platform::kViewHeaderSize);
  store.set(layoutOf<QosClassificationView>(), path, &view);
  store.row<QosClassificationView>(path).setText(
      QosClassificationView::ruleName,
      "rule" + path.substr(path.find_last_not_of("0123456789") + 1));
  writePath(path, identity);
  return kOk;
}

}  // namespace

int32_t gateway::pm_iptvvlanbind_set_config(const char *portPath, uint32_t vlanId) {
  if (!isPort(portPath)) return kUnknownInstance;
  if (vlanId > kMaxVlan) return kInvalidField;
  return bindPort(Gateway::current().store(), portPath, vlanId);
}

int32_t gateway::pm_qos_qc_set_config(char identity[32], QosClassificationRecord *record) {
  if (identity[0] != '\0') throw Refusal(kBadRequest, "rules are added, not changed");
  return addRule(Gateway::current().store(), *record, identity);
}

int32_t gateway::pm_qos_qc_del_config(const char *ruleName) {
  Store &store = Gateway::current().store();
  const std::string path =
      pathByText<QosClassificationView>(store, QosClassificationView::ruleName, ruleName);
  if (path.empty()) return kUnknownInstance;
  return store.remove(layoutOf<QosClassificationView>(), path);
}
