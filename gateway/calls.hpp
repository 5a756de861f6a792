// The virtual gateway's side of every function of the platform: declared here as the platform's
// headers declare them, defined by the families. The library reaches them through the boundary.
#pragma once

#include "platform/attached_devices.h"
#include "platform/device.h"
#include "platform/firewall.h"
#include "platform/host.h"
#include "platform/multiap.h"
#include "platform/ports.h"
#include "platform/proxy.h"
#include "platform/timers.h"
#include "platform/traffic_rules.h"
#include "platform/wan.h"
#include "platform/wlan.h"

namespace gateway {

using namespace platform;

#define CALL(result, name, parameters, ...) result name parameters;
#include "generated/calls.inc"
#undef CALL

}  // namespace gateway
