// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/arguments.h"

#include <CLI/CLI.hpp>
#include <utility>
#include <vector>

namespace hmonitor {

namespace {

constexpr const char* kAbout =
    R"(The front end of an FM broadcast measuring instrument: a rack of live panels over
the driver library that stands beside the program.
)";

constexpr const char* kFurther =
    R"(Settings, presets and results lie in the program's own folder; where that cannot
be written, in $XDG_DATA_HOME/hmonitor or ~/.local/share/hmonitor. Each folder
holds one rack; several may run side by side.
)";

}  // namespace

Arguments readArguments(int count, const char* const* words) {
    std::string folder;
    CLI::App app(kAbout, "hmonitor");
    app.footer(kFurther);
    app.set_version_flag("--version", "hmonitor " HMONITOR_VERSION, "Print the version and exit");
    const CLI::Option* const named =
        app.add_option("--folder", folder, "work in this folder")
            ->option_text("PATH")
            ->take_last()
            ->check([](const std::string& path) {
                return path.empty() ? std::string("the path is empty") : std::string();
            });
    try {
        // Read from its end.
        std::vector<std::string> behind;
        for (int i = count - 1; i > 0; --i) behind.emplace_back(words[i]);
        app.parse(std::move(behind));
    } catch (const CLI::CallForHelp&) {
        return {{}, app.help(), {}};
    } catch (const CLI::CallForVersion& version) {
        return {{}, std::string(version.what()) + "\n", {}};
    } catch (const CLI::ParseError& error) {
        return {{}, {}, std::string(error.what()) + "; --help tells more."};
    }
    if (named->count() == 0) return {};
    return {std::filesystem::path(folder), {}, {}};
}

}  // namespace hmonitor
