/**
 * @file status.h
 * The codes that functions of the library return of their own accord.
 *
 * Any other non-zero status is the platform's. A number may have several names, one for each thing
 * that it says; which of them a function means stands in its contract. Functions of type uint32_t
 * return the code converted: compare their result as int32_t.
 */
#ifndef PMAPI_STATUS_H_
#define PMAPI_STATUS_H_

/** Codes of the library. */
enum PmStatus {
  PM_STATUS_OK = 0,                 /**< done */
  PM_STATUS_FAILED = -1,            /**< refused, or a step failed that has no code of its own */
  PM_STATUS_TIMED_OUT = -2,         /**< the multi-AP daemon did not answer in time */
  PM_STATUS_NOT_ONE_MATCH = -2,     /**< a key matches no instance, or more than one */
  PM_STATUS_TIMERS_UNREADABLE = -6, /**< a timer service cannot be read */
  PM_STATUS_NO_5G_RADIO = -7,       /**< the gateway has no 5 GHz radio */
  PM_STATUS_UNREADABLE = -8,        /**< something that the answer is made of cannot be read */
  PM_STATUS_NOT_WRITTEN = -8,       /**< done, but it cannot be recorded */
  PM_STATUS_NO_RECORD = -10,        /**< the record of a scan or of a new timer task is NULL */
  PM_STATUS_TOO_MANY_CONNECTIONS = -12,  /**< more WAN connections than the library looks at */
  PM_STATUS_KEY_REFUSED = -21,           /**< the key of an SSID was refused */
  PM_STATUS_NULL_RECORD = -257,          /**< the record, or another pointer, is NULL */
  PM_STATUS_UNKNOWN_RADIO = -257,        /**< no radio has that name */
  PM_STATUS_NOT_COMPLETED = 1,           /**< the speed test is not completed */
  PM_STATUS_LIST_UNREADABLE = 1001,      /**< a list of the platform cannot be read */
  PM_STATUS_MALFORMED_ENTRY = 1001,      /**< an entry of a list is not written as it should be */
  PM_STATUS_NULL_TEXT = 1001,            /**< a text for the answer is NULL */
  PM_STATUS_WEP_KEY_UNREADABLE = 1001,   /**< the WEP key of an SSID cannot be read */
  PM_STATUS_PASSPHRASE_UNREADABLE = 1003 /**< the passphrase of an SSID cannot be read */
};

#endif /* PMAPI_STATUS_H_ */
