// Scanning for access points: the request, and the list that comes back.
#pragma once

#include "frame/record_buffer.hpp"
#include "platform/wlan.h"
#include "platform/wlan.hpp"

namespace pm {

using ApListBuffer = RecordBuffer<WlanApList>;

/// One access point heard; the SSID is terminated, which the platform's is not always.
struct HeardAccessPoint {
  char ssid[33];
  uint8_t bssid[6];
  int32_t channel;
  int32_t rssi;
  int32_t securityMode;
  int32_t encryption;
};

/// Starts a scan with the radio of a band; the result takes its time.
int32_t startScan(uint32_t band);

/// Blocks its caller, whatever signals come in between.
void waitSeconds(uint32_t seconds);

/// Reads what the band's last scan has heard into a fresh list.
int32_t listAccessPoints(uint32_t band, ApListBuffer &list);

/// Access points that really lie in the list, whatever the platform counted.
uint32_t countOf(const ApListBuffer &list);

HeardAccessPoint accessPointAt(const ApListBuffer &list, uint32_t position);

}  // namespace pm
