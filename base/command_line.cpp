// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/command_line.h"

#include <CLI/CLI.hpp>
#include <functional>

#include "base/number_in_text.h"
#include "base/number_text.h"
#include "base/plain_text.h"

namespace base {

namespace {

CLI::Validator numberWithin(double low, double high) {
    const std::string range = decimalText(low, 3) + " to " + decimalText(high, 3);
    const auto faultOf = [low, high, range](const std::string& text) -> std::string {
        const auto number = numberIn(text);
        if (number && *number >= low && *number <= high) return "";
        return inQuotes(text) + " is no number from " + range;
    };
    return CLI::Validator(faultOf, range);
}

}  // namespace

struct CommandLine::Parser {
    CLI::App app;

    Parser(const std::string& about, const std::string& program) : app(about, program) {}

    template <typename Number>
    void number(const std::string& name, Number& into, double low, double high,
                const std::string& about) {
        app.add_option(name, into, about)->check(numberWithin(low, high))->capture_default_str();
    }
};

CommandLine::CommandLine(const std::string& about, const std::string& program,
                         const std::string& footer)
    : parser_(std::make_unique<Parser>(about, program)) {
    parser_->app.footer(footer);
}

CommandLine::~CommandLine() = default;

void CommandLine::version(const std::string& text) {
    parser_->app.set_version_flag("--version", text, "Print the version and exit");
}

void CommandLine::flag(const std::string& name, bool& into, const std::string& about) {
    parser_->app.add_flag(name, into, about);
}

void CommandLine::path(const std::string& name, std::filesystem::path& into,
                       const std::string& about, Need need) {
    parser_->app.add_option(name, into, about)
        ->required(need == Need::Required)
        ->capture_default_str();
}

void CommandLine::maybePath(const std::string& name, std::optional<std::filesystem::path>& into,
                            const std::string& about) {
    const std::function<void(const std::string&)> keep = [&into](const std::string& path) {
        into = path;
    };
    parser_->app.add_option_function(name, keep, about)
        ->option_text("PATH")
        ->check([](const std::string& path) {
            return path.empty() ? std::string("the path is empty") : std::string();
        });
}

void CommandLine::oneOf(const std::string& name, std::string& into,
                        const std::vector<std::string>& words, const std::string& about,
                        Need need) {
    parser_->app.add_option(name, into, about)
        ->required(need == Need::Required)
        ->check(CLI::IsMember(words));
}

void CommandLine::number(const std::string& name, double& into, double low, double high,
                         const std::string& about) {
    parser_->number(name, into, low, high, about);
}

void CommandLine::number(const std::string& name, int& into, double low, double high,
                         const std::string& about) {
    parser_->number(name, into, low, high, about);
}

void CommandLine::number(const std::string& name, long& into, double low, double high,
                         const std::string& about) {
    parser_->number(name, into, low, high, about);
}

void CommandLine::maybeWord(const std::string& name, std::optional<std::string>& into,
                            const std::string& about) {
    const std::function<void(const std::string&)> keep = [&into](const std::string& word) {
        into = word;
    };
    parser_->app.add_option_function(name, keep, about)->expected(0, 1);
}

std::optional<CommandLineEnd> CommandLine::read(std::span<const std::string_view> words) {
    CLI::App& app = parser_->app;
    for (CLI::Option* option : app.get_options()) {
        if (option->get_items_expected_max() > 0) option->take_last();
    }
    try {
        app.parse(std::vector<std::string>(words.rbegin(), words.rend()));
    } catch (const CLI::CallForHelp&) {
        return CommandLineEnd{true, app.help()};
    } catch (const CLI::CallForVersion& version) {
        return CommandLineEnd{true, std::string(version.what()) + "\n"};
    } catch (const CLI::ParseError& error) {
        return CommandLineEnd{false, std::string(error.what()) + "; --help tells more."};
    }
    return std::nullopt;
}

}  // namespace base
