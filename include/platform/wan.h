/* The uplink and the WAN connections. */
#ifndef PLATFORM_WAN_H
#define PLATFORM_WAN_H

#include "platform/config_database.h"

PLATFORM_BEGIN_DECLS

/* Laid out in wan.hpp. */
typedef struct UpModeBlock UpModeBlock;
typedef struct WanDeviceTypeRecord WanDeviceTypeRecord;
typedef struct WanPppExtRecord WanPppExtRecord;
typedef struct WanIpExtRecord WanIpExtRecord;
typedef struct PppoeAccountRecord PppoeAccountRecord;
typedef struct WorkingModeRecord WorkingModeRecord;
typedef struct RouteInfoRecord RouteInfoRecord;

enum UpMode { UP_MODE_ETHERNET = 1, UP_MODE_WLAN = 512 };

/** The kind of uplink and the port that carries it. */
typedef struct UpModeInfo {
  uint32_t mode;
  uint32_t port;
} UpModeInfo;

/** What a connection to the Internet carries, and the binding of one that serves every LAN port. */
#define WAN_SERVICE_INTERNET "INTERNET"
#define WAN_NO_LAN_BINDING "000000000000"

#define WAN_CONNECTION_LIST_CAPACITY 256
#define WAN_CONNECTION_WORK_AREA_1_SIZE 65536
#define WAN_CONNECTION_WORK_AREA_2_SIZE 1024
#define WAN_CONNECTION_WORK_AREA_3_SIZE 1024

/** An InstanceList with three zero-filled work areas of the caller for the platform's own use. */
typedef struct WanConnectionList {
  uint32_t marker;
  uint32_t capacity;
  uint32_t dwCount;
  char (*instances)[PLATFORM_INSTANCE_SIZE];
  void *workArea1;
  void *workArea2;
  void *workArea3;
} WanConnectionList;

PLATFORM_IMPORT int32_t pm_upmode_info_get(UpModeInfo *info);
/** Switches the uplink; `block` begins with what pm_upmode_info_get filled in. */
PLATFORM_IMPORT int32_t pm_upmode_info_set(const UpModeInfo *oldMode, const UpModeInfo *newMode,
                                           UpModeBlock *block);

/** Fills WanDeviceTypeRecord, zeroed by the caller. */
PLATFORM_IMPORT int32_t pm_e8_wanc_get_current_wandtype(WanDeviceTypeRecord *record);
/** Lists the connections of one WAN device type; marker and capacity are the caller's. */
PLATFORM_IMPORT int32_t pm_e8_wanc_list_all_wanc_by_wand(const char *parent, uint32_t wanDeviceType,
                                                         WanConnectionList *list);
/**
 * Rewrites the Internet connection with the marked fields of WanPppExtRecord (IP:
 * WanIpExtRecord). `instance` is in and out: empty leaves the choice to the platform.
 * PLATFORM_NOTHING_CHANGED counts as success.
 */
PLATFORM_IMPORT int32_t pm_e8_wanc_set_comm_ppp_ext(char instance[128], WanPppExtRecord *record);
PLATFORM_IMPORT int32_t pm_e8_wanc_set_comm_ip_ext(char instance[128], WanIpExtRecord *record);
/** Forgets the adapter's view of the connections before one of them is rewritten. */
PLATFORM_IMPORT int32_t si_ifsadapt_clear_wanc(void);

/** Sets the PPPoE account, PppoeAccountRecord; any other status than 0 is a failure. */
PLATFORM_IMPORT int32_t pm_wanc_set_ppp_username_passwd(PppoeAccountRecord *record);
/** Switches between bridge and route mode with WorkingModeRecord; `flag` is 1. */
PLATFORM_IMPORT int32_t pm_wanc_change_brg_route_mode(WorkingModeRecord *record, uint32_t flag);

/** Fills RouteInfoRecord, zeroed by the caller, for one WAN connection. */
PLATFORM_IMPORT int32_t plib_ifs_get_routeif_info(const char *instance, RouteInfoRecord *record);

PLATFORM_END_DECLS

#endif
