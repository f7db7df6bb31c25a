// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/look.h"
#include "core/window_look.h"
#include "performance/form15.h"

namespace hmonitor {

using display::Surface;

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

}  // namespace

void Form15::layOut() {
    width = kWidth;
    height = kHeight;
    caption = "Text Mode";
    place(Faceplate, {0, 0, kWidth, kHeight}).surface = Surface::Faceplate;
    place(SSPanel1, {0, 0, kWidth, look::kTitleStrip});
    SSPanel1.says = {"Mover la ventana", "Move the window"};
    place(SSPanel2, {240, 80, 1500, 320}, &SSPanel1).caption = "Text Mode";
    place(SSPanel22, {kWidth - 2400, 80, 2100, 320}, &SSPanel1);

    place(SSTab1, {look::kMargin, 560, kWidth - 2 * look::kMargin, 5560});
    SSTab1.says = {"Cifras del día", "Figures of the day"};
    SSTab1.tabIndex = 1;
    for (display::Panel* page : {&Page1, &Page2})
        place(*page, {look::kMargin + 60, kPageTop, kPageWidth, kPageHeight}).surface =
            Surface::Well;
    layOutFirstPage();
    layOutSecondPage();
    SSTab1.add("Modulation / Power", Page1);
    SSTab1.add("Performance Values", Page2);

    constexpr float kKeyTop = 6270;
    place(SSCommand2, {kWidth - 3960, kKeyTop, 1700, look::kKeyHeight}).caption = "Print";
    SSCommand2.says = {"Imprimir el informe", "Print the report"};
    SSCommand2.tabIndex = 8;
    place(SSCommand1, {kWidth - 2060, kKeyTop, 1700, look::kKeyHeight}).caption = "Done";
    SSCommand1.says = {"Volver a los gráficos", "Back to the charts"};
    SSCommand1.isDefault = true;
    SSCommand1.isCancel = true;
    SSCommand1.tabIndex = 9;
}

void Form15::layOutList(std::size_t list, const display::Box& box, display::Panel& page) {
    static constexpr display::Words kSays[] = {
        {"Modulación por hora", "Modulation by the hour"},
        {"Potencia por hora", "Power by the hour"},
        {"Niveles izquierdo y derecho por hora", "Left and right level by the hour"},
        {"Fase estéreo por hora", "Stereo phase by the hour"},
        {"Picos de sobremodulación por hora", "Overmodulation peaks by the hour"},
        {"Silencios y fase invertida por hora", "Silences and inverted phase by the hour"},
    };
    place(List[list], box, &page).fixedPitch = true;
    List[list].says = kSays[list];
    List[list].tabIndex = 2 + static_cast<int>(list);
}

void Form15::layOutHead(display::Label& head, const char* words, float x, float y,
                        display::Panel& page) {
    // Each head is as wide as the column that it stands over.
    place(head, {x, y, 700, 170}, &page).caption = words;
    head.font = look::kCaption;
    head.colour = look::kCaptionColour;
}

void Form15::layOutFirstPage() {
    constexpr const char* kTitles[] = {"Modulation", "Power"};
    for (std::size_t i = 0; i < 2; ++i) {
        const float edge = 160 + 4600 * static_cast<float>(i);
        place(Title[i], {edge, 100, 3000, 220}, &Page1).caption = kTitles[i];
        Title[i].font = display::Font{150, display::Weight::Bold};
        Title[i].colour = look::kScaleColour;
        layOutHead(Time[i], "Time", columnOf(edge, 0), 420, Page1);
        layOutHead(Value[i], " Value", columnOf(edge, 14), 420, Page1);
        layOutList(i, {edge, kListTop, 4440, kListHeight}, Page1);
    }
}

void Form15::layOutSecondPage() {
    struct Column {
        float left, width;
    };
    constexpr Column kColumns[] = {{60, 2660}, {2780, 1980}, {4820, 1980}, {6860, 2440}};
    struct Word {
        const char* text;
        int column;
        float left, top;
    };
    // `Label2` to `Label8` in their order.
    constexpr Word kWords[] = {
        {"Left and ", 0, 0, 40},    {" Right", 0, 600, 40},       {"level", 0, 0, 210},
        {"Stereo phase", 1, 0, 40}, {"Overmod PK/Min", 2, 0, 40}, {"Silence", 3, 0, 40},
        {"Reverse", 3, 0, 210},
    };
    for (std::size_t i = 0; i < Label.size(); ++i) {
        const Word& word = kWords[i];
        place(Label[i], {kColumns[word.column].left + 60 + word.left, word.top, 1500, 170}, &Page2)
            .caption = word.text;
        Label[i].font = display::Font{120, display::Weight::Bold};
        Label[i].colour = look::kScaleColour;
    }
    struct Head {
        const char* text;
        int column, character;
    };
    constexpr Head kHeads[] = {{" Left", 0, 7}, {" Right", 0, 16}, {" Value", 1, 7},
                               {"Value", 2, 8}, {"Silence", 3, 8}, {" Reverse", 3, 16}};
    for (int i = 0; i < 4; ++i) {
        const auto at = static_cast<std::size_t>(i);
        layOutHead(Time[2 + at], "Time", columnOf(kColumns[at].left, 0), 420, Page2);
        layOutList(2 + at, {kColumns[at].left, kListTop, kColumns[at].width, kListHeight}, Page2);
    }
    for (std::size_t i = 0; i < std::size(kHeads); ++i) {
        const Head& head = kHeads[i];
        layOutHead(Value[2 + i], head.text,
                   columnOf(kColumns[static_cast<std::size_t>(head.column)].left, head.character),
                   420, Page2);
    }
}

}  // namespace hmonitor
