// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace hmonitor {

/// The value of a place or a height that is not given.
inline constexpr float kNotAvailable = -777.0f;

/// The information of a session, in the order of its file. Texts are UTF-8.
struct SessionInfo {
    std::uint8_t Version = 0;  ///< 1; another one is not shown
    std::string Unused;        ///< read and written back, otherwise unused
    std::string Comment;
    double Created = 0;  ///< days since 30 December 1899, local time
    float StartMHz = 0;
    float StopMHz = 0;
    std::int32_t Acquisitions = 0;  ///< sweeps in the histogram
    double Latitude = 0;            ///< degrees, south negative
    double Longitude = 0;           ///< degrees, west negative
    float Altitude = 0;             ///< metres
    std::array<char, 256> Reserved{};

    bool operator==(const SessionInfo&) const = default;
};

/// The information of a new session. `now` in days since 30 December 1899.
SessionInfo newSessionInfo(double now);

}  // namespace hmonitor
