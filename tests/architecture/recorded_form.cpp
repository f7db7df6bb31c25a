// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/architecture/recorded_form.h"

#include <sstream>

#include "display/chart.h"
#include "display/controls/control_visitor.h"
#include "display/controls/lists.h"
#include "display/controls/plot.h"
#include "display/controls/scroll_bar.h"
#include "display/controls/text_field.h"
#include "display/page.h"

namespace hmonitor::test {

using namespace display;

namespace {

/// Calls the same function with each property of a control of any kind.
template <class Each>
class EachProperty final : public ControlVisitor {
 public:
    explicit EachProperty(Each each) : each_(each) {}

    void visit(Label& label) override { label.forEachProperty(each_); }
    void visit(Line& line) override { line.forEachProperty(each_); }
    void visit(Shape& shape) override { shape.forEachProperty(each_); }
    void visit(Picture& picture) override { picture.forEachProperty(each_); }
    void visit(Panel& panel) override { panel.forEachProperty(each_); }
    void visit(PictureBox& box) override { box.forEachProperty(each_); }
    void visit(Key& key) override { key.forEachProperty(each_); }
    void visit(TextField& field) override { field.forEachProperty(each_); }
    void visit(CheckBox& box) override { box.forEachProperty(each_); }
    void visit(Option& option) override { option.forEachProperty(each_); }
    void visit(ComboBox& box) override { box.forEachProperty(each_); }
    void visit(ListBox& box) override { box.forEachProperty(each_); }
    void visit(ScrollBar& bar) override { bar.forEachProperty(each_); }
    void visit(Tabs& tabs) override { tabs.forEachProperty(each_); }
    void visit(Chart& chart) override { chart.forEachProperty(each_); }
    void visit(PagePreview& preview) override { preview.forEachProperty(each_); }
    void visit(Plot& plot) override { plot.forEachProperty(each_); }

 private:
    Each each_;
};

template <class Each>
void forEveryProperty(Control& control, Each each) {
    control.forEachCommonProperty(each);
    EachProperty<Each> visitor(each);
    control.accept(visitor);
}

/// The value of a property, or of a plain member in a list of properties.
template <class Listed>
const auto& valueIn(const Listed& listed) {
    if constexpr (requires { listed.get(); }) {
        return listed.get();
    } else {
        return listed;
    }
}

struct Write {
    std::ostream& to;

    template <class Listed>
    void operator()(std::string_view name, const Listed& listed) const {
        to << ' ' << name << '=';
        write(valueIn(listed));
    }

    template <class Value>
    requires std::is_arithmetic_v<Value>
    void write(Value value) const { to << value; }
    template <class Value>
    requires std::is_enum_v<Value>
    void write(Value value) const { to << static_cast<int>(value); }
    template <class Owner, class Value>
    void write(const Firing<Owner, Value>& value) const {
        write(static_cast<Value>(value));
    }
    void write(std::string_view text) const { to << text; }
    void write(Colour colour) const { to << std::hex << colour.bgr << std::dec; }
    void write(const Font& font) const { to << font.size << (font.weight == Weight::Bold); }
    void write(const Words& words) const { to << words.spanish << '/' << words.english; }
    void write(const Panel* in) const { to << (in ? in->name() : "form"); }
    void write(const Drawing& drawing) const { to << drawing.unit() << ' ' << drawing.fontPoints; }
    void write(const Chart::Insets& room) const { to << room.left << ' ' << room.top; }
    void write(const Chart::Cell& cell) const { to << cell.row << ' ' << cell.column; }
    void write(const Plot::Insets& room) const { to << room.left << ' ' << room.top; }
    void write(const PlotAxis& axis) const { to << axis.lowest << ' ' << axis.highest; }
    void write(const Plot::Reach& reach) const { to << reach.earliest << ' ' << reach.latest; }
    void write(const ListModel& list) const {
        for (const std::string& row : list.rows()) to << row << ';';
        to << list.selected();
    }
    void write(const std::vector<Tabs::Page>& pages) const {
        for (const Tabs::Page& page : pages) to << page.caption << ';';
    }
};

struct Upset {
    void operator()(std::string_view, Property<float>& number) const { number = number + 7; }
    void operator()(std::string_view, Property<int>& number) const { number = number + 7; }
    void operator()(std::string_view, Property<bool>& on) const { on = !on; }
    void operator()(std::string_view, Property<Colour>& colour) const { colour = Colour{0x123456}; }
    void operator()(std::string_view, Property<PlotAxis>& axis) const {
        axis = PlotAxis{AxisKind::Log, 3, 77};
    }
    void operator()(std::string_view, Text& text) const { text = "upset"; }
    void operator()(std::string_view, bool& on) const { on = !on; }
    void operator()(std::string_view, Words& words) const { words = {"revuelto", "upset"}; }
    template <class Other>
    void operator()(std::string_view, Other&) const {}
};

}  // namespace

std::vector<std::string> recorded(const Form& form) {
    std::vector<std::string> lines;
    for (Control* control : form.controls()) {
        std::ostringstream line;
        line << control->name();
        forEveryProperty(*control, Write{line});
        lines.push_back(line.str());
    }
    return lines;
}

void upset(const Form& form) {
    for (Control* control : form.controls()) forEveryProperty(*control, Upset{});
}

}  // namespace hmonitor::test
