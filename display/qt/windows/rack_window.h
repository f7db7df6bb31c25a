// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>
#include <QWidget>
#include <memory>
#include <optional>
#include <vector>

#include "display/qt/windows/corner_grip.h"
#include "display/qt/windows/fold_bar.h"
#include "display/qt/windows/form_view.h"
#include "display/rack_place.h"

namespace display::qt {

/// The panels of the rack as one native window without a frame: they are moved, minimised and
/// closed together. Each panel is placed in it as the model says, relative to the first; the window
/// is as large as the visible panels need.
class RackWindow final : public QWidget {
 public:
    RackWindow(QtDesktop& desktop, std::vector<Form*> forms);

    bool holds(const Form& form) const;
    FormView* viewOf(const Form& form) const;
    Form& lead() const { return *forms_.front(); }

    /// Shows or hides panels as the model says, and reads positions and all that changed.
    void sync();
    void fold();
    /// Hides the rack when the program ends.
    void putAway();
    /// The bar that stands in for the minimised rack where there is no window manager, or null.
    FoldBar* bar() const { return bar_.get(); }
    void forget(const Form& form);

    /// Where it stands; while it takes the whole screen, where it stood before.
    RackPlace place() const;
    bool isWhole() const { return before_.has_value(); }
    /// It takes the whole of its screen, the panels in the middle, until it leaves it. The desktop
    /// then changes the scale.
    void takeWhole();
    void leaveWhole();
    /// All windows have another scale: where it stands is another place in the model.
    void rescaled();
    /// Called when a form was loaded, so with its position from the layout: adds how far the rack
    /// has been moved since.
    void joined(Form& form);

 protected:
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* native, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

 private:
    /// The progress of minimising. A fast user may restore the window before the window manager has
    /// reported that it was minimised.
    enum class Fold { None, Asked, Away, Bar };
    void away();
    void back();
    void comeBackIfNeverGone();
    void leaveBar();
    void orderTabs();
    FormView& makeView(Form& form);
    void placeViews();
    QPoint insetNow() const;
    void sizeFor(const QRect& panels);
    void shiftModel(QPoint corner);
    void beginDrag(QPoint at);
    void drag(QPoint at);
    void placeWindow();
    void placeFirst();
    void takeWholeIfWanted();

    QtDesktop& desktop_;
    std::vector<Form*> forms_;
    std::vector<FormView*> views_;  ///< one for each form, null until it is shown
    CornerGrip grip_;
    QPoint gripped_;          ///< where the corner was pressed
    qreal widthGripped_ = 0;  ///< and how wide the rack was then
    std::optional<RackPlace> before_;
    QPoint inset_;  ///< of the first panel in the window
    bool placed_ = false;
    bool newView_ = false;
    bool wholeTaken_ = false;  ///< at the first show
    Fold fold_ = Fold::None;
    QTimer foldLimit_;
    std::unique_ptr<FoldBar> bar_;
    float layoutLeft_ = 0, layoutTop_ = 0;  ///< where the first form's layout put it
};

}  // namespace display::qt
