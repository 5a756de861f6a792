/**
 * @file pmapi.h
 * All objects of the library.
 */
#ifndef PMAPI_PMAPI_H_
#define PMAPI_PMAPI_H_

#include "pmapi/basicinfo.h"
#include "pmapi/config.h"
#include "pmapi/control.h"
#include "pmapi/detection.h"
#include "pmapi/hardwareinfo.h"
#include "pmapi/helpers.h"
#include "pmapi/iptv.h"
#include "pmapi/limit.h"
#include "pmapi/macfilter.h"
#include "pmapi/mesh_role.h"
#include "pmapi/meshinfo.h"
#include "pmapi/meshtopology.h"
#include "pmapi/port.h"
#include "pmapi/pppoe.h"
#include "pmapi/qos.h"
#include "pmapi/roaming.h"
#include "pmapi/set_radio.h"
#include "pmapi/setmeshroam.h"
#include "pmapi/stainfo.h"
#include "pmapi/status.h"
#include "pmapi/timedtask.h"
#include "pmapi/types.h"
#include "pmapi/uplinkinfo.h"
#include "pmapi/uplinkrate_config.h"
#include "pmapi/wifi_csi.h"
#include "pmapi/wifi_statsinfo.h"
#include "pmapi/wifi_switch.h"
#include "pmapi/wifi_wps.h"
#include "pmapi/wifiinfo.h"
#include "pmapi/wifiparameter.h"
#include "pmapi/wlan_neighborinfo.h"
#include "pmapi/wlanconnect.h"
#include "pmapi/workingmode.h"

#endif /* PMAPI_PMAPI_H_ */
