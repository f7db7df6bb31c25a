/* SPDX-License-Identifier: GPL-3.0-or-later */
/* The interface as a C11 compiler takes it: whoever writes a library may write it in C. */
#include "drivers/hm16.h"
#include "drivers/hm16_absence.h"
#include "drivers/hm16_more.h"
#include "drivers/hm16_report.h"

_Static_assert(sizeof(((HM16_Functions*)0)->init) == sizeof(void*), "functions are pointers");
_Static_assert(sizeof(HM16_Functions) == 19 * sizeof(void*), "nineteen functions");

int32_t countSeenByC(void) {
    return (int32_t)(sizeof(HM16_Functions) / sizeof(HM16_Plain));
}

/* Each place of the table takes what the header declares under its name. */
#define SAME(place, function)                                                                     \
    _Static_assert(_Generic(((HM16_Functions*)0)->place, __typeof__(&function) : 1, default : 0), \
                   #function)
SAME(init, HM_Init);
SAME(normal, HM_Normal);
SAME(data, HM_Data);
SAME(super, HM_Super);
SAME(startEspectro, HM_StartEspectro);
SAME(respFrecuencia, HM_RespFrecuencia);
SAME(getHardwareVersion, HM_getHardwareVersion);

/* What crosses the border is laid out alike for every compiler. */
_Static_assert(sizeof(HM16_FigureInfo) == 52, "a figure");
_Static_assert(sizeof(HM16_Slot) == 352, "a slot");
_Static_assert(sizeof(HM16_ListenState) == 16, "the loudspeakers");
