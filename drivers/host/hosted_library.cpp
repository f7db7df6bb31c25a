// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/host/hosted_library.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <system_error>
#include <utility>

#include "drivers/host/hosted_functions.h"
#include "drivers/host/library_calls.h"

namespace hm16 {

namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

// How often a sleeper looks whether the library's process is still there.
constexpr auto kGlance = 20ms;
// What the host ends with when it is not of this build.
constexpr const char* kOtherBuild = "it ended itself with 2";

// What a call gives when there is no library: harmless, and a failure where that is looked at.
std::int32_t withoutLibrary(Call call) {
    switch (call) {
        case Call::Super:
            return 2;
        case Call::FiguresDescribe:
        case Call::ListenSet:
        case Call::ListenState:
        case Call::AbsenceWhy:
            return 1;
        case Call::FiguresSlots:
            return -1;
        default:
            return 0;
    }
}

// Ends whatever the unit does, or begins something else.
bool changesMode(Call call) {
    return call == Call::Init || call == Call::Terminate || call == Call::Parar ||
           call == Call::Normal || call == Call::StartEspectro;
}

}  // namespace

HostedLibrary::HostedLibrary(std::filesystem::path host, std::filesystem::path folder,
                             Limits limits)
    : host_(std::move(host)), folder_(std::move(folder)), limits_(limits) {
    std::error_code error;
    file_ = std::filesystem::absolute(folder_ / libraryName(), error);
}

HostedLoad HostedLibrary::load(const std::filesystem::path& host,
                               const std::filesystem::path& folder) {
    return load(host, folder, Limits{});
}

HostedLoad HostedLibrary::load(const std::filesystem::path& host,
                               const std::filesystem::path& folder, Limits limits) {
    HostedLoad load;
    load.library.reset(new HostedLibrary(host, folder, limits));
    HostedLibrary& library = *load.library;
    if (!library.launch()) {
        load.noHost = library.refusal_.refusal == Refusal::None;
        load.result = std::move(library.refusal_);
        load.library.reset();
        return load;
    }
    load.result.file = library.file_;
    library.functions_ = hostedFunctions(library, library.page_->optional);
    return load;
}

HostedLibrary::~HostedLibrary() {
    forgetHosted(*this);
    if (!process_ || process_->ended()) return;
    CallValues values;
    values.call = Call::Quit;
    page_->values = values;
    page_->asked.ring(++asked_);
    awaitAnswer(asked_, limits_.unload);
    // What the library does when it is unloaded, it has done; what it does at the end of its
    // process may take as long again.
    const auto until = steady_clock::now() + limits_.unload;
    while (!process_->ended() && steady_clock::now() < until) ::usleep(1000);
}

HM16_ExtensionFunction HostedLibrary::extension() const {
    return extensions_ != 0 ? hostedExtension() : nullptr;
}

void HostedLibrary::setText(const char* text) {
    if (!process_) return;
    const std::size_t length = ::strnlen(text, sizeof page_->text - 1);
    std::memcpy(page_->text, text, length);
    page_->text[length] = '\0';
}

bool HostedLibrary::awaitAnswer(std::uint32_t number, std::chrono::milliseconds most) {
    const auto until = steady_clock::now() + most;
    while (!answered(number)) {
        if (page_->answered.awaitOtherThan(number - 1, patience_, kGlance)) continue;
        if (process_->ended() || steady_clock::now() >= until) break;
    }
    return answered(number);
}

bool HostedLibrary::launch() {
    refusal_ = LoadResult{};
    process_.reset();
    page_ = SharedPage::make();
    if (!page_) return false;
    process_ = HostProcess::start(host_, page_.descriptor());
    if (!process_) return false;
    setText(folder_.c_str());
    page_->values.call = Call::Load;
    asked_ = 1;
    page_->asked.ring(asked_);
    if (!awaitAnswer(asked_, limits_.load)) {
        const bool gone = process_->ended();
        if (gone && page_->begun.load() == 0 && process_->how() == kOtherBuild) {
            process_.reset();
            return false;
        }
        refusal_.refusal = gone ? Refusal::Crashed : Refusal::Hangs;
        refusal_.reason = process_->how();
        refusal_.file = file_;
        refusal_.fault = refusalSentence(refusal_);
    } else {
        refusal_ = readRefusal(*page_);
    }
    if (refusal_.refusal != Refusal::None) {
        process_.reset();
        return false;
    }
    extensions_ = page_->extensions;
    return true;
}

void HostedLibrary::leave() {
    process_.reset();
    left_ = steady_clock::now();
}

