// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/display/qt/cups_server.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QLibrary>
#include <QStandardPaths>
#include <QTest>
#include <csignal>

namespace display::qt {

namespace {

QString cupsd() {
    return QStandardPaths::findExecutable(QStringLiteral("cupsd"),
                                          {QStringLiteral("/usr/sbin"), QStringLiteral("/usr/bin"),
                                           QStringLiteral("/usr/local/sbin")});
}

/// A4 with the unprintable margins of a usual printer.
constexpr const char* kPpd = R"ppd(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "PAPER.PPD"
*Manufacturer: "HMonitor"
*Product: "(Paper)"
*ModelName: "Paper"
*ShortNickName: "Paper"
*NickName: "Paper"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*ColorDevice: True
*DefaultColorSpace: RGB
*FileSystem: False
*cupsFilter2: "application/pdf application/pdf 0 -"
*OpenUI *PageSize/Media Size: PickOne
*OrderDependency: 10 AnySetup *PageSize
*DefaultPageSize: A4
*PageSize A4/A4: "<</PageSize[595 842]>>setpagedevice"
*CloseUI: *PageSize
*OpenUI *PageRegion/Media Size: PickOne
*OrderDependency: 10 AnySetup *PageRegion
*DefaultPageRegion: A4
*PageRegion A4/A4: "<</PageSize[595 842]>>setpagedevice"
*CloseUI: *PageRegion
*DefaultImageableArea: A4
*ImageableArea A4/A4: "18 18 577 824"
*DefaultPaperDimension: A4
*PaperDimension A4/A4: "595 842"
)ppd";

constexpr const char* kServer = R"(LogLevel info
Listen FOLDER/sock
Browsing Off
WebInterface No
DefaultAuthType None
PreserveJobFiles Yes
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  <Limit All>
    Order deny,allow
    Allow all
  </Limit>
</Policy>
)";

constexpr const char* kFiles = R"(ServerRoot FOLDER/root
RequestRoot FOLDER/spool
CacheDir FOLDER/cache
StateDir FOLDER/state
TempDir FOLDER/spool/tmp
DataDir FOLDER/data
AccessLog FOLDER/access_log
ErrorLog FOLDER/error_log
PageLog FOLDER/page_log
Printcap FOLDER/printcap
FileDevice Yes
FatalErrors none
)";

constexpr const char* kQueue = R"(<DefaultPrinter Paper>
Info Paper
DeviceURI file:///dev/null
State STATE
Accepting ACCEPTING
Shared No
JobSheets none none
</DefaultPrinter>
)";

}  // namespace

void printThrough(const QByteArray& server) {
    qputenv("CUPS_SERVER", server);
    // The tester's own settings must not name a printer here.
    for (const char* name : {"PRINTER", "LPDEST", "CUPS_USER"}) qunsetenv(name);
    // Makes the CUPS library forget the previous server.
    QLibrary cups(QStringLiteral("cups"), 2);
    using SetServer = void (*)(const char*);
    if (const auto forget = reinterpret_cast<SetServer>(cups.resolve("cupsSetServer")))
        forget(nullptr);
}

bool CupsServer::installed() {
    return !cupsd().isEmpty();
}

CupsServer::CupsServer(Queue queue) {
    writeFiles(queue);
    process_.setProcessChannelMode(QProcess::MergedChannels);
    process_.start(cupsd(), {QStringLiteral("-f"), QStringLiteral("-c"),
                             folder_.filePath(QStringLiteral("cupsd.conf")), QStringLiteral("-s"),
                             folder_.filePath(QStringLiteral("cups-files.conf"))});
    const auto listens = [this] { return QFile::exists(folder_.filePath(QStringLiteral("sock"))); };
    if (!QTest::qWaitFor(listens, 10000)) {
        qWarning("cupsd does not listen: %s", process_.readAll().constData());
    }
    qputenv("HOME", folder_.path().toLocal8Bit());
    printThrough(folder_.filePath(QStringLiteral("sock")).toLocal8Bit());
}

CupsServer::~CupsServer() {
    stop();
    printThrough("/no/server");
}

void CupsServer::write(const QString& name, const QByteArray& text) const {
    QFile file(folder_.filePath(name));
    if (!file.open(QIODevice::WriteOnly)) qFatal("the folder of the print server takes no file");
    QByteArray placed = text;
    file.write(placed.replace("FOLDER", folder_.path().toLocal8Bit()));
}

void CupsServer::writeFiles(Queue queue) {
    const QDir folder(folder_.path());
    for (const char* name : {"root/ppd", "spool/tmp", "cache", "state", "data/mime"})
        folder.mkpath(QString::fromLatin1(name));
    // Run by root, the server starts its helpers as another user.
    ::chmod(folder_.path().toLocal8Bit().constData(), 0755);
    write(QStringLiteral("cupsd.conf"), kServer);
    QByteArray files = kFiles;
    if (::geteuid() == 0) files += "User lp\nGroup lp\nSystemGroup root\n";
    write(QStringLiteral("cups-files.conf"), files);
    write(QStringLiteral("data/mime/mime.types"), "application/pdf pdf string(0,%PDF)\n");
    if (queue == Queue::None) return;
    write(QStringLiteral("root/ppd/Paper.ppd"), kPpd);
    QByteArray printers = kQueue;
    printers.replace("STATE", queue == Queue::Paused ? "Stopped" : "Idle");
    printers.replace("ACCEPTING", queue == Queue::Refuses ? "No" : "Yes");
    write(QStringLiteral("root/printers.conf"), printers);
}

bool CupsServer::answers() const {
    return process_.state() == QProcess::Running &&
           QFile::exists(folder_.filePath(QStringLiteral("sock")));
}

QStringList CupsServer::jobs() const {
    const QDir spool(folder_.filePath(QStringLiteral("spool")));
    QStringList paths;
    for (const QString& name : spool.entryList({QStringLiteral("d*")}, QDir::Files, QDir::Name))
        paths << spool.filePath(name);
    return paths;
}

QByteArray CupsServer::log() const {
    QFile file(folder_.filePath(QStringLiteral("error_log")));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void CupsServer::silence() {
    ::kill(static_cast<pid_t>(process_.processId()), SIGSTOP);
}

void CupsServer::wake() {
    ::kill(static_cast<pid_t>(process_.processId()), SIGCONT);
}

void CupsServer::stop() {
    if (process_.state() == QProcess::NotRunning) return;
    wake();
    process_.terminate();
    if (!process_.waitForFinished(5000)) process_.kill();
    process_.waitForFinished(5000);
}

}  // namespace display::qt
