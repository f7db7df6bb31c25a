// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace base {

// What a command line asks of the program before its own work begins.
struct CommandLineEnd {
    bool help = false;  // `text` is the help or version that was asked for, no fault
    std::string text;   // else a sentence that says what is wrong
};

// The words that a program takes. A name that begins with -- is an option, any other name a word
// that is known by its place. A variable that is not spoken of keeps its value, and the help shows
// it as what holds without. All variables must outlive the object.
//
// CLI11, which does the work, stays inside: its header alone costs seconds in each file.
class CommandLine {
 public:
    // `about` begins the help and `footer` ends it.
    CommandLine(const std::string& about, const std::string& program,
                const std::string& footer = "");
    ~CommandLine();
    CommandLine(const CommandLine&) = delete;
    CommandLine& operator=(const CommandLine&) = delete;

    enum class Need { Optional, Required };

    // --version answers with `text` and a new line.
    void version(const std::string& text);
    void flag(const std::string& name, bool& into, const std::string& about);
    void path(const std::string& name, std::filesystem::path& into, const std::string& about,
              Need need = Need::Optional);
    // Is empty where the option was not given; an empty path is a fault.
    void maybePath(const std::string& name, std::optional<std::filesystem::path>& into,
                   const std::string& about);
    void oneOf(const std::string& name, std::string& into, const std::vector<std::string>& words,
               const std::string& about, Need need = Need::Optional);
    // From `low` to `high`, written as in our files: no exponent, no words, never a locale.
    void number(const std::string& name, double& into, double low, double high,
                const std::string& about);
    void number(const std::string& name, int& into, double low, double high,
                const std::string& about);
    void number(const std::string& name, long& into, double low, double high,
                const std::string& about);
    // An option that may stand by itself: `into` is then the empty text.
    void maybeWord(const std::string& name, std::optional<std::string>& into,
                   const std::string& about);

    // Reads the words behind the program's name; an option that stands there twice counts by its
    // last value. Gives nothing when the program is to go on.
    std::optional<CommandLineEnd> read(std::span<const std::string_view> words);

 private:
    struct Parser;
    std::unique_ptr<Parser> parser_;
};

}  // namespace base
