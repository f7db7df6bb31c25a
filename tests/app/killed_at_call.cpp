// SPDX-License-Identifier: GPL-3.0-or-later
// Preloaded before the C library: kills the process at its n-th call that changes a file of a
// folder, before or after the call. KILLED_FOLDER names the folder, KILLED_AT the call, from 1; 0
// kills nothing. KILLED_CALLS names a file that gets a line for each such call. Only calls of the
// program KILLED_PROGRAM count, not those of the programs that it starts. The history is left out:
// it is written at any time, so that the calls would have other numbers in each run.
#include <dlfcn.h>
#include <fcntl.h>
#include <signal.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>

namespace {

std::atomic<int> calls = 0;
// By descriptor: whether it is a file of that folder, open for writing.
std::atomic<bool> ours[4096];

const char* setting(const char* name) {
    const char* text = ::getenv(name);
    return text ? text : "";
}

bool counts() {
    static const bool its = [] {
        char program[4096];
        const ssize_t size = ::readlink("/proc/self/exe", program, sizeof program - 1);
        program[size < 0 ? 0 : size] = 0;
        return ::strcmp(program, setting("KILLED_PROGRAM")) == 0;
    }();
    return its;
}

bool inFolder(const char* path) {
    const char* folder = setting("KILLED_FOLDER");
    if (!path || !*folder || !counts() || ::strstr(path, "/history")) return false;
    if (path[0] == '/') return ::strncmp(path, folder, ::strlen(folder)) == 0;
    char here[4096];
    return ::getcwd(here, sizeof here) && ::strncmp(here, folder, ::strlen(folder)) == 0;
}

template <class Function>
Function next(Function, const char* name) {
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

/// Wraps one call: odd numbers of KILLED_AT are before calls, even ones after them.
class Around {
 public:
    Around(const char* call, const char* file, bool counts) : counts_(counts) {
        if (counts_) step(call, file);
    }
    ~Around() {
        if (counts_) step("behind it", "");
    }

 private:
    void step(const char* call, const char* file) {
        const int number = ++calls;
        if (const char* log = setting("KILLED_CALLS"); *log) {
            char line[5000];
            const int length = ::snprintf(line, sizeof line, "%d %s %s\n", number, call, file);
            static const auto openIt = next(&::open, "open");
            static const auto writeIt = next(&::write, "write");
            const int fd = openIt(log, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
            if (fd >= 0) {
                (void)!writeIt(fd, line, static_cast<size_t>(length));
                ::close(fd);
            }
        }
        if (number == ::atoi(setting("KILLED_AT"))) ::raise(SIGKILL);
    }
    bool counts_;
};

int opened(int fd, int flags, const char* path) {
    if (fd >= 0 && fd < 4096) ours[fd] = (flags & O_ACCMODE) != O_RDONLY && inFolder(path);
    return fd;
}

bool isOurs(int fd) {
    return fd >= 0 && fd < 4096 && ours[fd];
}

mode_t modeOf(int flags, va_list rest) {
    return flags & O_CREAT ? static_cast<mode_t>(va_arg(rest, int)) : 0;
}

}  // namespace

extern "C" {

int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = modeOf(flags, rest);
    va_end(rest);
    static const auto call = next(static_cast<int (*)(const char*, int, ...)>(nullptr), "open");
    const Around around("open", path, (flags & O_ACCMODE) != O_RDONLY && inFolder(path));
    return opened(call(path, flags, mode), flags, path);
}

int open64(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = modeOf(flags, rest);
    va_end(rest);
    static const auto call = next(static_cast<int (*)(const char*, int, ...)>(nullptr), "open64");
    const Around around("open", path, (flags & O_ACCMODE) != O_RDONLY && inFolder(path));
    return opened(call(path, flags, mode), flags, path);
}

ssize_t write(int fd, const void* bytes, size_t count) {
    static const auto call =
        next(static_cast<ssize_t (*)(int, const void*, size_t)>(nullptr), "write");
    const Around around("write", "", isOurs(fd));
    return call(fd, bytes, count);
}

int fsync(int fd) {
    static const auto call = next(static_cast<int (*)(int)>(nullptr), "fsync");
    const Around around("fsync", "", isOurs(fd));
    return call(fd);
}

int close(int fd) {
    static const auto call = next(static_cast<int (*)(int)>(nullptr), "close");
    const bool was = isOurs(fd);
    if (was) ours[fd] = false;
    const Around around("close", "", was);
    return call(fd);
}

int rename(const char* from, const char* to) {
    static const auto call =
        next(static_cast<int (*)(const char*, const char*)>(nullptr), "rename");
    const Around around("rename", to, inFolder(to));
    return call(from, to);
}

int unlink(const char* path) {
    static const auto call = next(static_cast<int (*)(const char*)>(nullptr), "unlink");
    const Around around("unlink", path, inFolder(path));
    return call(path);
}

}  // extern "C"
