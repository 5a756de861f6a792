/**
 * @file timedtask.h
 * Weekly timer tasks: wake-up control and Wi-Fi schedules.
 */
#ifndef PMAPI_TIMEDTASK_H_
#define PMAPI_TIMEDTASK_H_

#include "pmapi/types.h"

PMAPI_BEGIN_DECLS

/** Timer task. Times are kept in whole minutes; 86400 and more are reduced by one day, once. */
typedef struct UbusWifiTimer {
  int32_t taskId;
  int32_t enable;       /**< 1 active; the platform keeps its low byte */
  uint32_t weekMask;    /**< bit 0 Sunday, bits 1 to 6 Monday to Saturday */
  int32_t Action;       /**< 1 wake-up control, 2 Wi-Fi schedule */
  uint32_t timeOffset;  /**< seconds of the day; of a schedule the start */
  uint32_t timeOffset2; /**< seconds of the day; end of a schedule, else unused */
  int32_t index;        /**< Wi-Fi index of a schedule */
} UbusWifiTimer;

/** Days of a task. */
typedef struct WeekdayList {
  uint32_t Weekday[8]; /**< 1 Monday to 7 Sunday */
  uint32_t nCnt;       /**< number of days */
} WeekdayList;

/**
 * Adds a task, deleting first those of the same taskId among the first 32 that are listed (even if
 * the new one is then refused); when the tasks cannot be listed none is deleted. A schedule is
 * stored as two entries; when the second is refused the first stays.
 * @param record the task
 * @retval 0 added
 * @retval PM_STATUS_NO_RECORD @p record is NULL
 * @retval PM_STATUS_FAILED unknown Action
 * @return else the platform status of the entry refused
 */
PMAPI_EXPORT int32_t pm_ubus_nexumd_wifi_timer_add(const UbusWifiTimer *record);

/**
 * Deletes every task with this id, of either Action.
 * @retval 0 deleted, or there was none
 * @retval PM_STATUS_TIMERS_UNREADABLE a timer service cannot be read
 * @retval PM_STATUS_FAILED an entry was not deleted; those before it are
 */
PMAPI_EXPORT int32_t pm_ubus_nexumd_wifi_timer_del(int32_t taskId);

/**
 * Lists all tasks, wake-up controls first. The number written is not bounded by the caller.
 * @param records zero-filled, 135 of them, the most that the timer services hold
 * @param count receives the number written
 * @retval 0 listed
 * @retval PM_STATUS_TIMERS_UNREADABLE a timer service cannot be read; @p count is untouched
 * @retval PM_STATUS_FAILED a pointer is NULL
 */
PMAPI_EXPORT int32_t pm_ubus_nexumd_wifi_timer_list(UbusWifiTimer records[135], int32_t *count);

/**
 * Turns a weekday mask into a list of days, Monday first and Sunday last.
 * @param weekMask as in UbusWifiTimer
 * @param out not NULL; the days are written from the first on
 */
PMAPI_EXPORT void si_deal_num_conv_weekday(uint32_t weekMask, WeekdayList *out);

PMAPI_END_DECLS

#endif /* PMAPI_TIMEDTASK_H_ */
