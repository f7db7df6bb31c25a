// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/host/host_process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>

namespace hm16 {

namespace {

// What the new process finds as its descriptor of the page, behind standard error.
constexpr int kPagePlace = 3;

// Nothing of the program's is left open in the new process but its output and the page.
class Descriptors {
 public:
    explicit Descriptors(int page) {
        posix_spawn_file_actions_init(&actions_);
        posix_spawn_file_actions_adddup2(&actions_, page, kPagePlace);
        posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_addclosefrom_np(&actions_, kPagePlace + 1);
    }
    ~Descriptors() { posix_spawn_file_actions_destroy(&actions_); }
    Descriptors(const Descriptors&) = delete;
    Descriptors& operator=(const Descriptors&) = delete;
    const posix_spawn_file_actions_t* get() const { return &actions_; }

 private:
    posix_spawn_file_actions_t actions_;
};

// Signals act as a fresh process expects, whatever the program does with its own.
class FreshSignals {
 public:
    FreshSignals() {
        posix_spawnattr_init(&attributes_);
        sigset_t none;
        sigemptyset(&none);
        posix_spawnattr_setsigmask(&attributes_, &none);
        sigset_t all;
        sigfillset(&all);
        posix_spawnattr_setsigdefault(&attributes_, &all);
        posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    ~FreshSignals() { posix_spawnattr_destroy(&attributes_); }
    FreshSignals(const FreshSignals&) = delete;
    FreshSignals& operator=(const FreshSignals&) = delete;
    const posix_spawnattr_t* get() const { return &attributes_; }

 private:
    posix_spawnattr_t attributes_;
};

}  // namespace

std::unique_ptr<HostProcess> HostProcess::start(const std::filesystem::path& program, int page) {
    const std::string name = program.string();
    const std::string place = std::to_string(kPagePlace);
    const std::string parent = std::to_string(::getpid());
    char* const arguments[] = {const_cast<char*>(name.c_str()), const_cast<char*>(place.c_str()),
                               const_cast<char*>(parent.c_str()), nullptr};
    pid_t id = 0;
    if (::posix_spawn(&id, name.c_str(), Descriptors(page).get(), FreshSignals().get(), arguments,
                      environ) != 0) {
        return nullptr;
    }
    return std::unique_ptr<HostProcess>(new HostProcess(id));
}

HostProcess::~HostProcess() {
    kill();
}

bool HostProcess::ended() {
    if (ended_) return true;
    int status = 0;
    const pid_t gone = ::waitpid(id_, &status, WNOHANG);
    if (gone == id_) note(status);
    // Somebody else may have waited for it.
    if (gone < 0 && errno == ECHILD) {
        ended_ = true;
        how_ = "it is gone";
    }
    return ended_;
}

void HostProcess::kill() {
    if (ended()) return;
    ::kill(id_, SIGKILL);
    int status = 0;
    while (::waitpid(id_, &status, 0) < 0 && errno == EINTR) {
    }
    note(status);
}

void HostProcess::note(int status) {
    ended_ = true;
    how_ = WIFSIGNALED(status) ? ::strsignal(WTERMSIG(status))
                               : "it ended itself with " + std::to_string(WEXITSTATUS(status));
}

}  // namespace hm16
