// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// HM16_FAST before a function compiles it twice: for processors with 256-bit vectors and fused
// multiply-add, and for any. The right one is chosen when the library is loaded. The sanitizers'
// own start-up comes too late for that choice, so they get the plain one.
#if defined(__x86_64__) && defined(__linux__) && defined(__GNUC__) && !defined(__clang__) && \
    !defined(__SANITIZE_THREAD__) && !defined(__SANITIZE_ADDRESS__)
#define HM16_FAST __attribute__((target_clones("arch=haswell", "default")))
#else
#define HM16_FAST
#endif
