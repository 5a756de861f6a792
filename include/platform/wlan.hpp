// Radios, SSIDs, their keys, scans, associated stations.
#pragma once

#include "platform/codes.hpp"
#include "platform/layout.hpp"
#include "platform/proxy.h"
#include "platform/wlan.h"

namespace platform {

/// The database's side of an SSID.
struct WlanConfigView : View<DBVIEW_WLAN_CONF, 3276> {
  FIELD(Text<32>, name, 36);
  FIELD(Word, pmf, 3016, note("protected management frames, the platform's number"));
};

/// A station associated with an SSID, found by its MAC.
struct AssociatedDeviceView : View<DBVIEW_WLAN_AD, 1664> {
  FIELD(Text<32>, name, 36, note("what pm_wlan_get_ad and pm_wlan_del_ad take"));
  FIELD(Text<32>, ssidInstance, 100);
  FIELD(Mac, mac, 164);
  FIELD(Word, rssi, 1300, unit("dBm"));
  FIELD(Word, linkRate2, 1364, unit("kbit/s"));
  FIELD(Word, linkRate, 1396, unit("kbit/s"));
};

/// The interface through which the gateway is a client of another access point. All four flags are
/// set once it has joined one.
struct WlanClientView : View<DBVIEW_WLAN_APCLI, 200> {
  FIELD(Text<32>, name, 36);
  FIELD(Word, clientFlag1, 100, codes(kSwitch));
  FIELD(Word, clientFlag2, 132, codes(kSwitch));
  FIELD(Word, clientFlag3, 164, codes(kSwitch));
  FIELD(Word, clientFlag4, 196, codes(kSwitch));
};

/// EasyMesh as configured; one instance, "IGD".
struct EasyMeshView : View<DBVIEW_EASYMESH, 264> {
  FIELD(Word, roamingEnable, 36, codes(kSwitch));
  FIELD(Word, meshRole, 68, note("the platform's number of the role"));
};

/// One SSID and the radio under it.
struct WlanConfigRecord : Record<3588> {
  FIELD(Word, ssidEnable, 28, codes(kSwitch));
  FIELD(Word, ssidAdvertisementEnabled, 60, codes(kSwitch));
  FIELD(Word, maxAssociateNum, 92, unit("station"));
  FIELD(Word, securityMode, 124, codes(kSecurityModes));
  FIELD(Word, wepKeyLength, 156, codes(kWepKeyLengths));
  FIELD(Word, wepKeyIndex, 188, range(1, 4));
  FIELD(Word, wpaEncryption, 220, codes(kCiphers));
  FIELD(Word, wpa2Encryption, 252, codes(kCiphers));
  FIELD(Word, saeEnable, 284, codes(kSwitch));
  FIELD(Word, saeProtection, 316, note("the platform's number"));
  FIELD(Word, band, 476, codes(kBands));
  FIELD(Word, bandwidthCode, 508, codes(kBandwidths));
  FIELD(Word, radioEnable, 540, codes(kSwitch));
  FIELD(Word, standardCode, 572, codes(kStandards));
  FIELD(Word, txPowerLevel, 604, range(1, 5), note("1 is the highest"));
  FIELD(Word, channelMode, 928, note("0 with a fixed channel"));
  FIELD(Word, channel, 960, note("number of the channel"));
  FIELD(Word, restart, 1020, codes(kSwitch), note("1 restarts the radio"));
  FIELD(Text<32>, ssid, 1084);
  FIELD(Word, bandSteering, 1148, codes(kSwitch));
};

/// Figures and counters of the driver for one SSID.
struct WlanDriverRecord : Record<328> {
  FIELD(Word, noiseLevel, 28, unit("dBm"));
  FIELD(Word, interferencePercent, 60, unit("%"));
  FIELD(Counter, totalBytesSent, 92, unit("byte"));
  FIELD(Counter, totalBytesReceived, 128, unit("byte"));
  FIELD(Word, totalPacketsSent, 164, unit("packet"));
  FIELD(Word, totalPacketsReceived, 196, unit("packet"));
  FIELD(Word, errorsSent, 228, unit("packet"));
  FIELD(Word, errorsReceived, 260, unit("packet"));
  FIELD(Word, discardPacketsSent, 292, unit("packet"));
  FIELD(Word, discardPacketsReceived, 324, unit("packet"));
};

/// Transmit power of one radio, in percent as text.
struct WlanTxPowerRecord : Record<72> {
  FIELD(Text<8>, txPower, 28, unit("%"), note("decimal"));
  FIELD(Word, band, 68, codes(kBands));
};

/// One WEP key of an SSID.
struct WlanWepRecord : Record<96> {
  FIELD(Text<64>, key, 28, kSecret);
};

/// The WPA passphrase of an SSID.
struct WlanPskRecord : Record<96> {
  FIELD(Text<64>, passphrase, 28, kSecret);
};

/// The Wi-Fi cards; a gateway with one has no 5 GHz radio.
struct WlanCardRecord : Record<32> {
  FIELD(PlainWord, cardCount, 0, unit("card"));
};

/// Request of WLAN_MGR_GET_CARD_MAX.
struct CardCountRequest : Record<32> {
  FIELD(PlainText<32>, instance, 0);
};

/// Its reply.
struct CardCountReply : Record<4> {
  FIELD(PlainWord, cardCount, 0, unit("card"));
};

/// A WPS run.
struct WlanWpsRecord : Record<32> {
  FIELD(Word, start, 28, codes(kSwitch));
};

/// How to scan. The settings have no known meaning; a whole scan has -1 and 0.
struct WlanScanRequest : Record<64> {
  FIELD(Word, setting1, 28);
  FIELD(Word, setting2, 60);
};

/// An access point that a scan has heard.
struct WlanApEntry : Record<124> {
  FIELD(PlainText<32>, ssid, 0);
  FIELD(PlainWord, channel, 36, note("number of the channel"));
  FIELD(PlainMac, bssid, 40);
  FIELD(PlainWord, rssi, 52, unit("dBm"));
  FIELD(PlainWord, securityMode, 100, codes(kSecurityModes));
  FIELD(PlainWord, encryption, 104, codes(kCiphers));
};

/// The access points of a scan; the caller sets the first word to -1.
struct WlanApList : Record<31756> {
  FIELD(PlainWord, selector, 0, note("-1 asks for all"));
  FIELD(PlainWord, count, 8, unit("access point"));
  using Entries = PlainRows<WlanApEntry, 256>;
  FIELD(Entries, entries, 12);
};

/// The access point to join as a client.
struct WlanSelectRecord : Record<196> {
  FIELD(Mac, bssid, 28);
  FIELD(Word, securityMode, 64, codes(kSecurityModes));
  FIELD(Word, channel, 96, note("number of the channel"));
  FIELD(Text<64>, passphrase, 128, kSecret);
};

/// Collection of channel state information on one radio.
struct WlanCsiRecord : Record<160> {
  FIELD(Text<32>, radioName, 28);
  FIELD(Word, csiEnable, 92, codes(kSwitch));
  FIELD(Word, csiParam1, 124, note("the platform's own"));
  FIELD(Word, csiParam2, 156, note("the platform's own"));
};

/// A station whose channel state is collected.
struct WlanCsiMacRecord : Record<64> {
  FIELD(Text<32>, macText, 28, note("twelve hexadecimal digits"));
};

/// EasyMesh settings.
struct WlanEasyMeshRecord : Record<224> {
  FIELD(Word, roamingEnable, 28, codes(kSwitch));
  FIELD(Word, meshRole, 60, note("the platform's number of the role"));
};

/// Roaming and band steering share these settings. Thresholds are signed, in dBm.
struct WlanBandSteeringRecord : Record<96> {
  FIELD(Word, steeringEnable, 28, codes(kSwitch));
  FIELD(Word, lowRssi24G, 60, unit("dBm"));
  FIELD(Word, lowRssi5G, 92, unit("dBm"));
};

/// A station associated with an SSID.
struct WlanHostEntry : Record<16> {
  FIELD(PlainWord, ssidNumber, 0, note("1 to 4 are 2.4 GHz, from 5 on 5 GHz"));
  FIELD(PlainMac, mac, 4);
  FIELD(PlainWord, rssi, 12, unit("dBm"));
};

/// All associated stations, from ctSgw_wlanGetHostInfo.
struct WlanHostTable : Record<2052> {
  FIELD(PlainWord, count, 0, unit("station"));
  using Entries = PlainRows<WlanHostEntry, 128>;
  FIELD(Entries, entries, 4);
};

/// Payload of CTSGW_EVENT_GET_WLANRADIOINFO.
struct RadioInfoRecord : Record<56> {
  FIELD(PlainWord, radioValue, 0, note("handed to the daemon as it stands"));
};

/// Request of the same event.
struct RadioInfoRequest : Record<4> {
  FIELD(PlainWord, radioType, 0, codes(kBands));
};

LAYOUTS(WlanLayouts, WlanConfigView, AssociatedDeviceView, WlanClientView, EasyMeshView,
        WlanConfigRecord, WlanDriverRecord, WlanTxPowerRecord, WlanWepRecord, WlanPskRecord,
        WlanCardRecord, CardCountRequest, CardCountReply, WlanWpsRecord, WlanScanRequest,
        WlanApEntry, WlanApList, WlanSelectRecord, WlanCsiRecord, WlanCsiMacRecord,
        WlanEasyMeshRecord, WlanBandSteeringRecord, WlanHostEntry, WlanHostTable, RadioInfoRecord,
        RadioInfoRequest);

}  // namespace platform
