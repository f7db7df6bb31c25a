// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/windows/worker_threads.h"

#include <system_error>
#include <utility>

namespace display::qt {

void WorkerThreads::start(std::function<void()> fn, std::function<void()> arrived) {
    const auto own = threads_.emplace(threads_.end());
    const auto work = [this, own, fn = std::move(fn), arrived = std::move(arrived)] {
        fn();
        QMetaObject::invokeMethod(
            &here_,
            [this, own, arrived] {
                if (own->joinable()) own->join();
                threads_.erase(own);
                arrived();
            },
            Qt::QueuedConnection);
    };
    try {
        *own = std::thread(work);
    } catch (const std::system_error&) {
        // The system gives no more threads: it is done here, and arrives all the same.
        work();
    }
}

void WorkerThreads::wait() {
    for (std::thread& thread : threads_) {
        if (thread.joinable()) thread.join();
    }
}

}  // namespace display::qt
