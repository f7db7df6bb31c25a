// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

#include "base/readings.h"
#include "drivers/hm16.h"

namespace hm16 {

// Calls HM_Data and puts each reading in its place. The two of HM_DataRDS are not changed.
inline std::int32_t readData(const HM16_Functions& library, figures::Readings& readings) {
    return [&]<std::size_t... I>(std::index_sequence<I...>) {
        return library.data(&(readings.*figures::kOutputs[I])...);
    }
    (std::make_index_sequence<figures::kDataOutputs>{});
}

}  // namespace hm16
