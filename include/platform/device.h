/* The gateway as a device: restart, LEDs, logs, version, processor. */
#ifndef PLATFORM_DEVICE_H
#define PLATFORM_DEVICE_H

#include "platform/import.h"

PLATFORM_BEGIN_DECLS

/* Laid out in device.hpp. */
typedef struct LogConfigRecord LogConfigRecord;
typedef struct CpuInfoRecord CpuInfoRecord;

/** Restart asked for by the management side. */
#define PLATFORM_RESTART_BY_MANAGEMENT 11u

PLATFORM_IMPORT int32_t pm_dev_restart(uint32_t reason);
PLATFORM_IMPORT int32_t pm_dev_restore_special(uint32_t kind, uint32_t a, uint32_t b, uint32_t c);
PLATFORM_IMPORT int32_t pm_pdt_ctl_leds(uint32_t a, uint32_t b, uint32_t c, uint32_t d);
PLATFORM_IMPORT int32_t pm_pdt_get_leds_status(uint32_t a, uint32_t b, uint32_t c, uint32_t d);

/** Fills LogConfigRecord, zeroed by the caller. */
PLATFORM_IMPORT int32_t pm_log_get_config(LogConfigRecord *record);
/** Applies the marked fields; PLATFORM_NOTHING_CHANGED when they stood already. */
PLATFORM_IMPORT int32_t pm_log_set_config(LogConfigRecord *record);

/** Number of the version's configuration type. */
PLATFORM_IMPORT int32_t pm_get_version_config_type_int(int32_t *code);
/** Fills CpuInfoRecord, zeroed by the caller; `instance` is "IGD". */
PLATFORM_IMPORT int32_t pm_srm_get_update_cpu_info(const char *instance, CpuInfoRecord *record);

PLATFORM_END_DECLS

#endif
