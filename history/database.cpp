// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/database.h"

#include <sqlite3.h>

#include <algorithm>
#include <cerrno>

namespace history {

namespace {

constexpr int kBusyMs = 2000;
constexpr const char* kInMemory = ":memory:";

std::string sentence(sqlite3* handle, int code) {
    return handle ? sqlite3_errmsg(handle) : sqlite3_errstr(code);
}

/// The path as a URI's, so that a name with a question mark is no option.
std::string uriOf(const std::filesystem::path& file, std::string_view options) {
    if (file == kInMemory) return std::string("file:") + kInMemory;
    constexpr std::string_view kHex = "0123456789ABCDEF";
    std::string uri = "file:";
    for (const char c : file.string()) {
        const auto byte = static_cast<unsigned char>(c);
        if (std::string_view("%?#").find(c) == std::string_view::npos) {
            uri += c;
        } else {
            uri += '%';
            uri += kHex[byte >> 4];
            uri += kHex[byte & 15];
        }
    }
    return uri.append(options);
}

}  // namespace

bool DatabaseFault::isDamage() const {
    const int primary = code_ & 0xFF;
    return primary == SQLITE_CORRUPT || primary == SQLITE_NOTADB || primary == SQLITE_ERROR ||
           primary == SQLITE_MISMATCH || primary == SQLITE_CONSTRAINT || primary == SQLITE_TOOBIG;
}

int DatabaseFault::systemError() const {
    switch (code_ & 0xFF) {
        case SQLITE_FULL:
            return ENOSPC;
        case SQLITE_READONLY:
        case SQLITE_PERM:
        case SQLITE_CANTOPEN:
            return EACCES;
        default:
            return EIO;
    }
}

Database::Database(const std::filesystem::path& file, Access access, const char* vfs) {
    try {
        open(file, access, vfs);
    } catch (...) {
        sqlite3_close(handle_);
        throw;
    }
}

void Database::open(const std::filesystem::path& file, Access access, const char* vfs) {
    const int flags =
        access == Access::Write ? SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE : SQLITE_OPEN_READONLY;
    // Nothing beside a foreign file is looked at: no journal that lies there is played back.
    const std::string uri = uriOf(file, access == Access::Foreign ? "?immutable=1" : "");
    const int code =
        sqlite3_open_v2(uri.c_str(), &handle_,
                        flags | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, vfs);
    if (code != SQLITE_OK) throw DatabaseFault(code, sentence(handle_, code));
    sqlite3_busy_timeout(handle_, kBusyMs);
    distrust();
    if (access != Access::Write) run("PRAGMA query_only=ON");
    // Rows are written once and read back once, if at all.
    if (access == Access::Write) keepLittle();
}

void Database::keepLittle() {
    run("PRAGMA cache_size=-512");
}

/// For own files too: one may have been put in their place.
void Database::distrust() {
    sqlite3_db_config(handle_, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(handle_, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(handle_, SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0, nullptr);
    sqlite3_db_config(handle_, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(handle_, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    // No row of ours comes near.
    constexpr int kMostBytes = 1 << 20;
    sqlite3_limit(handle_, SQLITE_LIMIT_LENGTH, kMostBytes);
    sqlite3_limit(handle_, SQLITE_LIMIT_ATTACHED, 0);
}

Database::Database(std::span<const std::uint8_t> bytes) {
    int code =
        sqlite3_open_v2(":memory:", &handle_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    auto* copy = static_cast<unsigned char*>(sqlite3_malloc64(bytes.size() + 1));
    if (code == SQLITE_OK && copy) {
        std::ranges::copy(bytes, copy);
        const auto size = static_cast<sqlite3_int64>(bytes.size());
        code = sqlite3_deserialize(handle_, "main", copy, size, size,
                                   SQLITE_DESERIALIZE_FREEONCLOSE | SQLITE_DESERIALIZE_READONLY);
    } else {
        sqlite3_free(copy);
    }
    if (code != SQLITE_OK) {
        const std::string what = sentence(handle_, code);
        sqlite3_close(handle_);
        throw DatabaseFault(code, what);
    }
    distrust();
}

Database::~Database() {
    sqlite3_close(handle_);
}

void Database::run(const std::string& sql) {
    const int code = sqlite3_exec(handle_, sql.c_str(), nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) throw DatabaseFault(code, sentence(handle_, code));
}

std::int64_t Database::number(const std::string& sql) {
    Statement statement(*this, sql);
    return statement.step() ? statement.number(0) : 0;
}

Statement::Statement(Database& database, std::string_view sql) : database_(database) {
    const int code = sqlite3_prepare_v2(database.handle(), sql.data(), static_cast<int>(sql.size()),
                                        &statement_, nullptr);
    if (code != SQLITE_OK) throw DatabaseFault(code, sentence(database.handle(), code));
}

Statement::~Statement() {
    sqlite3_finalize(statement_);
}

Statement& Statement::bind(int at, std::int64_t value) {
    sqlite3_bind_int64(statement_, at, value);
    return *this;
}

Statement& Statement::bind(int at, double value) {
    sqlite3_bind_double(statement_, at, value);
    return *this;
}

Statement& Statement::bindText(int at, std::string_view text) {
    sqlite3_bind_text(statement_, at, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
    return *this;
}

Statement& Statement::bindBytes(int at, std::string_view bytes) {
    sqlite3_bind_blob(statement_, at, bytes.data(), static_cast<int>(bytes.size()), SQLITE_STATIC);
    return *this;
}

bool Statement::step() {
    const int code = sqlite3_step(statement_);
    if (code == SQLITE_ROW) return true;
    if (code == SQLITE_DONE) return false;
    const std::string what = sentence(database_.handle(), code);
    sqlite3_reset(statement_);
    throw DatabaseFault(code, what);
}

void Statement::run() {
    while (step()) {
    }
    reset();
}

void Statement::reset() {
    sqlite3_reset(statement_);
}

std::int64_t Statement::number(int column) const {
    return sqlite3_column_int64(statement_, column);
}

double Statement::real(int column) const {
    return sqlite3_column_double(statement_, column);
}

std::string_view Statement::bytes(int column) const {
    const auto* data = static_cast<const char*>(sqlite3_column_blob(statement_, column));
    return {data ? data : "", static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
}

Transaction::Transaction(Database& database) : database_(database) {
    database_.run("BEGIN IMMEDIATE");
}

Transaction::~Transaction() {
    if (!open_) return;
    // The fault that brought us here is told; a rollback that fails was done by SQLite already.
    sqlite3_exec(database_.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void Transaction::commit() {
    database_.run("COMMIT");
    open_ = false;
}

}  // namespace history