HostTrouble HostedLibrary::trouble(HostTrouble::Kind kind) const {
    HostTrouble trouble;
    trouble.kind = kind;
    trouble.file = file_;
    // A crash of another thread, between two calls, is nobody's.
    if (page_ && page_->begun.load() == asked_) trouble.function = nameOf(inWork_);
    if (process_) trouble.how = process_->how();
    trouble.refusal = &refusal_;
    trouble.journal = journal_.text();
    return trouble;
}

std::optional<HostWatch::Next> HostedLibrary::decide(const HostTrouble& trouble,
                                                     const std::function<bool()>& over) {
    if (watch_ == nullptr) return HostWatch::Next::GoWithout;
    try {
        return watch_->decide(trouble, over);
    } catch (...) {
        // What the exception passes on its way may call the library once more.
        leave();
        throw;
    }
}

HostedLibrary::Outcome HostedLibrary::askAboutSilence(std::uint32_t number) {
    const auto next = decide(trouble(HostTrouble::Kind::Silent),
                             [this, number] { return answered(number) || process_->ended(); });
    if (!next) return Outcome::Done;
    return *next == HostWatch::Next::StartAgain ? Outcome::StartAgain : Outcome::GoWithout;
}

HostedLibrary::Outcome HostedLibrary::attempt(CallValues& values) {
    const Call call = values.call;
    inWork_ = call;
    journal_.begin(values);
    page_->values = values;
    const std::uint32_t number = ++asked_;
    page_->asked.ring(number);
    while (!awaitAnswer(number, limits_.call)) {
        if (process_->ended()) return Outcome::Crashed;
        const Outcome outcome = askAboutSilence(number);
        if (outcome != Outcome::Done) return outcome;
    }
    values = page_->values;
    values.call = call;
    journal_.end(values);
    return Outcome::Done;
}

HostedLibrary::Outcome HostedLibrary::repeat(const CallValues& values) {
    CallValues again = values;
    return attempt(again);
}

HostedLibrary::Outcome HostedLibrary::restore(Call call) {
    if (!opened_ || call == Call::Init) return Outcome::Done;
    CallValues plain;
    plain.call = Call::Init;
    Outcome outcome = repeat(plain);
    if (outcome == Outcome::Done && sintoMode_) outcome = repeat(*sintoMode_);
    plain.call = Call::DemoMode;
    if (outcome == Outcome::Done && demo_) outcome = repeat(plain);
    if (outcome == Outcome::Done && loudness_ && hasListen()) outcome = repeat(*loudness_);
    if (outcome == Outcome::Done && running_ && !changesMode(call)) outcome = repeat(*running_);
    return outcome;
}

HostWatch::Next HostedLibrary::nextAfter(Outcome outcome) {
    using Next = HostWatch::Next;
    if (outcome == Outcome::StartAgain) return Next::StartAgain;
    if (outcome == Outcome::GoWithout) return Next::GoWithout;
    const auto kind =
        outcome == Outcome::Crashed ? HostTrouble::Kind::Crashed : HostTrouble::Kind::NotLoaded;
    return decide(trouble(kind), [] { return false; }).value_or(Next::GoWithout);
}

bool HostedLibrary::recover(Outcome outcome, Call call) {
    while (outcome != Outcome::Done) {
        if (nextAfter(outcome) == HostWatch::Next::GoWithout || call == Call::Terminate) {
            leave();
            return false;
        }
        outcome = launch() ? restore(call) : Outcome::NotLoaded;
    }
    return true;
}

bool HostedLibrary::startedAgainToTune(Call call) {
    if (call != Call::Normal || watch_ == nullptr || steady_clock::now() - left_ < limits_.answer) {
        return false;
    }
    const auto next = decide(trouble(HostTrouble::Kind::Left), [] { return false; });
    return recover(next == HostWatch::Next::StartAgain ? Outcome::StartAgain : Outcome::GoWithout,
                   call);
}

void HostedLibrary::remember(const CallValues& values) {
    switch (values.call) {
        case Call::Init:
            opened_ = true;
            break;
        case Call::Terminate:
            opened_ = demo_ = false;
            running_.reset();
            break;
        case Call::DemoMode:
            demo_ = true;
            break;
        case Call::SetSintoMode:
            sintoMode_ = values;
            break;
        case Call::Normal:
        case Call::StartEspectro:
            running_ = values;
            break;
        case Call::Parar:
            running_.reset();
            break;
        case Call::ListenSet:
            loudness_ = values;
            break;
        default:
            break;
    }
}

std::int32_t HostedLibrary::call(CallValues& values) {
    const CallValues asked = values;
    bool done = process_ != nullptr || startedAgainToTune(values.call);
    while (done) {
        const Outcome outcome = attempt(values);
        if (outcome == Outcome::Done) break;
        values = asked;
        done = recover(outcome, values.call);
    }
    remember(asked);
    if (!done) values.result = withoutLibrary(values.call);
    return values.result;
}

}  // namespace hm16
