// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace display {

class Label;
class Line;
class Shape;
class Picture;
class Panel;
class PictureBox;
class Key;
class TextField;
class CheckBox;
class Option;
class ComboBox;
class ListBox;
class ScrollBar;
class Tabs;
class Chart;
class PagePreview;
class Plot;

/// The closed set of controls. A new kind does not compile until every display handles it.
class ControlVisitor {
 public:
    virtual ~ControlVisitor() = default;
    virtual void visit(Label&) = 0;
    virtual void visit(Line&) = 0;
    virtual void visit(Shape&) = 0;
    virtual void visit(Picture&) = 0;
    virtual void visit(Panel&) = 0;
    virtual void visit(PictureBox&) = 0;
    virtual void visit(Key&) = 0;
    virtual void visit(TextField&) = 0;
    virtual void visit(CheckBox&) = 0;
    virtual void visit(Option&) = 0;
    virtual void visit(ComboBox&) = 0;
    virtual void visit(ListBox&) = 0;
    virtual void visit(ScrollBar&) = 0;
    virtual void visit(Tabs&) = 0;
    virtual void visit(Chart&) = 0;
    virtual void visit(PagePreview&) = 0;
    virtual void visit(Plot&) = 0;
};

}  // namespace display
