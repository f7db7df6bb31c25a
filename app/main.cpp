// SPDX-License-Identifier: GPL-3.0-or-later
#include <QGuiApplication>
#include <QIcon>
#include <cstdio>
#include <filesystem>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "app/arguments.h"
#include "app/built_in_manual.h"
#include "app/forms.h"
#include "app/opened_driver.h"
#include "app/recorded_history.h"
#include "core/files.h"
#include "core/folder_lock.h"
#include "core/working_folder.h"
#include "display/qt/windows/end_watch.h"
#include "display/qt/windows/qt_desktop.h"
#include "program/help_topic.h"
#include "program/language.h"
#include "program/rack_file.h"
#include "startup/form3.h"
#include "startup/form_wait_load.h"

namespace {

void sayTaken(display::Desktop& desktop) {
    const bool spanish =
        hmonitor::dialogLanguage(desktop.userLanguageId()) == display::Language::Spanish;
    desktop.messageBox({"HMonitor",
                        spanish ? "HMonitor ya está en marcha en esta carpeta."
                                : "HMonitor is already running in this folder.",
                        display::BoxIcon::Information});
}

}  // namespace

int main(int argc, char** argv) {
    // Help needs no display. What the toolkit takes for itself it has not taken yet.
    const std::string answer = hmonitor::readArguments(argc, argv).answer;
    if (!answer.empty()) {
        std::fputs(answer.c_str(), stdout);
        return 0;
    }
    display::qt::QtDesktop desktop(argc, argv);
    const display::qt::EndWatch endWatch(desktop);
    // By this name task bars find menu entry and icon of an installed program.
    QGuiApplication::setDesktopFileName("hmonitor");
    QGuiApplication::setWindowIcon(QIcon::fromTheme("hmonitor"));

    const hmonitor::Arguments arguments = hmonitor::readArguments(argc, argv);
    if (!arguments.fault.empty()) {
        std::fprintf(stderr, "hmonitor: %s\n", arguments.fault.c_str());
        return 2;
    }
    // The program's folder has the library; the settings lie there too where it can be written.
    // A driver library writes its files into the process's folder.
    const std::filesystem::path own = desktop.folder();
    const std::filesystem::path folder = hmonitor::workingFolder(arguments.folder, own);
    const hmonitor::Laying laying = hmonitor::layFirstContents(folder, own);
    desktop.setFolder(folder);
    std::error_code notThere;
    std::filesystem::current_path(folder, notThere);

    const hmonitor::FolderLock lock(folder);
    if (lock.isTakenByAnother()) {
        return desktop.run([&desktop] {
            sayTaken(desktop);
            desktop.end();
        });
    }

    const hmonitor::Files files(folder);
    files.removeLeftovers();
    hmonitor::Files(folder / "Logs").removeLeftovers();
    const hmonitor::Book manual(hmonitor::builtInManual(files, own));
    desktop.book(manual, hmonitor::helpTopicOf);
    hmonitor::OpenedDriver driver(own);

    hmonitor::Program program(desktop, driver.library(), files);
    program.LibraryFault = driver.fault();
    if (laying == hmonitor::Laying::First) program.FirstFolder = {folder.string()};
    driver.watchFor(program, desktop);
    hmonitor::Forms forms(program);
    const hmonitor::RecordedHistory history(program);
    std::vector<display::Form*> rack(program.rack.begin(), program.rack.end());
    rack.push_back(&forms.form3);
    desktop.rack(std::move(rack));
    hmonitor::RackFile rackFile = hmonitor::RackFile::read(files);
    desktop.placeRack(rackFile.place);
    desktop.onRackPlaced = [&] {
        rackFile.place = desktop.rackPlace();
        rackFile.write(files);
    };
    program.FirstStart.showsCard = !rackFile.cardSeen;
    program.FirstStart.onRead = [&] {
        rackFile.cardSeen = true;
        rackFile.write(files);
    };
    return desktop.run([&forms] { forms.formWaitLoad.show(); });
}
