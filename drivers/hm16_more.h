/* SPDX-License-Identifier: GPL-3.0-or-later */
/*
 * What a driver library may say beyond the nineteen functions of hm16.h. One symbol, which a
 * library may lack: HM16_Extension gives the functions of an extension by its name. docs/driver.md
 * tells it at more length.
 *
 * Conventions
 *   Thread     As in hm16.h: the one thread, never re-entrantly, no callbacks.
 *   Time       Every function returns at once; none waits for the unit.
 *   Structs    Hold no pointers. They only grow at their end and say their size, so that a program
 *              and a library of different age understand each other.
 *   Modes      Every function is legal in every mode. Without a unit there are no figures.
 */
#ifndef HM16_MORE_H
#define HM16_MORE_H

#include "drivers/hm16.h"

#ifdef __cplusplus
extern "C" {
#endif

/* The functions of an extension, as a pointer to the struct that its name stands for; null when the
 * library has no extension of that name. The struct stays as it is until the library is unloaded.
 * Legal from the moment of loading. */
HM16_EXPORT const void* HM16_CALL HM16_Extension(const char* id);

typedef const void*(HM16_CALL* HM16_ExtensionFunction)(const char*);

#define HM16_EXTENSION_NAME "HM16_Extension"

/*
 * hm16.figures.1: every figure of every 50 ms, and why one is not known.
 */
#define HM16_FIGURES "hm16.figures.1"

/* What becomes of a figure in a slot. */
enum {
    HM16_KNOWN = 0,
    HM16_SETTLING = 1,      /* behind a tuning or a gap, not long enough measured */
    HM16_NO_CARRIER = 2,    /* no station, or not the subcarrier that the figure is about */
    HM16_TOO_NOISY = 3,     /* the noise hides it */
    HM16_MULTIPATH = 4,     /* echoes hide it */
    HM16_NO_PILOT = 5,      /* a figure of stereo, on a station without a pilot */
    HM16_OVERLOAD = 6,      /* the unit's input is driven too hard */
    HM16_GAP = 7,           /* samples were lost or spoilt */
    HM16_UNIT_AWAY = 8,     /* the unit has something else to do */
    HM16_STALE = 9,         /* nothing new came */
    HM16_NOT_MEASURED = 10, /* not by this unit, or not on this programme */
    HM16_OUT_OF_RANGE = 11, /* came, but cannot be */
    HM16_TOO_SLOW = 12      /* the machine did not keep up */
};

typedef struct HM16_FigureInfo {
    uint32_t size;         /* in: bytes of the caller's struct; out: bytes that were filled */
    char key[28];          /* ASCII, stable for ever; a zero behind it */
    char unit[12];         /* UTF-8; a zero behind it */
    float lowest, highest; /* the figure's range in that unit */
} HM16_FigureInfo;

#define HM16_MOST_FIGURES 64

typedef struct HM16_Slot {
    uint64_t number;   /* counts slots since HM_Init; a jump is a loss that the reader sees */
    int64_t utcNs;     /* wall clock of the slot's end, nanoseconds since 1970 UTC; 0: unknown */
    int64_t signalNs;  /* the signal's own time at the slot's end, since its start */
    int32_t station;   /* 0: the tuned one */
    uint32_t lengthMs; /* 50 */
    float value[HM16_MOST_FIGURES];   /* in the order of describe(), each in its unit */
    uint8_t state[HM16_MOST_FIGURES]; /* of each; a value counts only where this is HM16_KNOWN */
} HM16_Slot;

typedef struct HM16_FiguresV1 {
    uint32_t size; /* bytes of this struct */

    /* How many figures a slot has, at most HM16_MOST_FIGURES; 0 without a unit. */
    int32_t(HM16_CALL* count)(void);

    /* Tells what figure `index` is, from 0. Result 0: told; 1: there is none, or no room. */
    int32_t(HM16_CALL* describe)(int32_t index, HM16_FigureInfo* info);

    /* Copies the slots of a station from number `from` on, oldest first, at most `room`. A slot
     * takes `slotSize` bytes in `out`; a smaller one of the caller's is filled as far as it goes.
     * Result: how many were copied; -1: no such station, or no room. `next` becomes the number to
     * ask for the next time. The library keeps at least 30 s of slots. */
    int32_t(HM16_CALL* slots)(int32_t station, uint64_t from, HM16_Slot* out, uint32_t slotSize,
                              int32_t room, uint64_t* next);
} HM16_FiguresV1;

/*
 * hm16.listen.1: the tuned station on the machine's loudspeakers.
 */
#define HM16_LISTEN "hm16.listen.1"

typedef struct HM16_ListenState {
    uint32_t size;   /* in: bytes of the caller's struct; out: bytes that were filled */
    int32_t playing; /* 1: sound goes out; 0: switched off, or there is no sound card */
    int32_t volume;  /* 0 to 100 */
    int32_t muted;   /* 1: muted */
} HM16_ListenState;

typedef struct HM16_ListenV1 {
    uint32_t size; /* bytes of this struct */

    /* Sets the volume, 0 to 100, and whether it is muted. Result 0: done; 1: out of range, or
     * switched off. */
    int32_t(HM16_CALL* set)(int32_t volume, int32_t muted);

    /* How it stands. Result 0: told; 1: no room. */
    int32_t(HM16_CALL* state)(HM16_ListenState* state);
} HM16_ListenV1;

#ifdef __cplusplus
}
#endif

#endif
