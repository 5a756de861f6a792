// Lookups of attached devices that several objects share. The lines carry the caller's tag and
// name.
#pragma once

#include "frame/instance.hpp"
#include "frame/log.hpp"
#include "frame/proxy.hpp"
#include "frame/record_buffer.hpp"
#include "platform/attached_devices.h"
#include "platform/attached_devices.hpp"
#include "platform/ports.hpp"

namespace pm {

using namespace platform;

using DeviceBuffer = RecordBuffer<DeviceRecord>;
using StationStatisticsBuffer = RecordBuffer<StationStatisticsRecord>;
using LanInfoBuffer = ViewBuffer<LanInfoView>;

/// The interface of a device in a text of its own: the platform may fill the field to its end.
struct InterfaceName {
  char text[DeviceRecord::interfaceName.width + 1] = {};

  explicit InterfaceName(const uint8_t *deviceRecord) {
    copyExact(text, load(deviceRecord, DeviceRecord::interfaceName),
              DeviceRecord::interfaceName.width);
  }
};

using DeviceTable = InstanceTable<PLATFORM_ATTACHED_DEVICES_MAX>;
using AssociationTable = InstanceTable<64>;

/// Room for the answers about one device, where a caller states no other.
using DeviceReply = ProxyReply<4096>;

/// Asks the proxy for the device at `path`; `device` is empty before. A failure is logged, and what
/// came of the reply is copied all the same. Returns the call's result, else the reply's status.
int32_t queryDevice(const Trail &log, const InstancePath &path, ProxyExchange &reply,
                    DeviceBuffer &device);

/// Asks for the traffic of one station with `event` (the measured or the hardware counters).
/// `statistics` is empty before; it keeps the request when the event fails, which is logged.
/// Returns whether the event succeeded.
bool queryStationStatistics(const Trail &log, uint32_t event, const uint8_t mac[6],
                            StationStatisticsBuffer &statistics);

/// Finds the LAN interface of that name and reads it into `lan`. Its failures are printed on
/// standard output, not logged, kept as it was.
bool findLanInterface(const char *interfaceName, LanInfoBuffer &lan);

/// Finds the associations of one station by its MAC; returns the query's status.
int32_t findAssociations(const uint8_t mac[6], AssociationTable &found);

}  // namespace pm
