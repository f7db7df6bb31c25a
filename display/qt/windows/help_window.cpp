// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/qt/windows/help_window.h"

#include <QCoreApplication>
#include <QFile>
#include <QKeyEvent>
#include <QStringDecoder>

#include "display/qt/widgets/control_widget.h"
#include "display/qt/windows/qt_desktop.h"

namespace display::qt {

QString HelpWindow::find(const QDir& folder, const QString& name) {
    if (folder.exists(name)) return folder.filePath(name);
    const QStringList all = folder.entryList(QDir::Files, QDir::Name);
    for (const QString& entry : all) {
        if (entry.compare(name, Qt::CaseInsensitive) == 0) return folder.filePath(entry);
    }
    return {};
}

void HelpWindow::open(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return;
    const QByteArray bytes = file.readAll();
    QStringDecoder decode(QStringDecoder::Utf8);
    QString text = decode(bytes);
    if (decode.hasError()) text = QString::fromLatin1(bytes);
    setMarkdown(text);
    setWindowTitle(tr("HMonitor"));
    setReadOnly(true);
    resize(720, 640);
    show();
    raise();
    activateWindow();
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        close();
    } else {
        QTextBrowser::keyPressEvent(event);
    }
}

void QtDesktop::showHelp(std::string_view fileName) {
    if (fileName.empty()) return;
    // A user's folder has no help of its own: it comes with the program.
    QString path = HelpWindow::find(QDir(folder()), qText(fileName));
    if (path.isEmpty()) {
        path = HelpWindow::find(QDir(QCoreApplication::applicationDirPath()), qText(fileName));
    }
    if (path.isEmpty()) {
        messageBox({"HMonitor", "File not found: " + std::string(fileName), BoxIcon::Information});
        return;
    }
    if (!help_) help_ = std::make_unique<HelpWindow>();
    help_->open(path);
}

}  // namespace display::qt
