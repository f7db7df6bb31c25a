// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/widgets/text_field_widget.h"

#include <QString>
#include <QWidget>
#include <algorithm>
#include <string>

#include <QKeyEvent>
#include <QPainter>
#include <QPointer>

#include "display/controls/text_field.h"
#include "display/qt/painting/fonts.h"
#include "display/qt/painting/palette.h"
#include "display/qt/painting/surfaces.h"
#include "display/qt/widgets/key_widgets.h"
#include "display/qt/widgets/view_scale.h"
#include "display/qt/windows/qt_desktop.h"

namespace display::qt {

TextFieldWidget::TextFieldWidget(QtDesktop& desktop, TextField& field, QWidget* parent)
    : QLineEdit(parent), desktop_(desktop), field_(field) {
    connect(this, &QLineEdit::textEdited, this, &TextFieldWidget::edited);
}

void TextFieldWidget::sync() {
    setFocusPolicy(focusPolicyOf(field_, Qt::ClickFocus));
    setReadOnly(field_.locked);
    const display::Font& font = field_.font;
    const Scale& scale = viewScale(*this, desktop_);
    setFont(Fonts::get().font(scale.px(font.size), font.weight));
    setAlignment(field_.align == Align::Right    ? Qt::AlignRight
                 : field_.align == Align::Centre ? Qt::AlignHCenter
                                                 : Qt::AlignLeft);
    QPalette colours = palette();
    const bool onPaper = standsOnLight(field_);
    setFrame(!onPaper);
    colours.setColor(QPalette::Base, onPaper ? QColor(Qt::white) : housePalette().base().color());
    colours.setColor(QPalette::Active, QPalette::Text, qColour(field_.colour));
    colours.setColor(QPalette::Inactive, QPalette::Text, qColour(field_.colour));
    setPalette(colours);
    // The text keeps clear of the edge, as in readouts.
    const int margin = scale.whole(scale.px(50));
    setTextMargins(margin, 0, margin, 0);
    showModel();
    if (selections_ == field_.selections) return;
    selections_ = field_.selections;
    selectAll();
}

void TextFieldWidget::showModel() {
    const QString model = qText(field_.text.get());
    shown_ = model;
    if (text() == model) return;
    // The text after the caret stays after it.
    const auto behind = text().size() - cursorPosition();
    setText(model);
    setCursorPosition(static_cast<int>(std::max<qsizetype>(model.size() - behind, 0)));
}

void TextFieldWidget::edited(const QString& now) {
    // The part of the old text that was replaced, and the characters that replaced it.
    const qsizetype common = std::min(now.size(), shown_.size());
    qsizetype front = 0;
    while (front < common && now[front] == shown_[front]) ++front;
    qsizetype back = 0;
    while (back < common - front &&
           now[now.size() - 1 - back] == shown_[shown_.size() - 1 - back]) {
        ++back;
    }
    const auto characters = [](QStringView text) {
        return static_cast<std::size_t>(text.toUcs4().size());
    };
    const Span replaced{characters(QStringView(shown_).left(front)),
                        characters(QStringView(shown_).chopped(back))};
    const std::string typed = utf8(now.mid(front, now.size() - front - back));
    desktop_.hand().type(field_, typed, replaced);
    const QPointer<TextFieldWidget> alive(this);
    desktop_.runInputNow();
    if (alive) showModel();
}

bool TextFieldWidget::event(QEvent* event) {
    // Without a selection there is nothing to copy here: the window handles the keys.
    if (event->type() == QEvent::ShortcutOverride && !hasSelectedText() &&
        static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy))
        return false;
    return QLineEdit::event(event);
}

void TextFieldWidget::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        desktop_.hand().enter(field_);
    } else if (event->key() == Qt::Key_Escape) {
        event->ignore();
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

void TextFieldWidget::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);
    if (!hasFocus()) return;
    QPainter painter(this);
    paintFocusRing(painter, rect());
}

}  // namespace display::qt
