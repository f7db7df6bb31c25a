// SPDX-License-Identifier: GPL-3.0-or-later
#include "performance/form15.h"
#include "program/look.h"
#include "program/page_file.h"

namespace hmonitor {

using namespace display;

namespace {

constexpr float kWidth = 10200;
constexpr float kHeight = 6900;
constexpr float kPageWidth = kWidth - 2 * look::kMargin - 120;
constexpr float kPageTop = 1040;
constexpr float kPageHeight = 5000;

// A list's letters are 0.65 of 125 twips wide; its text begins a little behind its edge.
constexpr float kLetter = 81.25f;
constexpr float kListEdge = 60;
constexpr float columnOf(float listLeft, int character) {
    return listLeft + kListEdge + kLetter * static_cast<float>(character);
}

constexpr float kListTop = 640;
constexpr float kListHeight = kPageHeight - kListTop - 100;

/// Each head is as wide as the column that it stands over.
constexpr Box headAt(float listLeft, int character) {
    return {columnOf(listLeft, character), 420, 700, 170};
}
constexpr TextStyle kTitle{{150, Weight::Bold}, look::kScaleColour};
constexpr TextStyle kWord{{120, Weight::Bold}, look::kScaleColour};

constexpr Box listAt(float left, float width) {
    return {left, kListTop, width, kListHeight};
}

}  // namespace

void Form15::layOut() {
    layWindow(kWidth, kHeight, "Text Mode", Faceplate);
    layStrip(SSPanel1);
    place(SSPanel2, {240, 80, 1500, 320}, &SSPanel1, "Text Mode");
    place(SSPanel22, {kWidth - 2400, 80, 2100, 320}, &SSPanel1);
    place(Station, {kWidth - 5900, 140, 3300, 240}, &SSPanel1, look::kTitleText.in(kCyan).right());

    place(SSTab1, {look::kMargin, 560, kWidth - 2 * look::kMargin, 5560},
          Says{"Cifras del día", "Figures of the day"});
    for (Panel* page : {&Page1, &Page2}) {
        place(*page, {look::kMargin + 60, kPageTop, kPageWidth, kPageHeight}, Surface::Well);
    }
    layOutFirstPage();
    layOutSecondPage();
    SSTab1.add("Modulation / Power", Page1);
    SSTab1.add("Performance Values", Page2);
    for (ListBox& list : List) list.fixedPitch = true;

    constexpr float kKeyTop = 6270;
    place(SSCommand2, {kWidth - 3960, kKeyTop, 1700, look::kKeyHeight}, "Print",
          Says{"Imprimir el informe", "Print the report"});
    place(SSCommand1, {kWidth - 2060, kKeyTop, 1700, look::kKeyHeight}, "Done", Role::Default,
          Role::Cancel, Says{"Volver a los gráficos", "Back to the charts"});
    likePdfKey(place(KeyPdf, {kWidth - 4720, kKeyTop, 660, look::kKeyHeight}));
    tabOrder(SSTab1, List, SSCommand2, SSCommand1, KeyPdf);
}

void Form15::layOutFirstPage() {
    auto list = [this, i = 0](float edge, const char* title, const Words& says) mutable {
        place(Title[i], {edge, 100, 3000, 220}, &Page1, kTitle, title);
        place(Time[i], headAt(edge, 0), &Page1, look::kCaptionText, "Time");
        place(Value[i], headAt(edge, 14), &Page1, look::kCaptionText, " Value");
        place(List[i++], listAt(edge, 4440), &Page1, Says{says});
    };
    list(160, "Modulation", {"Modulación por hora", "Modulation by the hour"});
    list(4760, "Power", {"Potencia por hora", "Power by the hour"});
}

void Form15::layOutSecondPage() {
    constexpr float kLevels = 60, kPhase = 2780, kPeaks = 4820, kSilence = 6860;
    auto list = [this, i = 2](float edge, float wide, const Words& says) mutable {
        place(Time[i], headAt(edge, 0), &Page2, look::kCaptionText, "Time");
        place(List[i++], listAt(edge, wide), &Page2, Says{says});
    };
    list(kLevels, 2660,
         {"Niveles izquierdo y derecho por hora", "Left and right level by the hour"});
    list(kPhase, 1980, {"Fase estéreo por hora", "Stereo phase by the hour"});
    list(kPeaks, 1980, {"Picos de sobremodulación por hora", "Overmodulation peaks by the hour"});
    list(kSilence, 2440,
         {"Silencios y fase invertida por hora", "Silences and inverted phase by the hour"});

    auto word = [this, i = 0](float edge, float down, const char* text) mutable {
        place(Label[i++], {edge + 60, down, 1500, 170}, &Page2, kWord, text);
    };
    word(kLevels, 40, "Left and ");
    word(kLevels + 600, 40, " Right");
    word(kLevels, 210, "level");
    word(kPhase, 40, "Stereo phase");
    word(kPeaks, 40, "Overmod PK/Min");
    word(kSilence, 40, "Silence");
    word(kSilence, 210, "Reverse");

    auto head = [this, i = 2](float edge, int character, const char* text) mutable {
        place(Value[i++], headAt(edge, character), &Page2, look::kCaptionText, text);
    };
    head(kLevels, 7, " Left");
    head(kLevels, 16, " Right");
    head(kPhase, 7, " Value");
    head(kPeaks, 8, "Value");
    head(kSilence, 8, "Silence");
    head(kSilence, 16, " Reverse");
}

}  // namespace hmonitor
