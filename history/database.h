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

/// A failure of a database file. It never leaves history/: the store reports it in words.
class DatabaseFault : public std::runtime_error {
 public:
    DatabaseFault(int code, const std::string& what) : std::runtime_error(what), code_(code) {}
    /// The file is damaged; otherwise the disk, its space or its rights are at fault.
    bool isDamage() const;
    /// The nearest `errno` value.
    int systemError() const;

 private:
    int code_;
};

/// How a file is opened.
enum class Access {
    Write,    ///< created if missing
    Read,     ///< by a second reader, while the recorder may be writing
    Foreign,  ///< from any source: exclusive, read-only, nothing in it is trusted
};

class Statement;

/// An open SQLite file. Every failure throws DatabaseFault.
class Database {
 public:
    /// ":memory:" opens a database in memory. `vfs`: the name of SQLite's system layer, null for
    /// the default one; tests use others.
    Database(const std::filesystem::path& file, Access access, const char* vfs = nullptr);
    /// Opens a copy of a foreign file's bytes.
    explicit Database(std::span<const std::uint8_t> bytes);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    /// Lets SQLite cache half a megabyte of pages instead of two.
    void keepLittle();

    void run(const std::string& sql);
    std::int64_t number(const std::string& sql);
    sqlite3* handle() const { return handle_; }

 private:
    void open(const std::filesystem::path& file, Access access, const char* vfs);
    void distrust();

    sqlite3* handle_ = nullptr;
};

/// A prepared statement. Parameters count from 1, columns from 0.
class Statement {
 public:
    Statement(Database& database, std::string_view sql);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    Statement& bind(int at, std::int64_t value);
    Statement& bind(int at, double value);
    Statement& bindText(int at, std::string_view text);
    /// The bytes must stay valid until the statement has run.
    Statement& bindBytes(int at, std::string_view bytes);

    /// Goes to the next row; false if there is none.
    bool step();
    /// Runs it to the end and resets it.
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

/// A transaction that is rolled back unless commit() was called.
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
