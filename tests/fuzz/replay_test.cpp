// SPDX-License-Identifier: GPL-3.0-or-later
// Runs a fuzzer's kept inputs and a fixed number of mutations of them, so that every test run
// walks where the fuzzer walked. A property that fails aborts and names itself.
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

#ifdef HMONITOR_MUTATIONS
constexpr int kAllMutations = HMONITOR_MUTATIONS;
#else
constexpr int kAllMutations = 20000;
#endif
// The first fifth of what the plain build walks through.
#ifdef HMONITOR_SANITIZED_ADDRESS
constexpr int kMutations = kAllMutations / 5;
#else
constexpr int kMutations = kAllMutations;
#endif

void feed(const std::string& input) {
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
}

std::vector<std::string> corpus() {
    std::set<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::directory_iterator(HMONITOR_CORPUS)) {
        paths.insert(entry.path());
    }
    std::vector<std::string> inputs;
    for (const auto& path : paths) {
        std::ifstream file(path, std::ios::binary);
        inputs.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    return inputs;
}

class Mutator {
 public:
    explicit Mutator(const std::vector<std::string>& inputs) : inputs_(inputs) {}

    std::string next() {
        std::string input = anyInput();
        for (int i = below(6); i >= 0; --i) change(input);
        return input;
    }

 private:
    int below(std::size_t end) { return static_cast<int>(random_() % end); }
    const std::string& anyInput() {
        return inputs_[static_cast<std::size_t>(below(inputs_.size()))];
    }
    char anyByte() {
        static constexpr std::string_view kLikely{"0123456789.-+ eE\r\n\t\0\x81\xC3\xFF", 23};
        const auto likely = static_cast<std::size_t>(below(kLikely.size()));
        return below(2) ? kLikely[likely] : static_cast<char>(below(256));
    }

    void change(std::string& input) {
        const auto at = static_cast<std::size_t>(below(input.size() + 1));
        switch (below(5)) {
            case 0:
                input.insert(at, 1, anyByte());
                break;
            case 1:
                if (at < input.size()) input[at] = anyByte();
                break;
            case 2:
                if (at < input.size()) input.erase(at, 1 + static_cast<std::size_t>(below(4)));
                break;
            case 3:
                input.resize(at);
                break;
            default:
                input.insert(at, anyInput().substr(0, 40));
        }
    }

    const std::vector<std::string>& inputs_;
    std::mt19937 random_{16};
};

TEST(Replay, EveryKeptInputHoldsTheProperties) {
    const auto inputs = corpus();
    ASSERT_GE(inputs.size(), 5u) << HMONITOR_CORPUS;
    for (const std::string& input : inputs) feed(input);
}

TEST(Replay, MutationsOfTheKeptInputsHoldThemToo) {
    const auto inputs = corpus();
    ASSERT_FALSE(inputs.empty());
    Mutator mutator(inputs);
    for (int i = 0; i < kMutations; ++i) feed(mutator.next());
}

}  // namespace
