/**
 * @file detection.h
 * HTTP download speed test.
 */
#ifndef PMAPI_DETECTION_H_
#define PMAPI_DETECTION_H_

#include "pmapi/types.h"

PMAPI_BEGIN_DECLS

/**
 * Request of a speed test; allocate 260 bytes, zero-filled.
 * The request text is one C string of at most 259 characters from the start of the record. The
 * proxy also gets the word at byte 32, which a text of more than 31 characters fills with its own
 * characters.
 */
typedef struct HttpSpeedRequest {
  char text[32];        /**< the text's first 32 bytes */
  uint32_t parameter;   /**< the word at byte 32 */
  char textContinued[]; /**< the text from byte 36 on */
} HttpSpeedRequest;

/** Result of a speed test. */
typedef struct HttpSpeedResult {
  uint8_t reserved[32]; /**< not touched */
  char speed[32];       /**< the proxy's rate divided by 1024, followed by "Mpbs" */
  int32_t status;       /**< 1 completed, 0 not */
} HttpSpeedResult;

/**
 * Starts a speed test.
 * @param record the request
 * @retval PM_STATUS_FAILED @p record is NULL
 * @return the status of the call to the proxy; what its reply says is not examined
 */
PMAPI_EXPORT int32_t ubus_set_httpspeed_diagnostics(const HttpSpeedRequest *record);

/**
 * Reads the result of the speed test.
 * @param record zero-filled; untouched when the proxy fails or refuses
 * @retval 0 the test is completed
 * @retval PM_STATUS_NOT_COMPLETED it is not
 * @retval PM_STATUS_FAILED it is not either, or @p record is NULL
 * @return when the proxy fails or refuses, what the daemon's logger returned for the line about it.
 *   That may be 0 as for a completed test: the untouched status tells them apart
 */
PMAPI_EXPORT int32_t ubus_get_httpspeed_result(HttpSpeedResult *record);

PMAPI_END_DECLS

#endif /* PMAPI_DETECTION_H_ */
