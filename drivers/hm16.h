/* SPDX-License-Identifier: GPL-3.0-or-later */
/*
 * The C interface of an hm-16 driver library: nineteen functions between HMonitor and one FM
 * receiver unit. Whoever writes a library (hm-16.dll, hm-16.so, hm-16.dylib) includes this header
 * and nothing else of the program; docs/driver.md tells the same at more length.
 *
 * Conventions
 *   Thread     All functions are called from one and the same thread, never re-entrantly. The
 *              library may run threads of its own; it never calls back.
 *   Frequency  32-bit float in units of 100 kHz: 875 is 87.5 MHz, 1025.5 is 102.55 MHz.
 *   Level      32-bit float in dB over a microvolt. A library gives whole dB unless its own
 *              settings ask for finer steps.
 *   Result     32-bit. The program looks at two of them only: HM_Super (0: measured) and
 *              HM_TramaEspectroRecibida (not 0: a frame is there).
 *   Outputs    Pointers to memory of the caller, valid during the call, never null. A library may
 *              leave an output untouched; the caller has loaded it with a sensible value.
 *
 * Modes (a call outside its legal mode must be harmless)
 *   closed -> HM_Init -> idle; idle -> HM_Normal -> normal; idle -> HM_StartEspectro -> sweep;
 *   idle -> HM_Super -> (one level) -> idle; normal, sweep -> HM_Parar -> idle.
 */
#ifndef HM16_H
#define HM16_H

#include <stdint.h>

#if defined(_WIN32)
#define HM16_CALL __stdcall
#else
#define HM16_CALL
#endif

#if defined(HM16_BUILDING_LIBRARY)
#if defined(_WIN32)
#define HM16_EXPORT __declspec(dllexport)
#else
#define HM16_EXPORT __attribute__((visibility("default")))
#endif
#else
#define HM16_EXPORT
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* Opens the link to the unit. Legal once, in mode closed. The result is not looked at: a unit that
 * does not answer shows itself by hardware version 0. */
HM16_EXPORT int32_t HM16_CALL HM_Init(void);

/* Closes the link. Legal in any mode, the last call. May be missing altogether: a program that ends
 * through a fatal message does not call it. */
HM16_EXPORT int32_t HM16_CALL HM_Terminate(void);

/* The user goes on without a unit. Called twice in a row; afterwards every function must still
 * return. */
HM16_EXPORT int32_t HM16_CALL HM_DemoMode(void);

/* Never called. Names the folder of the library's own files. */
HM16_EXPORT int32_t HM16_CALL HM_Directorio(const char* folder);

/* Tunes and enters normal measuring. Legal in mode idle.
 *   frequency  875 to 1081.5, a half step as .5: the places of the tuning bar, 0 to 206, and one
 *              half step. Nothing else is ever asked for
 *   average    1 average detector, 0 peak detector; this and the next three are 0 or 1, never else
 *   audioMode  0 outputs 2 and 3 are L and R, 1 they are L+R and L-R
 *   response   1 a frequency response run is armed, 0 not
 *   logFiles   1 the library keeps a daily log of this station, 0 not */
HM16_EXPORT int32_t HM16_CALL HM_Normal(float frequency, int32_t average, int32_t audioMode,
                                        int32_t response, int32_t logFiles);

/* Stops whatever runs and enters mode idle. Legal always, also twice in a row. */
HM16_EXPORT int32_t HM16_CALL HM_Parar(void);

/* Clears stored results of the tuned frequency: 1 noise, 2 distortion, 3 separation. Legal in mode
 * idle. When it returns, the results file of the frequency has been rewritten. */
HM16_EXPORT int32_t HM16_CALL HM_Reset(int32_t what);

/* Copies the latest sixteen readings. Called up to a hundred times a second in every mode: must
 * return at once, never waits for the unit.
 *   peakModulation   percent of 75 kHz          separationLeft    dB
 *   levelFirst       dB, L or L+R               separationRight   dB
 *   levelSecond      dB, R or L-R               distortion        percent
 *   stereoPhase      degrees: 0 R alone, 45     carrierDeviation  units of 100 Hz, -100 to 100
 *                    mono, 90 L alone           field             dB over a microvolt
 *   relativePower    a tenth of the figure      multipath         0 is best, 28 and over is bad
 *   pilotError       Hz, signed                 peaksPerMinute    count
 *   pilotLevel       percent of 75 kHz
 *   noiseLeft        dB, negative
 *   noiseRight       dB, negative
 * When the tone sequence of an armed frequency response run has ended, pilotError is 11583 and
 * pilotLevel 18 (whole parts); this pair must not occur otherwise. */
HM16_EXPORT int32_t HM16_CALL HM_Data(float* peakModulation, float* levelFirst, float* levelSecond,
                                      float* stereoPhase, float* relativePower, float* pilotError,
                                      float* pilotLevel, float* noiseLeft, float* noiseRight,
                                      float* separationLeft, float* separationRight,
                                      float* distortion, float* carrierDeviation, float* field,
                                      float* multipath, float* peaksPerMinute);

