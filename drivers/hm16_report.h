/* SPDX-License-Identifier: GPL-3.0-or-later */
/*
 * One more function that a driver library may have beside those of hm16.h. The program never calls
 * it; hm16-probe does, when asked for a report. It tells in words what the nineteen functions have
 * no place for, such as the name that a station sends over RDS.
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

typedef int32_t(HM16_CALL* HM16_ReportFunction)(char*, int32_t);

#define HM16_REPORT_NAME "HM16_ReceiverReport"

#ifdef __cplusplus
}
#endif

#endif
