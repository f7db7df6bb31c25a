/* SPDX-License-Identifier: GPL-3.0-or-later */
/*
 * What a driver library may say beyond the nineteen functions of hm16.h when no unit answers: why
 * not. It is an extension of HM16_Extension; the conventions stand in hm16_more.h.
 */
#ifndef HM16_ABSENCE_H
#define HM16_ABSENCE_H

#include "drivers/hm16.h"

#ifdef __cplusplus
extern "C" {
#endif

#define HM16_ABSENCE "hm16.absence.1"

/* Why the last HM_Init found no unit. */
enum {
    HM16_NOT_TOLD = 0,     /* a unit answers, or nobody knows why not */
    HM16_NO_RADIO = 1,     /* the radio is not there, or another program has it */
    HM16_NO_SOAPY = 2,     /* SoapySDR, which reaches the radio, cannot be loaded */
    HM16_BAD_RADIO = 3,    /* the radio is there and cannot be used as the settings ask */
    HM16_BAD_SETTING = 4,  /* a line of the settings file is wrong */
    HM16_BAD_RECORDING = 5 /* the recording cannot be measured */
};

typedef struct HM16_AbsenceInfo {
    uint32_t size;   /* in: bytes of the caller's struct; out: bytes that were filled */
    int32_t cause;   /* one of the above */
    char what[256];  /* the radio or file as the settings name it; UTF-8, cut where it is too long,
                        a zero behind it */
    char words[768]; /* one English sentence that says more, or nothing; likewise */
} HM16_AbsenceInfo;

typedef struct HM16_AbsenceV1 {
    uint32_t size; /* bytes of this struct */

    /* Tells it. Legal in every mode. Result 0: told; 1: no room. */
    int32_t(HM16_CALL* why)(HM16_AbsenceInfo* info);
} HM16_AbsenceV1;

#ifdef __cplusplus
}
#endif

#endif
