// SPDX-License-Identifier: GPL-3.0-or-later
// The process of a driver library: hm16-host DESCRIPTOR PARENT. Started by the program, which hands
// over the page of calls; one thread makes them. It ends with the program.
#include <sys/prctl.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "drivers/host/library_calls.h"
#include "drivers/host/shared_memory.h"

namespace {

using namespace std::chrono_literals;

// A key that ends the program is meant for the program, which then calls HM_Terminate.
void leaveSignalsToTheProgram() {
    for (const int signal : {SIGINT, SIGQUIT, SIGHUP, SIGTERM}) {
        std::signal(signal, SIG_IGN);
    }
}

int serve(hm16::CallPage& page, pid_t program) {
    hm16::LibraryCalls calls(page);
    hm16::Patience patience;
    std::uint32_t done = 0;
    for (;;) {
        if (!page.asked.awaitOtherThan(done, patience, 1000ms)) {
            if (::getppid() != program) return 1;
            continue;
        }
        done = page.asked.count();
        page.begun.store(done, std::memory_order_release);
        const bool last = page.values.call == hm16::Call::Quit;
        calls.make();
        page.answered.ring(done);
        if (last) return 0;
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("hm16-host: the program starts it, nobody else.\n", stderr);
        return 2;
    }
    const pid_t program = static_cast<pid_t>(std::atol(argv[2]));
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != program) return 1;
    leaveSignalsToTheProgram();
    const hm16::SharedPage page = hm16::SharedPage::open(std::atoi(argv[1]));
    if (!page) {
        std::fputs("hm16-host: it is not of the same build as the program.\n", stderr);
        return 2;
    }
    return serve(*page, program);
}
