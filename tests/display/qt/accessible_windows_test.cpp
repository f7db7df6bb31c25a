// SPDX-License-Identifier: GPL-3.0-or-later
// What a screen reader finds of the windows that stand only while the program starts, or that
// nothing opens: every control by a name, in both languages.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QString>
#include <QStringList>
#include <set>

#include "tests/display/qt/program_screen.h"

namespace hmonitor::test {
namespace {

class AccessibleWindows : public testing::TestWithParam<const char*> {
 protected:
    AccessibleWindows() {
        qputenv("LC_ALL", GetParam());
        screen = std::make_unique<ProgramScreen>();
    }
    bool spanish() const { return std::string_view(GetParam()).starts_with("es"); }
    QString in(const char* inSpanish, const char* inEnglish) const {
        return QString::fromUtf8(spanish() ? inSpanish : inEnglish);
    }

    /// Shows a form and reads it: the names of all that is on its window. None may lack one.
    QStringList heardOf(display::Form& form) {
        form.show();
        QStringList names;
        read(QAccessible::queryAccessibleInterface(screen->desktop.viewOf(form)->window()), names);
        return names;
    }
    std::unique_ptr<ProgramScreen> screen;

 private:
    void read(QAccessibleInterface* each, QStringList& names) {
        ASSERT_NE(each, nullptr);
        if (each->state().invisible) return;
        static const std::set<QAccessible::Role> kActedOn = {
            QAccessible::Button,      QAccessible::CheckBox,  QAccessible::RadioButton,
            QAccessible::ComboBox,    QAccessible::ScrollBar, QAccessible::EditableText,
            QAccessible::StaticText,  QAccessible::List,      QAccessible::PageTab,
            QAccessible::PageTabList, QAccessible::Graphic,   QAccessible::Chart};
        const QString name = each->text(QAccessible::Name);
        if (kActedOn.contains(each->role())) EXPECT_FALSE(name.trimmed().isEmpty()) << each->role();
        names << name << each->text(QAccessible::Description);
        for (int i = 0; i < each->childCount(); ++i) read(each->child(i), names);
    }
};

TEST_P(AccessibleWindows, TheSplashTellsThatItWaitsAndWhereTheFilesAre) {
    screen->program.FirstFolder.path = "/home/ana";
    const QStringList heard = heardOf(screen->forms.formWaitLoad);
    EXPECT_TRUE(heard.contains("HMonitor"));
    EXPECT_TRUE(heard.contains("Please wait,"));
    EXPECT_TRUE(
        heard.contains(in("Sus archivos están en /home/ana", "Your files are in /home/ana")))
        << heard.join("\n").toStdString();
}

TEST_P(AccessibleWindows, ThePanelUnderTheFirstOneTellsThatItWaits) {
    screen->forms.form1.show();
    const QStringList heard = heardOf(screen->forms.form3);
    EXPECT_EQ(heard.count("Please, Wait Loading..."), 2) << "the panel, and the words in it";
}

TEST_P(AccessibleWindows, TheSpanDialogTellsItsListItsFieldAndItsKeys) {
    const QStringList heard = heardOf(screen->forms.formSpectrumAnalizerSpan);
    for (const QString& name :
         {in("Paso de la corrida", "Step of the run"), in("Paso en kHz", "Step in kHz"),
          in("Medir", "Measure"), in("Volver al analizador", "Back to the analyzer"),
          QString("Spectrum"), QString("Values for NEW spectrum run:")}) {
        EXPECT_TRUE(heard.contains(name)) << name.toStdString() << "\n"
                                          << heard.join("\n").toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, AccessibleWindows,
                         testing::Values("es_AR.UTF-8", "en_US.UTF-8"), [](const auto& of) {
                             return std::string(of.param[1] == 's' ? "Spanish" : "English");
                         });

}  // namespace
}  // namespace hmonitor::test
