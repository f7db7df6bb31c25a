// SPDX-License-Identifier: GPL-3.0-or-later
// bench_rds_multiplex [FOLDER]: how many groups are decoded of each of the ten signals with RDS.
// With a folder it writes them there for other decoders: 32-bit floats, 250,000 a second, 1.0 is
// 75 kHz.
#include <cstdio>
#include <fstream>
#include <string>

#include "tests/drivers/receiver/rds_signals.h"

int main(int count, char** arguments) {
    using namespace hm16::receiver;
    int number = 0;
    for (const RdsSignal& signal : kRdsSignals) {
        std::vector<float> composite = multiplexOf(signal);
        const RdsCount groups = countGroups(composite);
        std::printf("%2d  %-28s %4d groups, %d wrong\n", ++number, signal.name, groups.groups,
                    groups.wrong);
        if (count < 2) continue;
        for (float& hz : composite) hz /= 75e3F;
        std::ofstream file(std::string(arguments[1]) + "/" + std::to_string(number) + ".f32",
                           std::ios::binary);
        file.write(reinterpret_cast<const char*>(composite.data()),
                   static_cast<std::streamsize>(composite.size() * sizeof(float)));
    }
    return 0;
}
