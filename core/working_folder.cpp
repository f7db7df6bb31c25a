// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/working_folder.h"

#include <cstdlib>
#include <string>
#include <string_view>
#include <system_error>

#include "core/code_page.h"

#if defined(_WIN32)
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace hmonitor {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kName = "hmonitor";
constexpr std::string_view kSettings = "hm-16.dat";

bool canBeWritten(const fs::path& folder) {
#if defined(_WIN32)
    return ::_waccess(folder.c_str(), 2) == 0;
#else
    return ::faccessat(AT_FDCWD, folder.c_str(), W_OK, AT_EACCESS) == 0;
#endif
}

/// A folder that the environment names; a name that is not absolute is none.
std::optional<fs::path> named(const char* variable) {
    const char* text = std::getenv(variable);
    if (!text || !fs::path(text).is_absolute()) return std::nullopt;
    return fs::path(text);
}

std::optional<fs::path> ofTheUser() {
#if defined(_WIN32)
    const auto data = named("LOCALAPPDATA");
#else
    auto data = named("XDG_DATA_HOME");
    if (!data) {
        data = named("HOME");
        if (data) *data /= fs::path(".local") / "share";
    }
#endif
    if (!data) return std::nullopt;
    return *data / kName;
}

/// Program, libraries and what only the program's own folder has stay there.
bool isFirstContent(const std::string& name) {
    const std::string folded = foldedCase(name);
    return folded.ends_with(".dat") || folded.ends_with(".hm") || folded.ends_with(".log");
}

}  // namespace

fs::path workingFolder(const std::optional<fs::path>& asked, const fs::path& program) {
    std::error_code none;
    if (asked) return fs::absolute(*asked, none);
    if (canBeWritten(program)) return program;
    return ofTheUser().value_or(program);
}

Laying layFirstContents(const fs::path& folder, const fs::path& program) {
    std::error_code fault;
    if (fs::equivalent(folder, program, fault)) return Laying::None;
    fs::create_directories(folder / "Logs", fault);
    const Files to(folder);
    const Files from(program);
    const bool first = !to.exists(kSettings);
    bool laid = false;
    for (fs::directory_iterator at(program, fault), end; !fault && at != end; at.increment(fault)) {
        const std::string name = at->path().filename().string();
        std::error_code unknown;
        if (!isFirstContent(name) || !at->is_regular_file(unknown) || to.exists(name)) continue;
        const auto bytes = from.read(name);
        laid = (bytes && !to.rewrite(name, *bytes)) || laid;
    }
    return first && laid ? Laying::First : Laying::None;
}

}  // namespace hmonitor
