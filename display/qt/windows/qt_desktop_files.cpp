// SPDX-License-Identifier: GPL-3.0-or-later
#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

#include "display/open_question.h"

#include <filesystem>
#include <optional>

#include "display/qt/widgets/control_widget.h"
#include "display/qt/windows/qt_desktop.h"

namespace display::qt {

namespace {

QString filterOf(const SaveQuestion::Kind& kind) {
    return qText(kind.words) + QStringLiteral(" (*.") + qText(kind.ending) + QStringLiteral(")");
}

QString firstFolder() {
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(documents).isDir() ? documents : QDir::homePath();
}

/// What Qt's own dialog says in English.
void sayInSpanish(QFileDialog& dialog, const QString& accept) {
    dialog.setLabelText(QFileDialog::LookIn, QStringLiteral("Buscar en:"));
    dialog.setLabelText(QFileDialog::FileName, QStringLiteral("&Nombre:"));
    dialog.setLabelText(QFileDialog::FileType, QStringLiteral("Tipo:"));
    dialog.setLabelText(QFileDialog::Accept, accept);
    dialog.setLabelText(QFileDialog::Reject, QStringLiteral("&Cancelar"));
}

QStringList filtersOf(const std::vector<SaveQuestion::Kind>& kinds) {
    QStringList filters;
    for (const SaveQuestion::Kind& kind : kinds) filters << filterOf(kind);
    return filters;
}

const SaveQuestion::Kind& chosenKind(const SaveQuestion& question, const QFileDialog& dialog) {
    for (const SaveQuestion::Kind& kind : question.kinds) {
        if (filterOf(kind) == dialog.selectedNameFilter()) return kind;
    }
    return question.kinds.front();
}

}  // namespace

/// If the user types an ending that is not among the kinds, another one is appended; a file of the
/// resulting name may exist without the dialog having asked about it.
std::optional<std::string> QtDesktop::standSaveDialog(const SaveQuestion& question) {
    QFileDialog dialog(const_cast<QWidget*>(opener()), qText(question.title), saveFolder_);
    dialog.setObjectName(QStringLiteral("SaveDialog"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    if (spanish()) sayInSpanish(dialog, QStringLiteral("&Guardar"));
    dialog.setNameFilters(filtersOf(question.kinds));
    dialog.setDefaultSuffix(qText(question.kinds.front().ending));
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog,
                     [&] { dialog.setDefaultSuffix(qText(chosenKind(question, dialog).ending)); });
    QString name = qText(question.stem + "." + question.kinds.front().ending);
    for (;;) {
        dialog.selectFile(name);
        if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
            return std::nullopt;
        const std::string chosen = utf8(dialog.selectedFiles().constFirst());
        const std::string path = withEnding(chosen, question.kinds, chosenKind(question, dialog));
        saveFolder_ = QFileInfo(qText(path)).absolutePath();
        if (path == chosen || !QFileInfo::exists(qText(path))) return path;
        name = QFileInfo(qText(path)).fileName();
    }
}

std::optional<std::string> QtDesktop::standOpenDialog(const OpenQuestion& question) {
    QFileDialog dialog(const_cast<QWidget*>(opener()), qText(question.title), saveFolder_);
    dialog.setObjectName(QStringLiteral("OpenDialog"));
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    if (spanish()) sayInSpanish(dialog, QStringLiteral("&Abrir"));
    if (!question.kinds.empty()) dialog.setNameFilters(filtersOf(question.kinds));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    const QString path = dialog.selectedFiles().constFirst();
    saveFolder_ = QFileInfo(path).absolutePath();
    return utf8(path);
}

/// Time goes on while a dialog stands.
template <class Stand>
std::optional<std::string> QtDesktop::standDialog(Stand stand) {
    if (ended()) throw ProgramEnded{};
    if (saveFolder_.isEmpty()) saveFolder_ = firstFolder();
    frame();
    std::optional<std::string> path;
    {
        PhaseScope standing(*this, Phase::Box);
        arm();
        path = stand();
    }
    if (ended()) throw ProgramEnded{};
    wakeTimer_.start(0);
    return path;
}

std::optional<std::string> QtDesktop::askWhereToSave(const SaveQuestion& question) {
    return standDialog([&] { return standSaveDialog(question); });
}

std::optional<std::string> QtDesktop::askWhatToOpen(const OpenQuestion& question) {
    return standDialog([&] { return standOpenDialog(question); });
}

std::filesystem::path QtDesktop::folder() const {
    if (!folder_.empty()) return folder_;
    return QDir(QCoreApplication::applicationDirPath()).filesystemPath();
}

std::string QtDesktop::writeFile(std::string_view path, std::string_view bytes) {
    // Written to a temporary file, which replaces the old one when all of it has reached the disk.
    // Not through a buffer: what does not fit when that is emptied at the end, commit() does not
    // notice.
    QSaveFile file(qText(path));
    const auto size = static_cast<qint64>(bytes.size());
    if (file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) &&
        file.write(bytes.data(), size) == size && file.commit())
        return {};
    const std::string name = utf8(QFileInfo(qText(path)).fileName());
    return name + (spanish() ? " no se puede escribir: " : " cannot be written: ") +
           utf8(file.errorString());
}

}  // namespace display::qt
