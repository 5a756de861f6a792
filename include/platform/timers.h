/* The two timer services: wake-up control, and the Wi-Fi control schedule. */
#ifndef PLATFORM_TIMERS_H
#define PLATFORM_TIMERS_H

#include "platform/import.h"

PLATFORM_BEGIN_DECLS

/* Laid out in timers.hpp. */
typedef struct TimerRequest TimerRequest;
typedef struct TimerControlRecord TimerControlRecord;

/* A timer service takes a zeroed 32-byte request and TimerControlRecord. A get fills the
   record's entries; a set carries one entry and adds or deletes it; a refused set leaves its reason
   in the record. 0 is success. */

PLATFORM_IMPORT int32_t pm_app_wake_up_control_get(TimerRequest *request,
                                                   TimerControlRecord *control);
PLATFORM_IMPORT int32_t pm_app_wake_up_control_set(TimerRequest *request,
                                                   TimerControlRecord *control);
PLATFORM_IMPORT int32_t pm_wlan_ex_control_get(TimerRequest *request, TimerControlRecord *control);
PLATFORM_IMPORT int32_t pm_wlan_ex_control_set(TimerRequest *request, TimerControlRecord *control);

PLATFORM_END_DECLS

#endif
