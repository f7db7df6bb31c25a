// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>
#include <QString>
#include <QWidget>

#include "display/controls/text_field.h"
#include "display/qt/widgets/control_widget.h"

namespace display::qt {

/// One line of text. Every edit in the QLineEdit (typing, pasting, cutting, composing) is sent to
/// the model as a replacement of characters, each through the field's filter; then the line shows
/// the text of the model.
class TextFieldWidget final : public QLineEdit, public ControlWidget {
 public:
    TextFieldWidget(QtDesktop& desktop, TextField& field, QWidget* parent);
    QWidget& widget() override { return *this; }
    void sync() override;

 protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

 private:
    void edited(const QString& text);
    void showModel();

    QtDesktop& desktop_;
    TextField& field_;
    QString shown_;
    int selections_ = 0;
};

}  // namespace display::qt
