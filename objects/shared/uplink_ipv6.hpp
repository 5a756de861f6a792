// The IPv6 side of the uplink, as far as the uplink record shows it.
#pragma once

#include "frame/instance.hpp"
#include "frame/log.hpp"
#include "pmapi/uplinkinfo.h"

namespace pm {

/// Fills the fields from the views of the WAN connection `wan`; what cannot be read is empty or 0.
void fillIpv6(const Trail &log, const InstancePath &wan, UplinkInfoRecord *record);

void clearIpv6(UplinkInfoRecord *record);

}  // namespace pm
