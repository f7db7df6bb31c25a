// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHelpEvent>
#include <QPixmap>
#include <QRegion>
#include <QWidget>
#include <memory>
#include <vector>

#include "display/form.h"
#include "display/qt/accessibility/accessible_labels.h"
#include "display/qt/painting/painted.h"
#include "display/qt/painting/scale.h"
#include "display/qt/widgets/control_widget.h"
#include "display/qt/widgets/field_columns.h"

namespace display::qt {

/// One form on the screen: a surface that paints what no hand touches, and the widgets of what it
/// does. It looks at the form once a frame and paints what is newer than what it drew.
///
/// What has not changed since the form came up lies in a background picture; only what has ever
/// changed, and what stands above that, is painted anew.
class FormView final : public QWidget {
 public:
    FormView(QtDesktop& desktop, Form& form, QWidget* parent);
    ~FormView() override;

    Form& form() const { return form_; }

    /// True when the form is newer than what was drawn.
    bool stale() const { return form_.clock() > drawn_; }
    /// Takes over what changed and asks for the repaint of just that. Nothing is painted before.
    void sync();

    /// The focus goes to the first control of the Tab order that can take it.
    void focusFirst();

    /// The widgets of the Tab order, the first one first; none before the first sync().
    const std::vector<QWidget*>& tabOrder() const { return tabOrder_; }

    /// A widget of the form that stands for that control, or null.
    QWidget* widgetOf(const Control& control) const;
    const Scale& scale() const { return scale_; }
    /// The scale at which the form is to stand now: the rack's, or where the screen is too small
    /// for the form at that, the largest at which it stands whole.
    Scale wantedScale() const;

    /// The tool tip of what is painted there, in the language of the form; empty for none.
    QString tipAt(QPoint px) const;

    /// What assistive tools find of the painted labels; made when the first one asks.
    AccessibleLabels& accessible();

    /// How often it painted, and how many pixels were asked for at the last sync().
    int paints() const { return paints_; }
    const QRegion& lastDirty() const { return lastDirty_; }

 protected:
    void paintEvent(QPaintEvent* event) override;
    /// Nobody sees the background: it is rendered again when the form comes back.
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
        qreal down = 0;      ///< from its own place, so that it keeps to its field
        QRectF clip;         ///< of the containers; null when nothing is cut
        QRect reach;         ///< what it touches on the surface, whole pixels
        bool shown = false;  ///< painted, and to be seen
        bool live = false;   ///< painted each time; not in the background
    };

    void build();
    void takeDrawingKeys();
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
