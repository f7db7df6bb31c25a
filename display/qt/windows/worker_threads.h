// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <functional>
#include <list>
#include <thread>

namespace display::qt {

/// Threads beside the program's, one for each piece of work. Used on the program's thread.
class WorkerThreads {
 public:
    WorkerThreads() = default;
    /// Waits for what still works; nothing of it arrives any more.
    ~WorkerThreads() { wait(); }
    WorkerThreads(const WorkerThreads&) = delete;
    WorkerThreads& operator=(const WorkerThreads&) = delete;

    /// Runs `fn`, which throws nothing, and then `arrived` on the program's thread by Qt's loop.
    void start(std::function<void()> fn, std::function<void()> arrived);
    /// Returns when nothing works any more. What is on its way still arrives.
    void wait();

 private:
    std::list<std::thread> threads_;
    QObject here_;
};

}  // namespace display::qt
