// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <functional>
#include <initializer_list>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hm16 {

// A library's settings file: lines "key = value", blank lines, lines that begin with ";" or "#",
// and "[section]" lines, behind which a key is called "section.key". Keys know no case; a value is
// all behind the "=" without the blanks around it.
//
// The getters give the setting, or the fallback when the file has none. A setting that is wrong
// gives the fallback too and adds one sentence with file and line to faults(). Ask for every
// setting first, then look at faults(): a key that nobody asked for is a fault as well, since it
// is most likely a slip of the pen.
class Settings {
 public:
    // Reads a file. One that does not exist has no settings and no faults; one that cannot be read
    // is a fault.
    static Settings read(const std::filesystem::path& file);

    // Reads settings from text; `name` stands in the sentences.
    static Settings parse(std::string_view text, std::string name);

    double number(std::string_view key, double fallback, double low, double high);
    // The same for one such as "1.2e6" or "2.4M".
    double scaled(std::string_view key, double fallback, double low, double high);
    long whole(std::string_view key, long fallback, long low, long high);
    std::string text(std::string_view key, std::string_view fallback);
    // The index of the word in `words`.
    std::size_t choice(std::string_view key, std::initializer_list<std::string_view> words,
                       std::size_t fallback);

    // True when the file has the key.
    bool has(std::string_view key) const;

    // Adds a sentence about a setting: "NAME, line N: KEY " and `wrong`. For rules that tie several
    // settings together. Without such a key the line is left out.
    void addFault(std::string_view key, std::string_view wrong);

    // The faults, one sentence each, in the order of finding; unknown keys last.
    // What the file holds stands in them as printable() gives it.
    std::vector<std::string> faults() const;

 private:
    struct Entry {
        std::string value;
        int line = 0;
        bool asked = false;
    };

    Entry* find(std::string_view key);
    double within(std::string_view key, std::optional<double> (*numberOf)(std::string_view),
                  double fallback, double low, double high);
    void takeLine(std::string_view line, int number, std::string& section);

    std::string name_;
    std::map<std::string, Entry, std::less<>> entries_;
    std::vector<std::string> faults_;
};

}  // namespace hm16
