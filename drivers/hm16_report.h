/* SPDX-License-Identifier: GPL-3.0-or-later */
/*
 * Functions that a driver library may have beside those of hm16.h. The program never calls them;
 * hm16-probe does. One tells in words what the nineteen functions have no place for, such as the
 * name that a station sends over RDS; the other drives a library that measures a recording.
 */
#ifndef HM16_REPORT_H
#define HM16_REPORT_H

#include "drivers/hm16.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Writes UTF-8 text, lines with line feeds between them and a zero behind the last, into `text`,
 * cut where `size` bytes end. Result 0: written. Legal after HM_Init, in any mode. */
HM16_EXPORT int32_t HM16_CALL HM16_ReceiverReport(char* text, int32_t size);

/* Measures the next `slots` of 50 ms of a recording, as fast as that goes, and returns with their
 * readings on show. The first call, which may be one for 0 slots before the tuning, takes the drive
 * from the library's own clock. While a sweep runs, each call makes one frame. Result not 0: the
 * library follows a clock of its own, nothing runs, or the recording has ended. Legal after
 * HM_Init, in any mode. */
HM16_EXPORT int32_t HM16_CALL HM16_ReceiverStep(int32_t slots);

typedef int32_t(HM16_CALL* HM16_ReportFunction)(char*, int32_t);
typedef int32_t(HM16_CALL* HM16_StepFunction)(int32_t);

#define HM16_REPORT_NAME "HM16_ReceiverReport"
#define HM16_STEP_NAME "HM16_ReceiverStep"

#ifdef __cplusplus
}
#endif

#endif
