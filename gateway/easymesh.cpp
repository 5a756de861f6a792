// The EasyMesh settings: written through a record, read through a view.
#include "platform/views/easymesh.hpp"
#include "gateway/boundary.hpp"
#include "gateway/gateway.hpp"
#include "platform/records/wlan_easymesh.hpp"
#include "platform/wlan.h"

using namespace gateway;
using platform::EasyMeshView;

int32_t pm_wlan_set_easymesh(WlanEasyMeshRecord *record) {
  return boundary::status("pm_wlan_set_easymesh", "IGD", [&](Gateway &gateway) -> int32_t {
    if (record == nullptr) throw Refusal(kNullArgument, "no record");
    if (!gateway.store().has<EasyMeshView>("IGD")) return kUnknownInstance;
    const Row given = fieldsOf<WlanEasyMeshRecord>(record);
    const Row view = gateway.store().row<EasyMeshView>("IGD");
    if (given.mark(WlanEasyMeshRecord::meshRole) == 1) {
      view.setWord(EasyMeshView::meshRole, given.word(WlanEasyMeshRecord::meshRole));
    }
    if (given.mark(WlanEasyMeshRecord::roamingEnable) == 1) {
      view.setWord(EasyMeshView::roamingEnable, given.word(WlanEasyMeshRecord::roamingEnable));
    }
    return kOk;
  });
}
