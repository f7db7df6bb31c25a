// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/widgets/list_widgets.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QString>
#include <QWidget>
#include <algorithm>
#include <string>
#include <utility>

#include "display/controls/lists.h"
#include "display/qt/painting/fonts.h"
#include "display/qt/widgets/key_widgets.h"
#include "display/qt/widgets/view_scale.h"
#include "display/qt/windows/qt_desktop.h"

namespace display::qt {

namespace {

QStringList rowsOf(const ListModel& list) {
    QStringList rows;
    for (const std::string& row : list.rows()) rows << QString::fromStdString(row);
    return rows;
}

bool leavesToForm(const QKeyEvent& event) {
    return event.key() == Qt::Key_Escape || event.key() == Qt::Key_F1;
}

bool isEnter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

}  // namespace

ComboBoxWidget::ComboBoxWidget(QtDesktop& desktop, ComboBox& box, QWidget* parent)
    : QComboBox(parent), desktop_(desktop), box_(box) {
    connect(this, &QComboBox::activated, this,
            [this](int row) { desktop_.hand().select(box_, row); });
    view()->installEventFilter(this);
}

void ComboBoxWidget::sync() {
    setFocusPolicy(focusPolicyOf(box_, Qt::ClickFocus));
    setFont(Fonts::get().font(viewScale(*this, desktop_).px(125), Weight::Normal));
    const QStringList rows = rowsOf(box_.list);
    QStringList shown;
    for (int i = 0; i < count(); ++i) shown << itemText(i);
    if (rows != shown) {
        clear();
        addItems(rows);
    }
    setCurrentIndex(box_.list.selected());
    // Qt tells the chosen row as the name of a combo box, and no more.
    if (accessibleDescription() != accessibleName()) setAccessibleDescription(accessibleName());
}

void ComboBoxWidget::keyPressEvent(QKeyEvent* event) {
    if (isEnter(*event) && std::exchange(choseAt_, std::nullopt) == event->timestamp()) return;
    if (leavesToForm(*event) || isEnter(*event)) {
        event->ignore();
    } else {
        QComboBox::keyPressEvent(event);
    }
}

/// The open list chooses by the announcement of Enter and is gone when the key itself comes. That
/// one arrives here where the list could not grab the keyboard, and must not press the form's own
/// key.
bool ComboBoxWidget::eventFilter(QObject* list, QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && view()->isVisible()) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        if (isEnter(key)) choseAt_ = key.timestamp();
    }
    return QComboBox::eventFilter(list, event);
}

void ComboBoxWidget::paintEvent(QPaintEvent* event) {
    QComboBox::paintEvent(event);
    if (!hasFocus() || !desktop_.keyboardUsed()) return;
    QPainter painter(this);
    paintFocusRing(painter, rect());
}

ListBoxWidget::ListBoxWidget(QtDesktop& desktop, ListBox& box, QWidget* parent)
    : QListWidget(parent), desktop_(desktop), box_(box) {
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    connect(this, &QListWidget::currentRowChanged, this, [this](int row) {
        if (!syncing_) desktop_.hand().select(box_, row);
    });
    connect(this, &QListWidget::itemDoubleClicked, this,
            [this] { desktop_.hand().doubleClick(box_); });
}

void ListBoxWidget::sync() {
    syncing_ = true;
    setFocusPolicy(focusPolicyOf(box_, Qt::ClickFocus));
    const qreal height = viewScale(*this, desktop_).px(125);
    setFont(box_.fixedPitch ? Fonts::get().fixedFont(height)
                            : Fonts::get().font(height, Weight::Normal));
    const QStringList rows = rowsOf(box_.list);
    QStringList shown;
    for (int i = 0; i < count(); ++i) shown << item(i)->text();
    if (rows != shown) {
        clear();
        addItems(rows);
    }
    setCurrentRow(box_.list.selected());
    // At once, so that no frame shows the new rows at the old place.
    executeDelayedItemsLayout();
    if (currentItem()) scrollToItem(currentItem());
    syncing_ = false;
}

void ListBoxWidget::keyPressEvent(QKeyEvent* event) {
    if (leavesToForm(*event)) {
        event->ignore();
    } else if (isEnter(*event)) {
        if (box_.onDoubleClick) {
            desktop_.hand().doubleClick(box_);
        } else {
            event->ignore();
        }
    } else {
        QListWidget::keyPressEvent(event);
    }
}

TabsWidget::TabsWidget(QtDesktop& desktop, Tabs& tabs, QWidget* parent)
    : QTabBar(parent), desktop_(desktop), tabs_(tabs) {
    setExpanding(true);
    setDrawBase(false);
    connect(this, &QTabBar::currentChanged, this, [this](int tab) {
        if (!syncing_) desktop_.hand().choose(tabs_, tab);
    });
}

void TabsWidget::sync() {
    syncing_ = true;
    setFocusPolicy(focusPolicyOf(tabs_, Qt::ClickFocus));
    setFont(Fonts::get().font(viewScale(*this, desktop_).px(125), Weight::Normal));
    const auto& pages = tabs_.pages();
    while (count() > static_cast<int>(pages.size())) removeTab(count() - 1);
    for (int i = 0; i < static_cast<int>(pages.size()); ++i) {
        const QString caption = plainWords(pages[static_cast<std::size_t>(i)].caption);
        if (i >= count()) {
            addTab(caption);
        } else if (tabText(i) != caption) {
            setTabText(i, caption);
        }
    }
    setCurrentIndex(tabs_.current);
    syncing_ = false;
}

QRect TabsWidget::within(const QRect& box) const {
    const int strip = static_cast<int>(viewScale(*this, desktop_).px(340));
    return {box.left(), box.top(), box.width(), std::min(box.height(), strip)};
}

}  // namespace display::qt
