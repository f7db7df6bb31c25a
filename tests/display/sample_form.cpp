// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/display/sample_form.h"

#include <algorithm>

namespace display::test {

using namespace std::chrono_literals;

SampleForm::SampleForm(Desktop& desktop, std::string name) : Form(desktop, std::move(name)) {
    bind();
}

bool SampleForm::didHear(std::string_view line) const {
    return std::ranges::find(heard, line) != heard.end();
}

Event SampleForm::says(std::string line) {
    return [this, line = std::move(line)] { heard.push_back(line); };
}

void SampleForm::closeRequested() {
    heard.emplace_back("close");
    if (!staysOpen) hide();
}

void SampleForm::bind() {
    KeyN.onPress = [this] {
        heard.emplace_back("KeyN press");
        KeyN.picture = "PeakA";
    };
    KeyN.onRelease = [this] {
        heard.emplace_back("KeyN release");
        KeyN.picture = "PeakN";
    };
    KeyN.onCancel = [this] {
        heard.emplace_back("KeyN cancel");
        KeyN.picture = "PeakN";
    };
    KeyN.onClick = says("KeyN click");
    Handle1.onMouseDown = [this](const Mouse&) { heard.emplace_back("Handle1 down"); };
    Handle1.onMouseMove = [this](const Mouse&) { heard.emplace_back("Handle1 move"); };
    Handle1.onMouseUp = [this](const Mouse&) { heard.emplace_back("Handle1 up"); };
    Handle1.onDoubleClick = says("Handle1 double click");
    PictureBox1.onDoubleClick = says("PictureBox1 double click");
    Key1.onClick = says("Key1 click");
    KeyDefault.onClick = says("KeyDefault click");
    KeyCancel.onClick = says("KeyCancel click");
    Text1.onChange = says("Text1 change");
    Check1.onClick = says("Check1 click");
    Option1.onClick = says("Option1 click");
    Option2.onClick = says("Option2 click");
    OptionApart.onClick = says("OptionApart click");
    Combo1.onClick = says("Combo1 click");
    List1.onClick = says("List1 click");
    List1.onDoubleClick = says("List1 double click");
    HScroll1.onChange = says("HScroll1 change");
    HScroll1.onScroll = says("HScroll1 scroll");
    Tabs1.onClick = says("Tabs1 click");
    KeyPage2.onClick = says("KeyPage2 click");
    Timer1.onTick = says("Timer1 tick");
    Timer2.onTick = says("Timer2 tick");
}

void SampleForm::layOut() {
    caption = "Sample";
    left = 600.f;
    top = 300.f;
    width = 9000.f;
    height = 6000.f;
    layOutPanels();
    layOutPainted();
    layOutKeys();
    layOutFields();
    layOutTabs();
    Timer1.interval = 100ms;
    Timer2.interval = 300ms;
}

void SampleForm::layOutPanels() {
    place(Panel1, {0, 0, 9000, 2400}, Surface::Faceplate);
    place(Handle1, {0, 0, 9000, 240}, &Panel1);
    place(Panel2, {150, 300, 4500, 1500}, &Panel1, Surface::Well).unit = 15.f;
}

void SampleForm::layOutPainted() {
    place(Label1, {10, 5, 150, 16}, &Panel2, TextStyle{{180, Weight::Bold}}, "Carrier deviation");
    place(LabelValue, {180, 5, 100, 16}, &Panel2, TextStyle{{}, kGreen, Align::Right}, "75.0",
          Readout{"Desviacion de portadora", "Carrier deviation"});
    place(Line1, 10, 30, 290, 30, &Panel2, LineStyle{kRed});
    for (std::size_t i = 0; i < LineBar.size(); ++i) {
        const float x = 10 + 20 * static_cast<float>(i);
        place(LineBar[i], x, 40, x, 80, &Panel2, LineStyle{kWhite, 4});
    }
    place(Shape1, {100, 40, 40, 40}, &Panel2, Fill{kCyan});
    place(Lamp1, {160, 40, 40, 40}, &Panel2, "multyoff");
    place(PictureBox1, {4800, 300, 1800, 1500}, &Panel1, Says{"Espectro", "Spectrum"})
        .drawing.scale(15, 2);
    place(Chart1, {6750, 300, 2100, 1500}, &Panel1);
    Chart1.rowCount(4);
    Chart1.columnCount(1);
    place(Plot1, {6300, 4400, 2500, 1500}, Says{"Historia", "History"});
}

void SampleForm::layOutKeys() {
    place(KeyN, {150, 1890, 900, 420}, &Panel1, "PeakN", Says{"Pico", "Peak"},
          Tip{"Muestra el pico", "Shows the peak"});
    place(Key1, {1200, 1890, 1200, 420}, &Panel1, "&Scan", Says{"Barrido", "Scan"});
    place(KeyDefault, {2550, 1890, 1200, 420}, &Panel1, "OK", Says{"Aceptar", "OK"}, Role::Default);
    place(KeyCancel, {3900, 1890, 1200, 420}, &Panel1, "Exit", Says{"Salir", "Exit"}, Role::Cancel);
}

void SampleForm::layOutFields() {
    place(Text1, {150, 2550, 1800, 330}, Says{"Nombre", "Name"}).text = "Radio";
    place(Check1, {2100, 2550, 1500, 330}, "Stereo", Says{"Estereo", "Stereo"});
    place(Group1, {3750, 2550, 2400, 900}, Surface::Plate);
    place(Option1, {90, 60, 2100, 330}, &Group1, "50 us",
          Says{"50 microsegundos", "50 microseconds"})
        .chosen = true;
    place(Option2, {90, 450, 2100, 330}, &Group1, "75 us",
          Says{"75 microsegundos", "75 microseconds"});
    place(OptionApart, {6300, 2550, 2400, 330}, "Mono", Says{"Mono", "Mono"}).chosen = true;
    place(Combo1, {150, 3000, 1800, 330}, Says{"Modo", "Mode"});
    for (const char* row : {"Peak", "Average", "RMS"}) Combo1.list.add(row);
    Combo1.select(0);
    place(List1, {2100, 3000, 1500, 900}, Says{"Sesiones", "Sessions"});
    for (const char* row : {"Monday", "Tuesday"}) List1.list.add(row);
    place(HScroll1, {150, 4050, 6000, 300}, Says{"Frecuencia", "Frequency"}).range(0, 205, 10);
    HScroll1.value = 110;
}

void SampleForm::layOutTabs() {
    place(Tabs1, {150, 4500, 6000, 1350}, Says{"Paginas", "Pages"});
    place(Page1, {210, 4920, 5880, 900});
    place(Page2, {210, 4920, 5880, 900});
    place(LabelPage1, {60, 60, 3000, 240}, &Page1, "First page");
    place(KeyPage2, {60, 60, 1200, 420}, &Page2, "Go", Says{"Ir", "Go"});
    Tabs1.add("One", Page1);
    Tabs1.add("Two", Page2);
    tabOrder(KeyN, Key1, KeyDefault, KeyCancel, Text1, Check1, Option1, Option2, HScroll1, Tabs1);
}

}  // namespace display::test
