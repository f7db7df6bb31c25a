// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/call_box.h"

#include <QAbstractButton>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QTimer>

#include "tests/display/qt/qt_bench.h"

namespace display::qt {

class CallBoxOnScreen : public QtBench {};

TEST_F(CallBoxOnScreen, LetsNothingElsePassUntilAKeyIsPressed) {
    showSample();
    desktop->queue().openGate();
    sample->Timer1.enabled = true;
    QTimer later;
    later.setSingleShot(true);
    QObject::connect(&later, &QTimer::timeout, &later, [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->text(), "The unit does not answer.");
        ASSERT_EQ(box->buttons().size(), 3);
        for (QAbstractButton* button : box->buttons()) {
            if (button->text() == "End") QTest::mouseClick(button, Qt::LeftButton);
        }
    });
    later.start(500);
    const int before = times("Timer1 tick");
    const auto pressed =
        desktop->standWhile({"HMonitor", "The unit does not answer.", BoxIcon::Critical},
                            {"Again", "Without", "End"}, [] { return false; });
    EXPECT_EQ(times("Timer1 tick"), before);
    EXPECT_EQ(pressed, 2u);
    // Timers go on while the box is open.
    EXPECT_TRUE(until([&] { return times("Timer1 tick") > before; }));
}

TEST_F(CallBoxOnScreen, GoesByItselfWhenItIsOver) {
    showSample();
    QElapsedTimer time;
    time.start();
    EXPECT_EQ(desktop->standWhile({"HMonitor", "The unit does not answer.", BoxIcon::Critical},
                                  {"Again", "Without"}, [&] { return time.hasExpired(200); }),
              std::nullopt);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(CallBoxOnScreen, EscapeAndCloseGiveNothingUpAndEnterPressesTheFirstKey) {
    showSample();
    int tried = 0;
    QTimer later;
    QObject::connect(&later, &QTimer::timeout, &later, [&] {
        QWidget* box = QApplication::activeModalWidget();
        ASSERT_NE(box, nullptr);
        const Qt::Key keys[] = {Qt::Key_Escape, Qt::Key_Escape, Qt::Key_Return};
        if (tried == 1) box->close();
        QTest::keyClick(box, keys[tried++]);
    });
    later.start(100);
    EXPECT_EQ(desktop->standWhile({"HMonitor", "The unit does not answer.", BoxIcon::Critical},
                                  {"Again", "Without"}, [] { return false; }),
              0u);
    EXPECT_EQ(tried, 3);
}

TEST_F(CallBoxOnScreen, EscapePressesAKeyThatStandsAlone) {
    showSample();
    QTimer later;
    later.setSingleShot(true);
    QObject::connect(&later, &QTimer::timeout, &later,
                     [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
    later.start(200);
    EXPECT_EQ(desktop->standWhile({"HMonitor", "The unit does not answer.", BoxIcon::Critical},
                                  {"End"}, [] { return false; }),
              0u);
}

}  // namespace display::qt
