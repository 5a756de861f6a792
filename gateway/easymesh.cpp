// The EasyMesh settings: written through a record, read through a view.
#include "boundary/boundary.hpp"
#include "gateway/calls.hpp"
#include "gateway/gateway.hpp"
#include "platform/wlan.h"
#include "platform/wlan.hpp"

using namespace gateway;

int32_t gateway::pm_wlan_set_easymesh(WlanEasyMeshRecord *record) {
  Gateway &gateway = Gateway::current();
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
}
