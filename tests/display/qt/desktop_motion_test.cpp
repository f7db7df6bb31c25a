// SPDX-License-Identifier: GPL-3.0-or-later
// What the desktop says of motion, asked of a desktop on a bus of the test's own, and what moves
// less.
#include "display/qt/windows/desktop_motion.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QStyleHints>
#include <optional>

#include "display/qt/windows/form_window.h"
#include "tests/display/qt/qt_bench.h"

namespace display::qt {

namespace {

const QString kAppearanceGroup = QStringLiteral("org.freedesktop.appearance");
const QString kInterfaceGroup = QStringLiteral("org.gnome.desktop.interface");

SharedSettings withReducedMotion(unsigned value) {
    return {{kAppearanceGroup, {{"reduced-motion", value}}}};
}
SharedSettings withAnimations(bool enabled) {
    return {{kInterfaceGroup, {{"enable-animations", enabled}}}};
}

}  // namespace

/// A desktop that shares its settings.
class SharingDesktop final : public QDBusVirtualObject {
 public:
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        asked << message.interface() + "." + message.member();
        groups = message.arguments().value(0).toStringList();
        return bus.send(refuses ? message.createErrorReply("test.No", "no")
                                : message.createReply(QVariant::fromValue(settings)));
    }
    QStringList asked, groups;
    SharedSettings settings;
    bool refuses = false;
};

TEST(DesktopMotion, IsLessWhereEitherSettingSaysSo) {
    EXPECT_EQ(motionIn({}), Motion::Usual);
    EXPECT_EQ(motionIn(withReducedMotion(0)), Motion::Usual);
    EXPECT_EQ(motionIn(withReducedMotion(1)), Motion::Less);
    EXPECT_EQ(motionIn(withReducedMotion(2)), Motion::Usual) << "an unknown value is no preference";
    EXPECT_EQ(motionIn(withAnimations(true)), Motion::Usual);
    EXPECT_EQ(motionIn(withAnimations(false)), Motion::Less);
}

class MotionOnTheBus : public QtBench {
 protected:
    void SetUp() override {
        qDBusRegisterMetaType<SharedSettings>();
        daemon.start("dbus-daemon", {"--session", "--nofork", "--print-address"});
        ASSERT_TRUE(daemon.waitForReadyRead(10000)) << "dbus-daemon";
        address = QString::fromUtf8(daemon.readLine()).trimmed();
    }
    void TearDown() override {
        for (const char* name : {"theirs", "ours"}) QDBusConnection::disconnectFromBus(name);
        daemon.terminate();
        daemon.waitForFinished();
    }
    QDBusConnection connectedAs(const char* name) const {
        return QDBusConnection::connectToBus(address, name);
    }
    void share() {
        QDBusConnection bus = connectedAs("theirs");
        ASSERT_TRUE(bus.registerVirtualObject("/org/freedesktop/portal/desktop", &sharing));
        ASSERT_TRUE(bus.registerService("org.freedesktop.portal.Desktop"));
    }
    void ask() {
        askForMotion(connectedAs("ours"), asker, [this](Motion motion) { heard = motion; });
    }

    QProcess daemon;
    QString address;
    SharingDesktop sharing;
    QObject asker;
    std::optional<Motion> heard;
};

TEST_F(MotionOnTheBus, IsAskedOnceInOneCallThatWaitsForNothing) {
    sharing.settings = withAnimations(false);
    share();
    ask();
    EXPECT_EQ(heard, std::nullopt);
    ASSERT_TRUE(until([&] { return heard.has_value(); }));
    EXPECT_EQ(*heard, Motion::Less);
    EXPECT_EQ(sharing.asked, QStringList{"org.freedesktop.portal.Settings.ReadAll"});
    EXPECT_EQ(sharing.groups, (QStringList{kAppearanceGroup, kInterfaceGroup}));
}

TEST_F(MotionOnTheBus, OfADesktopThatSharesNothingIsNotHeard) {
    sharing.refuses = true;
    share();
    ask();
    ASSERT_TRUE(until([&] { return !sharing.asked.isEmpty(); }));
    QTest::qWait(50);
    EXPECT_EQ(heard, std::nullopt);
}

TEST_F(MotionOnTheBus, IsNotTakenForAGoneAsker) {
    share();
    {
        QObject gone;
        askForMotion(connectedAs("ours"), gone, [this](Motion motion) { heard = motion; });
    }
    ASSERT_TRUE(until([&] { return !sharing.asked.isEmpty(); }));
    QTest::qWait(50);
    EXPECT_EQ(heard, std::nullopt);
}

class LessMotion : public QtBench {};

TEST_F(LessMotion, CaretsStandStillAndListsOpenAtOnce) {
    const int usual = QGuiApplication::styleHints()->cursorFlashTime();
    desktop->setMotion(Motion::Less);
    EXPECT_EQ(QGuiApplication::styleHints()->cursorFlashTime(), 0);
    for (const Qt::UIEffect effect : {Qt::UI_AnimateCombo, Qt::UI_FadeTooltip, Qt::UI_FadeMenu}) {
        EXPECT_FALSE(QApplication::isEffectEnabled(effect)) << effect;
    }
    desktop->setMotion(Motion::Usual);
    EXPECT_EQ(QGuiApplication::styleHints()->cursorFlashTime(), usual);
}

TEST_F(LessMotion, TheFrameThatPointsToAWindowStandsInsteadOfFlashing) {
    showSample();
    auto& window = dynamic_cast<FormWindow&>(*view(*sample).window());
    const QWidget& frame = *window.findChild<QWidget*>("Flash");
    window.flash(Motion::Usual);
    EXPECT_TRUE(until([&] { return !frame.isVisible(); }));
    window.flash(Motion::Less);
    QTest::qWait(600);
    EXPECT_TRUE(frame.isVisible());
    EXPECT_TRUE(until([&] { return !frame.isVisible(); }));
}

}  // namespace display::qt
