// SPDX-License-Identifier: GPL-3.0-or-later
// The window HISTORY from the key to the drawn window, on the real desktop: a day, a year of hours,
// ten years; with the files in the system's memory, and with them thrown out of it before. Ten
// years hold a recorded day at their end, hours and days before it, and five events a day.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <cmath>

#include "history/query.h"
#include "tests/display/qt/live_rack.h"
#include "tests/history/feed.h"
#include "trends/form_history.h"

namespace {

using namespace hmonitor;
using namespace hmonitor::test;
using history::test::Feed;
using history::test::indexOf;

constexpr std::int64_t kDay = 86400;
constexpr std::int64_t kHours = 3600;
constexpr int kTenYears = 3650;

history::Span anySpan(std::int64_t t, std::int64_t step) {
    history::Span span;
    span.t = t;
    span.seconds = step;
    span.station = history::test::kStation;
    for (std::size_t i = 0; i < history::figureCount(); ++i) {
        history::SpanValue& value = span.figures[i];
        value.knownMs = static_cast<std::uint32_t>(step * 990);
        value.causes[4] = static_cast<std::uint32_t>(step * 10);
        value.mean = static_cast<float>(20 + 5 * std::sin(static_cast<double>(t) / 70000));
        value.lowest = value.percentile1 = value.mean - 6;
        value.highest = value.percentile99 = value.mean + 6;
    }
    return span;
}

void recordTenYears(const std::filesystem::path& folder, std::int64_t end) {
    {
        Feed feed(folder, end - kDay);
        feed.tune();
        feed.run(kDay - 5, 60);
        feed.stop();
    }
    history::IndexFile index(folder / history::kIndexName, history::Flush::Off, nullptr);
    std::vector<history::IndexFile::StepSpan> spans;
    std::vector<history::Event> events;
    const std::int64_t begin = (end - kDay) / kDay * kDay;
    for (std::int64_t day = kTenYears; day >= 1; --day) {
        const std::int64_t t = begin - day * kDay;
        spans.push_back({history::kDayStep, anySpan(t, kDay)});
        for (std::int64_t hour = 0; hour < 24; ++hour) {
            spans.push_back({history::kHour, anySpan(t + hour * kHours, kHours)});
        }
        for (int i = 0; i < 5; ++i) {
            events.push_back({t + i * 17000, history::test::kStation, history::EventKind::Tuned,
                              "detector 0, mode 0"});
        }
    }
    index.keep(spans, events);
}

/// Out of the system's memory, as after a night.
void throwOutOfMemory(const std::filesystem::path& folder) {
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const int file = ::open(entry.path().c_str(), O_RDONLY);
        if (file < 0) continue;
        ::fdatasync(file);
        ::posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED);
        ::close(file);
    }
}

/// Notes the paint that shows the curves which were asked for last.
class Drawn final : public QObject {
 public:
    explicit Drawn(Form_History& form) : form_(form) { qApp->installEventFilter(this); }
    ~Drawn() override { qApp->removeEventFilter(this); }
    bool is = false;

 protected:
    bool eventFilter(QObject* of, QEvent* event) override {
        is = is || (event->type() == QEvent::Paint && of->isWidgetType() && hasCurves());
        return false;
    }

 private:
    /// As many columns as the shown time has, and not those of the time before.
    bool hasCurves() const {
        const auto& series = form_.Plot_Figure[0].series();
        if (!form_.visible || series.empty()) return false;
        const auto axis = form_.Plot_Figure[0].x.get();
        const double columns = (axis.highest - axis.lowest) / series[0].each;
        return columns > 700 && columns < 2100 && series[0].points.size() > 700;
    }
    Form_History& form_;
};

class Window {
 public:
    Window() {
        recordTenYears(rack_.folder() / "history", history::Moment::now().utcMs / 1000);
        if (!rack_.measures()) std::abort();
        form().open();
        untilDrawn([] {});
    }
    Form_History& form() { return rack_.forms().formHistory; }
    void throwOut() { throwOutOfMemory(rack_.folder() / "history"); }

    void untilDrawn(const std::function<void()>& act) {
        Drawn drawn(form());
        act();
        while (!drawn.is) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QApplication::processEvents();
    }
    void look(std::int64_t seconds) {
        display::Plot& plot = form().Plot_Figure[0];
        const double now = static_cast<double>(history::Moment::now().utcMs);
        plot.x = display::PlotAxis{display::AxisKind::Moments,
                                   now - static_cast<double>(seconds) * 1000, now};
        plot.onLook();
    }

 private:
    LiveRack rack_{"en_US.UTF-8"};
};

Window& window() {
    static Window one;
    return one;
}

void toTheDrawnWindow(benchmark::State& state, const std::function<void()>& before,
                      const std::function<void()>& act) {
    for (auto _ : state) {
        state.PauseTiming();
        window().untilDrawn(before);
        if (state.range(0) != 0) window().throwOut();
        state.ResumeTiming();
        window().untilDrawn(act);
    }
}

void OpenedOnADay(benchmark::State& state) {
    toTheDrawnWindow(
        state, [] { window().look(kHours); },
        [] {
            window().form().unload();
            window().form().open();
        });
}
void AYearOfHours(benchmark::State& state) {
    toTheDrawnWindow(
        state, [] { window().look(kDay); }, [] { window().look(365 * kDay); });
}
void TenYears(benchmark::State& state) {
    toTheDrawnWindow(
        state, [] { window().look(kDay); }, [] { window().look(kTenYears * kDay); });
}

void warmAndCold(benchmark::internal::Benchmark* one) {
    one->ArgName("cold")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->Iterations(20);
    one->UseRealTime();
}
BENCHMARK(OpenedOnADay)->Apply(warmAndCold);
BENCHMARK(AYearOfHours)->Apply(warmAndCold);
BENCHMARK(TenYears)->Apply(warmAndCold);

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
