// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <memory>
#include <string>

namespace hm16 {

// The process of a library, as the program that started it sees it. Ended, and by force if need be,
// with this object.
class HostProcess {
 public:
    // Starts `program` and hands it the descriptor of the page. Null when the system cannot.
    static std::unique_ptr<HostProcess> start(const std::filesystem::path& program, int page);
    ~HostProcess();
    HostProcess(const HostProcess&) = delete;
    HostProcess& operator=(const HostProcess&) = delete;

    // Whether it is gone; asks the system.
    bool ended();
    // How it went, in words of the system: "Segmentation fault", "it ended itself with 3". Empty
    // while it runs.
    const std::string& how() const { return how_; }
    pid_t id() const { return id_; }

    void kill();

 private:
    explicit HostProcess(pid_t id) : id_(id) {}
    void note(int status);

    pid_t id_;
    bool ended_ = false;
    std::string how_;
};

}  // namespace hm16
