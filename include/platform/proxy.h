/* Events to the platform proxy and messages to its manager modules. */
#ifndef PLATFORM_PROXY_H
#define PLATFORM_PROXY_H

#include "platform/import.h"

PLATFORM_BEGIN_DECLS

enum CtSgwEvent {
  CTSGW_EVENT_SET_HTTPDOWNLOAD_DIAGNOSTICS = 193,
  CTSGW_EVENT_GET_HTTPDOWNLOAD_DIAGNOSTICSRESULT = 194,
  CTSGW_EVENT_GET_LINKSTAT_BY_STAMODE = 234,
  CTSGW_EVENT_GET_PORTLINKSTAT_TYPE = 235,
  CTSGW_EVENT_QUERY_ADEV_PARAM = 236,
  CTSGW_EVENT_GET_WLANRADIOINFO = 237,
  CTSGW_EVENT_GET_BW_STATS = 238,
  CTSGW_EVENT_GET_HARD_STATS = 239,
  CTSGW_EVENT_DEL_BW = 247,
  CTSGW_EVENT_SET_BW = 248,
  CTSGW_EVENT_SET_LOCK = 249,
  CTSGW_EVENT_GET_BANDWIDTH = 250,
  CTSGW_EVENT_CLEAN_HWNAT = 256,
  CTSGW_EVENT_SET_KERNELCOUNT = 274
};

/** The status word with which every proxy reply begins. */
#define PROXY_REPLY_STATUS_SIZE 4

enum ManagerMessageClass { MANAGER_MESSAGE_CLASS = 9218 };

enum ManagerMessage {
  WLAN_MGR_GET_CARD_MAX = 65564,
  BANDINFO_MGR_GET_BANDWIDTH = 0x50007,
  TIME_POLICY_REGISTER = 33025,
  TIME_POLICY_SET = 33027,
  LOG_MGR_SET_LOGDISABLE = 40097,
  LOG_MGR_CHANGE_LOGSIZE = 40098
};

#define MANAGER_MODULE_WLAN "wlan_mgr"
#define MANAGER_MODULE_BANDINFO "bandInfo_mgr"
#define MANAGER_MODULE_LOG "log_mgr"
#define MANAGER_MODULE_TIME_POLICY "time_policy"

/** Laid out in wlan.hpp. */
typedef struct WlanHostTable WlanHostTable;

/**
 * Sends an event and waits for its reply. `replyLength` holds the capacity of `reply` on entry and
 * the reply's length, status word included, on return. Two things can fail: the call (its result)
 * and the event (the first word of the reply); 0 is success in both.
 */
PLATFORM_IMPORT int32_t ctSgw_ssend_to_proxy(uint32_t event, const void *request,
                                             uint32_t requestLength, void *reply,
                                             uint16_t *replyLength);
/**
 * Sends a message of class MANAGER_MESSAGE_CLASS to a manager module and waits for the answer.
 * `flags` is 0. The reply has no status word; `replyLength` goes in as capacity and comes back as
 * the number of bytes written. 0 is success.
 */
PLATFORM_IMPORT int32_t pm_send_msg_2mm(const char *module, uint32_t messageClass,
                                        uint32_t messageId, const void *request,
                                        uint32_t requestLength, uint32_t flags, void *reply,
                                        uint16_t *replyLength);
/** Queues a message to a manager module without waiting for anything; 0 when it was queued. */
PLATFORM_IMPORT int32_t ASEND(uint32_t messageId, const void *data, uint32_t length,
                              const char *module);
/** Fills the table of the stations associated with any SSID. */
PLATFORM_IMPORT int32_t ctSgw_wlanGetHostInfo(WlanHostTable *table);

PLATFORM_END_DECLS

#endif
