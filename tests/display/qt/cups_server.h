// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

namespace display::qt {

/// A print server for one test: cupsd in a temporary folder, listening on a socket in that folder,
/// as root or any user. Its one queue, "Paper", takes PDF unchanged; the server keeps the jobs.
class CupsServer {
 public:
    enum class Queue {
        None,
        Prints,
        Refuses,  ///< refuses jobs
        Paused    ///< takes jobs and keeps them
    };
    /// Starts it, and directs all printing of this process to it.
    explicit CupsServer(Queue queue);
    ~CupsServer();
    CupsServer(const CupsServer&) = delete;
    CupsServer& operator=(const CupsServer&) = delete;

    /// False if cupsd is not installed.
    static bool installed();
    bool answers() const;

    /// The jobs that arrived, printed or not, as files in their order.
    QStringList jobs() const;
    /// Makes it stop answering, or go on.
    void silence();
    void wake();
    /// The server's log, for a failed test.
    QByteArray log() const;

 private:
    void writeFiles(Queue queue);
    void write(const QString& name, const QByteArray& text) const;
    void stop();

    QTemporaryDir folder_;
    QProcess process_;
};

/// Directs the printing of this process to a server: a socket's path or host and port.
void printThrough(const QByteArray& server);

}  // namespace display::qt
