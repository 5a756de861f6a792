/**
 * @file hardwareinfo.h
 * Processor, flash and memory of the gateway.
 */
#ifndef PMAPI_HARDWAREINFO_H_
#define PMAPI_HARDWAREINFO_H_

#include "pmapi/types.h"

PMAPI_BEGIN_DECLS

/** Hardware information. */
typedef struct HardwareInfoRecord {
  char cpuType[8];    /**< "K10", "K10S", "K20", "K20S" or "K30" */
  uint32_t flashSize; /**< in the unit of the host utilities */
  uint32_t ramSize;   /**< in the unit of the host utilities */
  uint32_t cpuUsage;  /**< as the platform reports it */
  /**
   * Percent; buffers and caches count as free unless that exceeds 100. Computed in 32 bits: figures
   * above 42949672 wrap.
   */
  uint32_t ramUsage;
} HardwareInfoRecord;

/**
 * Reads the hardware information; fields are filled in their order until a step fails.
 * Unreadable memory figures are logged only and give a usage of 0. An unreadable or unknown
 * processor is reported on standard output.
 * @param record zero-filled
 * @retval 0 filled
 * @retval PM_STATUS_FAILED @p record is NULL, or the processor, the flash size, the RAM size or the
 *   processor usage cannot be read
 */
PMAPI_EXPORT int32_t pm_ubus_get_hardware_info(HardwareInfoRecord *record);

PMAPI_END_DECLS

#endif /* PMAPI_HARDWAREINFO_H_ */
