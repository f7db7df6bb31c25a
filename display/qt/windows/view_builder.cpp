// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/windows/view_builder.h"

#include "display/qt/widgets/chart_view.h"
#include "display/qt/widgets/key_widgets.h"
#include "display/qt/widgets/list_widgets.h"
#include "display/qt/widgets/page_preview_widget.h"
#include "display/qt/widgets/picture_box_widget.h"
#include "display/qt/widgets/plot_widget.h"
#include "display/qt/widgets/scroll_bar_widget.h"
#include "display/qt/widgets/text_field_widget.h"
#include "display/qt/windows/qt_desktop.h"

namespace display::qt {

void ViewBuilder::visit(Label& label) {
    painted = paintedLabel(label);
}
void ViewBuilder::visit(Line& line) {
    painted = paintedLine(line);
}
void ViewBuilder::visit(Shape& shape) {
    painted = paintedShape(shape);
}
void ViewBuilder::visit(Panel& panel) {
    painted = paintedPanel(panel);
}

void ViewBuilder::visit(Picture& picture) {
    painted = paintedPicture(picture);
    if (picture.interactive()) widget = new PictureKeyWidget(desktop_, picture, &parent_);
}

void ViewBuilder::visit(PictureBox& box) {
    painted = paintedDrawing(box);
    if (box.interactive() || box.numbers) widget = new PictureBoxWidget(desktop_, box, &parent_);
}

void ViewBuilder::visit(Key& key) {
    widget = new KeyWidget(desktop_, key, &parent_);
}
void ViewBuilder::visit(TextField& field) {
    widget = new TextFieldWidget(desktop_, field, &parent_);
}
void ViewBuilder::visit(CheckBox& box) {
    widget = new CheckBoxWidget(desktop_, box, &parent_);
}
void ViewBuilder::visit(Option& option) {
    widget = new OptionWidget(desktop_, option, &parent_);
}
void ViewBuilder::visit(ComboBox& box) {
    widget = new ComboBoxWidget(desktop_, box, &parent_);
}
void ViewBuilder::visit(ListBox& box) {
    widget = new ListBoxWidget(desktop_, box, &parent_);
}
void ViewBuilder::visit(ScrollBar& bar) {
    widget = new ScrollBarWidget(desktop_, bar, &parent_);
}
void ViewBuilder::visit(Tabs& tabs) {
    widget = new TabsWidget(desktop_, tabs, &parent_);
}
void ViewBuilder::visit(Chart& chart) {
    widget = new ChartView(desktop_.hand(), chart, &parent_);
}

void ViewBuilder::visit(PagePreview& preview) {
    widget = new PagePreviewWidget(desktop_, preview, &parent_);
}

void ViewBuilder::visit(Plot& plot) {
    widget = new PlotWidget(desktop_, plot, &parent_);
}

}  // namespace display::qt
