// SPDX-License-Identifier: GPL-3.0-or-later
// For processors with 256-bit vectors and fused multiply-add; compiled with the options for them.
#define KERNELS wide
#define kLaneBytes 32
#include "drivers/receiver/dsp/kernels_body.inc"
