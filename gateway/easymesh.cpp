// The EasyMesh settings: written through a record, read through a view.
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "platform/wlan.hpp"

namespace gateway {

int32_t pm_wlan_set_easymesh(WlanEasyMeshRecord *record) {
  if (!store().has<EasyMeshView>("IGD")) return kUnknownInstance;
  const Row given = fieldsOf<WlanEasyMeshRecord>(record);
  const Row view = store().row<EasyMeshView>("IGD");
  if (given.mark(WlanEasyMeshRecord::meshRole) == 1) {
    view.setWord(EasyMeshView::meshRole, given.word(WlanEasyMeshRecord::meshRole));
  }
  if (given.mark(WlanEasyMeshRecord::roamingEnable) == 1) {
    view.setWord(EasyMeshView::roamingEnable, given.word(WlanEasyMeshRecord::roamingEnable));
  }
  return kOk;
}

}  // namespace gateway