/* Copies the latest RDS readings: frequency error of the 57 kHz subcarrier in Hz, level in percent
 * of 75 kHz. The caller loads level with the last one before the call. Must not block. */
HM16_EXPORT int32_t HM16_CALL HM_DataRDS(float* error, float* level);

/* Measures one level at one frequency and returns when it is done. Legal in mode idle. Result 0:
 * measured; not 0: the unit failed, which ends the caller's run. */
HM16_EXPORT int32_t HM16_CALL HM_Super(float frequency, float* level);

/* Starts sweep frames from start to stop, which go on coming until HM_Parar. Legal in mode idle, on
 * units of hardware version 1.7 up to but not including 2.
 *   stepKhz  100 and 250 for the band scanner, 25 for the spectrum analyzer (801 points from 88 to
 *            108 MHz); 0 stands for 25 */
HM16_EXPORT int32_t HM16_CALL HM_StartEspectro(float start, float stop, int32_t stepKhz);

/* Not 0 once for each complete frame that has arrived since the last call that said so. */
HM16_EXPORT int32_t HM16_CALL HM_TramaEspectroRecibida(void);

/* Takes one level out of the frames received since the run's first start, a later run replacing
 * what it covers. Legal also after HM_Parar. A frequency never covered gives the noise floor. */
HM16_EXPORT int32_t HM16_CALL HM_GetEspectro(float frequency, float* level);

/* Never called. */
HM16_EXPORT int32_t HM16_CALL HM_setClient(int32_t client);

/* Copies the eight results of the last frequency response run, in any order: frequency in Hz (0: no
 * result) and level in tenths of dB. Legal in mode idle. */
/* clang-format off */
HM16_EXPORT int32_t HM16_CALL HM_RespFrecuencia(int32_t* frequency1, int32_t* level1,
                                                int32_t* frequency2, int32_t* level2,
                                                int32_t* frequency3, int32_t* level3,
                                                int32_t* frequency4, int32_t* level4,
                                                int32_t* frequency5, int32_t* level5,
                                                int32_t* frequency6, int32_t* level6,
                                                int32_t* frequency7, int32_t* level7,
                                                int32_t* frequency8, int32_t* level8);
/* clang-format on */

/* Called once after HM_Init, with 0. */
HM16_EXPORT int32_t HM16_CALL HM_setSintoMode(int32_t mode);

/* Never called. */
HM16_EXPORT int32_t HM16_CALL HM_getSintoMode(int32_t* mode);

/* Gives the unit's hardware version; 0 means that no unit answered. Legal after HM_Init, in any
 * mode. */
HM16_EXPORT int32_t HM16_CALL HM_getHardwareVersion(float* version);

/* Gives the library's own version. The caller loads it with the hardware version. */
HM16_EXPORT int32_t HM16_CALL HM_getDriverVersion(float* version);

/* Types of the functions, for whoever loads a library at run time. */
typedef int32_t(HM16_CALL* HM16_Plain)(void);
typedef int32_t(HM16_CALL* HM16_Folder)(const char*);
typedef int32_t(HM16_CALL* HM16_Tune)(float, int32_t, int32_t, int32_t, int32_t);
typedef int32_t(HM16_CALL* HM16_Whole)(int32_t);
typedef int32_t(HM16_CALL* HM16_Readings)(float*, float*, float*, float*, float*, float*, float*,
                                          float*, float*, float*, float*, float*, float*, float*,
                                          float*, float*);
typedef int32_t(HM16_CALL* HM16_TwoFloats)(float*, float*);
typedef int32_t(HM16_CALL* HM16_LevelAt)(float, float*);
typedef int32_t(HM16_CALL* HM16_Sweep)(float, float, int32_t);
typedef int32_t(HM16_CALL* HM16_Response)(int32_t*, int32_t*, int32_t*, int32_t*, int32_t*,
                                          int32_t*, int32_t*, int32_t*, int32_t*, int32_t*,
                                          int32_t*, int32_t*, int32_t*, int32_t*, int32_t*,
                                          int32_t*);
typedef int32_t(HM16_CALL* HM16_WholeOut)(int32_t*);
typedef int32_t(HM16_CALL* HM16_FloatOut)(float*);

/* The nineteen functions of one loaded library. The three that are never called may be null. */
typedef struct HM16_Functions {
    HM16_Plain init;
    HM16_Plain terminate;
    HM16_Plain demoMode;
    HM16_Folder directorio; /* may be null */
    HM16_Tune normal;
    HM16_Plain parar;
    HM16_Whole reset;
    HM16_Readings data;
    HM16_TwoFloats dataRds;
    HM16_LevelAt super;
    HM16_Sweep startEspectro;
    HM16_Plain tramaEspectroRecibida;
    HM16_LevelAt getEspectro;
    HM16_Whole setClient; /* may be null */
    HM16_Response respFrecuencia;
    HM16_Whole setSintoMode;
    HM16_WholeOut getSintoMode; /* may be null */
    HM16_FloatOut getHardwareVersion;
    HM16_FloatOut getDriverVersion;
} HM16_Functions;

#ifdef __cplusplus
}
#endif

#endif
