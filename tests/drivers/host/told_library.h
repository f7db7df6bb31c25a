// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "drivers/host/hosted_library.h"
#include "tests/support/temp_folder.h"

namespace hm16::test {

using hmonitor::test::TempFolder;
using testing::ElementsAre;

// Notes what went wrong, and gives the answers that a test sets.
struct NotedWatch final : HostWatch {
    struct Noted {
        HostTrouble::Kind kind;
        std::string function;
        std::string how;
        Refusal refusal;
        std::string journal;
    };

    std::vector<Noted> troubles;
    std::vector<Next> answers;  // when used up: StartAgain
    bool waits = false;         // waits for a call that takes long
    bool leaves = false;        // by an exception

    std::optional<Next> decide(const HostTrouble& trouble,
                               const std::function<bool()>& over) override {
        troubles.push_back({trouble.kind, trouble.function, trouble.how,
                            trouble.refusal ? trouble.refusal->refusal : Refusal::None,
                            trouble.journal});
        if (leaves) throw std::runtime_error("left");
        if (waits && trouble.kind == HostTrouble::Kind::Silent) {
            while (!over()) ::usleep(1000);
            return std::nullopt;
        }
        if (answers.empty()) return Next::StartAgain;
        const Next answer = answers.front();
        answers.erase(answers.begin());
        return answer;
    }
};

// A folder with the library that misbehaves as told (fixtures/told.cpp). It is the current folder
// while this object exists.
class ToldLibrary {
 public:
    explicit ToldLibrary(const std::string& wrong = "") : before_(std::filesystem::current_path()) {
        std::filesystem::copy(HM16_TOLD, folder.path() / libraryName());
        std::filesystem::permissions(folder.path() / libraryName(), std::filesystem::perms(0755));
        std::filesystem::current_path(folder.path());
        if (!wrong.empty()) folder.write("wrong.txt", wrong);
        limits.load = std::chrono::milliseconds(20000);
        limits.call = std::chrono::milliseconds(20000);
    }
    ~ToldLibrary() {
        loaded.library.reset();
        std::filesystem::current_path(before_);
    }
    ToldLibrary(const ToldLibrary&) = delete;
    ToldLibrary& operator=(const ToldLibrary&) = delete;

    // Starts the library; the test's watch decides about faults.
    void load() {
        loaded = HostedLibrary::load(HM16_HOST, folder.path(), limits);
        if (loaded.library) loaded.library->watchedBy(&watch);
    }
    const HM16_Functions& call() const { return loaded.library->functions(); }
    HostedLibrary& library() const { return *loaded.library; }

    // The calls that the library received, a line each.
    std::vector<std::string> calls() const {
        std::vector<std::string> lines;
        std::ifstream in(folder.path() / "calls.txt");
        for (std::string line; std::getline(in, line);) lines.push_back(line);
        return lines;
    }
    void forgetCalls() const { std::filesystem::remove(folder.path() / "calls.txt"); }

    std::array<float, 16> readings() const {
        std::array<float, 16> r;
        for (std::size_t i = 0; i < r.size(); ++i) r[i] = static_cast<float>(i) + 1;
        const std::int32_t result =
            call().data(&r[0], &r[1], &r[2], &r[3], &r[4], &r[5], &r[6], &r[7], &r[8], &r[9],
                        &r[10], &r[11], &r[12], &r[13], &r[14], &r[15]);
        EXPECT_EQ(result, loaded.library->runs() ? 18 : 0);
        return r;
    }

    TempFolder folder;
    HostedLibrary::Limits limits;
    NotedWatch watch;
    HostedLoad loaded;

 private:
    std::filesystem::path before_;
};

// Whether the process still runs; a zombie does not count.
inline bool lives(pid_t id) {
    std::ifstream in("/proc/" + std::to_string(id) + "/stat");
    std::string line;
    if (!std::getline(in, line)) return false;
    const std::size_t state = line.rfind(')') + 2;
    return state < line.size() && line[state] != 'Z' && line[state] != 'X';
}

template <typename Condition>
bool comes(Condition condition) {
    for (int i = 0; i < 15000; ++i) {
        if (condition()) return true;
        ::usleep(2000);
    }
    return false;
}

}  // namespace hm16::test
