// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPainter>
#include <optional>

#include <QStringList>
#include <QWidget>

#include "display/reading_marks.h"

class QFocusEvent;
class QKeyEvent;

namespace display::qt {

/// The marks over a drawing, with a plate that tells their numbers. It lies over the drawing's
/// widget, which hands it pointer and keys; nothing of it is part of the drawing, of its picture or
/// of its print. The same words are the widget's accessible description.
class ReadingLayer final : public QWidget {
 public:
    ReadingLayer(Control& drawing, QWidget* over);

    /// The pointer is there, in pixels of the widget below.
    void point(QPointF px);
    void leave();
    /// The keyboard has come by Tab: the mark begins at that place, or at the first number.
    void begin(const std::optional<Place>& at);
    /// The second mark, by the pointer.
    void fix();
    /// Arrow keys, Page Up and Down, Home and End move the mark, Space fixes the second one. False
    /// if the key was not for the marks.
    bool key(const QKeyEvent& event);

    bool any() { return marks_.any(); }
    std::optional<std::size_t> row() { return marks_.row(); }
    /// The drawing or its place on the screen has changed.
    void sync();

 protected:
    bool eventFilter(QObject* below, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

 private:
    void moved();
    void paintMark(QPainter& painter, Place at, Qt::PenStyle style) const;
    void paintPlate(QPainter& painter, Place at);
    /// What else can be done, below the numbers.
    QStringList hints();
    QPointF pixels(Place at) const { return {at.x * scale(), at.y * scale()}; }
    /// Logical pixels for a unit of the drawing's box.
    double scale() const;
    /// What is seen of a drawing that is larger than its window.
    QRect seen() const;

    Control& drawing_;
    QWidget& below_;
    ReadingMarks marks_;
    bool byKeys_ = false;  ///< the mark was moved by the keyboard last
};

/// Whether the focus came by Tab, and not by a click or with a window.
bool cameByTab(const QFocusEvent& event);

}  // namespace display::qt
