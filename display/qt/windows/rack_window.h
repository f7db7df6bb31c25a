// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>
#include <QWidget>
#include <memory>
#include <vector>

#include "display/qt/windows/fold_bar.h"
#include "display/qt/windows/form_view.h"

namespace display::qt {

/// The panels of the rack as one native window without a frame: it moves, folds and closes as one.
/// Each panel stands in it where the model says, measured from the first; the window is as high
/// and wide as the shown ones need.
class RackWindow final : public QWidget {
 public:
    RackWindow(QtDesktop& desktop, std::vector<Form*> forms);

    bool holds(const Form& form) const;
    FormView* viewOf(const Form& form) const;
    Form& lead() const { return *forms_.front(); }

    /// Shows or hides what the model shows; takes over places and all that changed.
    void sync();
    void fold();
    /// The program ends: nothing of the rack stays on the screen.
    void putAway();
    /// What stands for the folded rack where nothing folds windows, or null.
    FoldBar* bar() const { return bar_.get(); }
    void forget(const Form& form);
    /// A form came from its layout: it takes part in how far the rack was moved since.
    void joined(Form& form);

 protected:
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* native, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

 private:
    /// How far a fold has come on the screen. A hand that is quicker than the window manager's
    /// word may have the window back before anyone heard that it went.
    enum class Fold { None, Asked, Away, Bar };
    void away();
    void back();
    void comeBackIfNeverGone();
    void leaveBar();
    void orderTabs();
    FormView& makeView(Form& form);
    void placeViews();
    void placeWindow();
    void placeFirst();

    QtDesktop& desktop_;
    std::vector<Form*> forms_;
    std::vector<FormView*> views_;  ///< one for each form, null until it is shown
    bool placed_ = false;
    bool newView_ = false;
    Fold fold_ = Fold::None;
    QTimer foldLimit_;
    std::unique_ptr<FoldBar> bar_;
    float layoutLeft_ = 0, layoutTop_ = 0;  ///< where the first form's layout put it
};

}  // namespace display::qt
