// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <memory>

class QSocketNotifier;

namespace display::qt {

class QtDesktop;

/// Tells the desktop of an end that comes from outside of its windows: SIGTERM, SIGINT and SIGHUP,
/// the end of the user's session, the loss of the display. Such an end is in good order; a second
/// signal ends the process at once. One at a time, for the length of the program.
class EndWatch final : public QObject {
 public:
    explicit EndWatch(QtDesktop& desktop);
    ~EndWatch() override;

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    void hearSignals();
    void hearSession();

    QtDesktop& desktop_;
    std::unique_ptr<QSocketNotifier> heard_;
};

}  // namespace display::qt
