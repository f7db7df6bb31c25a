// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/unit/command_line.h"

#include <vector>

#include "base/number_in_text.h"
#include "base/number_text.h"
#include "base/plain_text.h"

namespace hm16 {

CLI::Validator numberWithin(double low, double high) {
    const std::string range = base::decimalText(low, 3) + " to " + base::decimalText(high, 3);
    const auto faultOf = [low, high, range](const std::string& text) -> std::string {
        const auto number = base::numberIn(text);
        if (number && *number >= low && *number <= high) return "";
        return base::inQuotes(text) + " is no number from " + range;
    };
    return CLI::Validator(faultOf, range);
}

std::optional<CommandLineEnd> readCommandLine(CLI::App& app,
                                              std::span<const std::string_view> words) {
    for (CLI::Option* option : app.get_options()) {
        if (option->get_items_expected_max() > 0) option->take_last();
    }
    try {
        app.parse(std::vector<std::string>(words.rbegin(), words.rend()));
    } catch (const CLI::CallForHelp&) {
        return CommandLineEnd{true, app.help()};
    } catch (const CLI::ParseError& error) {
        return CommandLineEnd{false, std::string(error.what()) + "; --help tells more."};
    }
    return std::nullopt;
}

}  // namespace hm16
