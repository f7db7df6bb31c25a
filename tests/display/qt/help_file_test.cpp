// SPDX-License-Identifier: GPL-3.0-or-later
// Where the help is looked for: a user's working folder has none of its own.
#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTextBrowser>

#include "tests/display/qt/qt_bench.h"

namespace display::qt {

class HelpFile : public QtBench {
 protected:
    static constexpr const char* kName = "help-file-test.hlp";

    HelpFile() { desktop->setFolder(working.path().toStdString()); }
    ~HelpFile() override { QFile::remove(besideTheProgram()); }

    static QString besideTheProgram() {
        return QCoreApplication::applicationDirPath() + "/" + kName;
    }
    static void write(const QString& path, const char* text) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
        file.write(text);
    }
    static QString shown() {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            const auto* browser = qobject_cast<QTextBrowser*>(window);
            if (browser && browser->isVisible()) return browser->toPlainText();
        }
        return {};
    }
    QTemporaryDir working;
};

TEST_F(HelpFile, OfTheWorkingFolderGoesBeforeTheProgramsOwn) {
    write(besideTheProgram(), "the program's");
    desktop->showHelp(kName);
    EXPECT_EQ(shown(), "the program's");
    write(working.filePath(kName), "the user's");
    desktop->showHelp(kName);
    EXPECT_EQ(shown(), "the user's");
}

}  // namespace display::qt
