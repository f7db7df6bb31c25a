// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/built_in_manual.h"

#include <QString>
#include <string>

#include <QFile>

namespace hmonitor {

Book::Read builtInManual(const Files& workingFolder, const std::filesystem::path& own) {
    return [&workingFolder, own](const std::string& path) -> std::string {
        if (path.ends_with(".hlp")) {
            if (const auto text = workingFolder.read(path)) return *text;
            const auto text = Files(own).read(path);
            return text ? *text : std::string();
        }
        QFile file(QString::fromStdString(":/manual/" + path));
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
    };
}

}  // namespace hmonitor
