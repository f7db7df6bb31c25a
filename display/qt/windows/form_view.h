// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHelpEvent>
#include <QPainter>
#include <QPixmap>
#include <QRegion>
#include <QString>
#include <QWidget>
#include <cstdint>
#include <memory>
#include <vector>

#include "display/form.h"
#include "display/qt/accessibility/accessible_labels.h"
#include "display/qt/painting/painted.h"
#include "display/qt/painting/scale.h"
#include "display/qt/widgets/control_widget.h"
#include "display/qt/widgets/field_columns.h"

namespace display::qt {

/// One form on the screen: a surface that paints the controls that only show something, and widgets
/// for those that the user can act on. Once a frame it checks the form and repaints what changed.
///
/// Controls that have not changed since the form was shown are kept in a background image; only
/// those that have changed at least once, and those above them, are painted each time.
class FormView final : public QWidget {
 public:
    FormView(QtDesktop& desktop, Form& form, QWidget* parent);
    ~FormView() override;

    Form& form() const { return form_; }

    /// True when the form changed since it was last drawn.
    bool stale() const { return form_.clock() > drawn_; }
    /// Reads what changed and requests a repaint of just that. Before the first call nothing is
    /// painted.
    void sync();

    /// Gives the focus to the first control of the Tab order that can take it.
    void focusFirst();

    /// The widgets in Tab order; empty before the first sync().
    const std::vector<QWidget*>& tabOrder() const { return tabOrder_; }

    /// The widget of a control of the form, or null.
    QWidget* widgetOf(const Control& control) const;
    const Scale& scale() const { return scale_; }
    /// The scale that the form should have now: the rack's, or the largest one at which the form
    /// fits the screen, where that is smaller.
    Scale wantedScale() const;
    /// Makes the form larger or smaller than that; 1 for as large.
    void zoom(qreal factor) { zoom_ = factor; }
    qreal zoom() const { return zoom_; }

    /// The tool tip of what is painted there, in the language of the form; empty for none.
    QString tipAt(QPoint px) const;

    /// The accessible painted labels; created when an assistive tool first asks.
    AccessibleLabels& accessible();

    /// The number of paint events, and the area requested at the last sync().
    int paints() const { return paints_; }
    const QRegion& lastDirty() const { return lastDirty_; }

 protected:
    void paintEvent(QPaintEvent* event) override;
    /// A hidden form needs no background image: it is rendered again at the next show.
    void hideEvent(QHideEvent*) override { background_ = QPixmap(); }
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* widget, QEvent* event) override;

 private:
    struct Item {
        Control* control = nullptr;
        std::unique_ptr<Painted> painted;
        ControlWidget* widget = nullptr;
        qreal down = 0;      ///< how far it is moved to stay beside its field
        QRectF clip;         ///< of its containers; null when nothing is clipped
        QRect reach;         ///< its bounds on the surface, in whole pixels
        bool shown = false;  ///< painted and visible
        bool live = false;   ///< painted each time; not in the background
    };

    void build();
    void takeDrawingKeys();
    void askHelp();
    const Control* focused() const;
    void orderTabs();
    void refresh(Item& item, std::vector<QRect>& dirty);
    void refreshWidget(Item& item);
    void alignColumns();
    void measure(Item& item);
    void makeLive(std::size_t index);
    void makeLiveAbove(std::size_t index, const QRect& where);
    void paintItem(QPainter& painter, Item& item);
    void paintBackground(const QRect& where);
    void renderBackground();
    bool containersChanged() const;
    bool insideChanged(const Control& control) const;

    Control* handleAt(QPointF px) const;
    const Control* toldAt(QPointF px) const;
    bool showTip(const QHelpEvent& event);
    Mouse pointOn(const Control& control, QPointF global, bool left) const;
    void handleMoved(const QMouseEvent& event);

    QtDesktop& desktop_;
    Form& form_;
    Scale scale_;
    qreal zoom_ = 1;
    FieldColumns columns_;
    std::vector<Item> items_;
    std::vector<const Panel*> panels_;
    std::vector<QWidget*> tabOrder_;
    QPixmap background_;
    std::uint64_t drawn_ = 0;
    Control* gripped_ = nullptr;
    bool formEnabled_ = true;
    Language language_ = Language::English;
    int paints_ = 0;
    QRegion lastDirty_;
    std::unique_ptr<AccessibleLabels> accessible_;
};

}  // namespace display::qt
