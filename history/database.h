// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace history {

/// What went wrong with a file. Stays inside history/: the store answers with words.
class DatabaseFault : public std::runtime_error {
 public:
    DatabaseFault(int code, const std::string& what) : std::runtime_error(what), code_(code) {}
    /// The file is not what it should be; else the disk, its room or its rights are at fault.
    bool isDamage() const;
    /// As the system's errno tells it, roughly.
    int systemError() const;

 private:
    int code_;
};

/// How a file is opened.
enum class Access {
    Write,    ///< made if it is not there
    Read,     ///< beside the recorder, which may be writing
    Foreign,  ///< from anywhere: alone, read-only, trusting nothing in it
};

class Statement;

/// An open SQLite file. Every failure is a DatabaseFault.
class Database {
 public:
    /// ":memory:" is a file that is nowhere. `vfs`: the name of the system layer, null for the
    /// usual one; tests have others.
    Database(const std::filesystem::path& file, Access access, const char* vfs = nullptr);
    /// A foreign file's bytes, copied.
    explicit Database(std::span<const std::uint8_t> bytes);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    /// Holds half a megabyte of pages in memory in place of two.
    void keepLittle();

    void run(const std::string& sql);
    std::int64_t number(const std::string& sql);
    sqlite3* handle() const { return handle_; }

 private:
    void open(const std::filesystem::path& file, Access access, const char* vfs);
    void distrust();

    sqlite3* handle_ = nullptr;
};

/// A prepared statement; binds count from 1, columns from 0.
class Statement {
 public:
    Statement(Database& database, std::string_view sql);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    Statement& bind(int at, std::int64_t value);
    Statement& bind(int at, double value);
    Statement& bindText(int at, std::string_view text);
    /// The bytes must live until the statement has run.
    Statement& bindBytes(int at, std::string_view bytes);

    /// True while there is a row.
    bool step();
    /// Runs it to its end and makes it ready again.
    void run();
    void reset();

    std::int64_t number(int column) const;
    double real(int column) const;
    /// Valid until the next step.
    std::string_view bytes(int column) const;

 private:
    Database& database_;
    sqlite3_stmt* statement_ = nullptr;
};

/// A transaction that is taken back unless it was committed.
class Transaction {
 public:
    explicit Transaction(Database& database);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void commit();

 private:
    Database& database_;
    bool open_ = true;
};

}  // namespace history
