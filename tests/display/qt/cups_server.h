// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

namespace display::qt {

/// A print server of a test's own: cupsd in a folder that goes with it, heard through a socket in
/// that folder alone, by root as by anybody. Its one queue, "Paper", takes PDF as it comes; the
/// server keeps what it took.
class CupsServer {
 public:
    enum class Queue {
        None,
        Prints,
        Refuses,  ///< takes no job
        Paused    ///< takes jobs and keeps them
    };
    /// Starts it, and leads all that this process prints to it.
    explicit CupsServer(Queue queue);
    ~CupsServer();
    CupsServer(const CupsServer&) = delete;
    CupsServer& operator=(const CupsServer&) = delete;

    /// False where cupsd is not installed.
    static bool installed();
    bool answers() const;

    /// The jobs that have arrived, printed or not, as the files that came, in their order.
    QStringList jobs() const;
    /// It stays there and says nothing, or goes on.
    void silence();
    void wake();
    /// What the server noted, for a failed test.
    QByteArray log() const;

 private:
    void writeFiles(Queue queue);
    void write(const QString& name, const QByteArray& text) const;
    void stop();

    QTemporaryDir folder_;
    QProcess process_;
};

/// Leads what this process prints to that server: a socket's path or host and port.
void printThrough(const QByteArray& server);

}  // namespace display::qt
