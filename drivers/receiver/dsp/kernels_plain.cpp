// SPDX-License-Identifier: GPL-3.0-or-later
// For any processor.
#define KERNELS plain
#define kLaneBytes 16
#include "drivers/receiver/dsp/kernels_body.inc"
