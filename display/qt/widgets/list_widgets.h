// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QComboBox>
#include <QListWidget>
#include <QTabBar>
#include <QWidget>
#include <optional>

#include "display/controls/containers.h"
#include "display/controls/lists.h"
#include "display/qt/widgets/control_widget.h"

namespace display::qt {

class ComboBoxWidget final : public QComboBox, public ControlWidget {
 public:
    ComboBoxWidget(QtDesktop& desktop, ComboBox& box, QWidget* parent);
    QWidget& widget() override { return *this; }
    void sync() override;

 protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* list, QEvent* event) override;

 private:
    QtDesktop& desktop_;
    ComboBox& box_;
    std::optional<quint64> choseAt_;  ///< the timestamp of the Enter that chose from the open list
};

class ListBoxWidget final : public QListWidget, public ControlWidget {
 public:
    ListBoxWidget(QtDesktop& desktop, ListBox& box, QWidget* parent);
    QWidget& widget() override { return *this; }
    void sync() override;

 protected:
    void keyPressEvent(QKeyEvent* event) override;

 private:
    QtDesktop& desktop_;
    ListBox& box_;
    bool syncing_ = false;
};

/// The row of tabs. The pages are panels, which the form's surface paints below it.
class TabsWidget final : public QTabBar, public ControlWidget {
 public:
    TabsWidget(QtDesktop& desktop, Tabs& tabs, QWidget* parent);
    QWidget& widget() override { return *this; }
    void sync() override;
    QRect within(const QRect& box) const override;

 private:
    QtDesktop& desktop_;
    Tabs& tabs_;
    bool syncing_ = false;
};

}  // namespace display::qt
