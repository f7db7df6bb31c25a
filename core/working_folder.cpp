// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/working_folder.h"

#include <string>
#include <string_view>
#include <system_error>

#include "base/utf8_path.h"
#include "core/code_page.h"
#include "core/user_access.h"

namespace hmonitor {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kOurFolder = "hmonitor";
constexpr std::string_view kSettings = "hm-16.dat";

/// Program, libraries and what only the program's own folder has stay there.
bool isFirstContent(const std::string& name) {
    const std::string folded = foldedCase(name);
    return folded.ends_with(".dat") || folded.ends_with(".hm") || folded.ends_with(".log");
}

}  // namespace

fs::path workingFolder(const std::optional<fs::path>& asked, const fs::path& program) {
    std::error_code none;
    if (asked) return fs::absolute(*asked, none);
    if (mayBeWritten(program)) return program;
    const auto data = userData();
    return data ? *data / kOurFolder : program;
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
        const std::string name = base::utf8Of(at->path().filename());
        std::error_code unknown;
        if (!isFirstContent(name) || !at->is_regular_file(unknown) || to.exists(name)) continue;
        const auto bytes = from.read(name);
        laid = (bytes && !to.rewrite(name, *bytes)) || laid;
    }
    return first && laid ? Laying::First : Laying::None;
}

}  // namespace hmonitor
