// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdio>
#include <cstdlib>

/// A property that must hold for any input: a fuzzer takes the abort as its finding.
#define FUZZ_CHECK(property)                                                            \
    do {                                                                                \
        if (!(property)) {                                                              \
            std::fprintf(stderr, "%s:%d: not so: %s\n", __FILE__, __LINE__, #property); \
            std::abort();                                                               \
        }                                                                               \
    } while (false)
