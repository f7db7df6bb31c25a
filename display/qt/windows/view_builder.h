// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <memory>

#include "display/controls/buttons.h"
#include "display/controls/containers.h"
#include "display/controls/control_visitor.h"
#include "display/controls/labels.h"
#include "display/controls/lists.h"
#include "display/controls/pictures.h"
#include "display/controls/scroll_bar.h"
#include "display/controls/shapes.h"
#include "display/controls/text_field.h"
#include "display/qt/painting/painted.h"
#include "display/qt/widgets/control_widget.h"

namespace display::qt {

/// Creates the screen's side of one control: something painted on the form's surface, a widget of
/// its own, or both (a picture key is painted, and its input goes through a widget that paints only
/// the focus ring).
class ViewBuilder final : public ControlVisitor {
 public:
    ViewBuilder(QtDesktop& desktop, QWidget& parent) : desktop_(desktop), parent_(parent) {}

    std::unique_ptr<Painted> painted;
    ControlWidget* widget = nullptr;  ///< owned by the parent

    void visit(Label& label) override;
    void visit(Line& line) override;
    void visit(Shape& shape) override;
    void visit(Picture& picture) override;
    void visit(Panel& panel) override;
    void visit(PictureBox& box) override;
    void visit(Key& key) override;
    void visit(TextField& field) override;
    void visit(CheckBox& box) override;
    void visit(Option& option) override;
    void visit(ComboBox& box) override;
    void visit(ListBox& box) override;
    void visit(ScrollBar& bar) override;
    void visit(Tabs& tabs) override;
    void visit(Chart& chart) override;
    void visit(PagePreview& preview) override;
    void visit(Plot& plot) override;

 private:
    QtDesktop& desktop_;
    QWidget& parent_;
};

}  // namespace display::qt
