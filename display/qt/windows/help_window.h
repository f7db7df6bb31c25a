// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDir>
#include <QString>
#include <QTextBrowser>

namespace display::qt {

/// The help text in a window of its own. Escape closes it.
class HelpWindow final : public QTextBrowser {
 public:
    /// The file of that name in the folder, whatever the case of its letters; empty when there is
    /// none.
    static QString find(const QDir& folder, const QString& name);

    /// Shows the text of the file, which may carry Markdown.
    void open(const QString& path);

 protected:
    void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace display::qt
