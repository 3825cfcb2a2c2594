#include "platform/RegistryStatement.h"

#include "platform/WinError.h"

namespace registry {

Statement::~Statement() { Finalize(); }

int Statement::Prepare(sqlite3 * db, char const * sql) {
  Finalize();
  return sqlite3_prepare_v3(db, sql, -1, SQLITE_PREPARE_PERSISTENT, &mStatement, nullptr);
}

void Statement::Finalize() {
  sqlite3_finalize(mStatement);
  mStatement = nullptr;
}

Statement & Statement::Bind(int index, int64_t value) {
  sqlite3_bind_int64(mStatement, index, value);
  return *this;
}

Statement & Statement::Bind(int index, std::string_view text) {
  sqlite3_bind_text(mStatement, index, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
  return *this;
}

Statement & Statement::BindBlob(int index, void const * data, size_t size) {
  // A zero-length blob, not NULL: the column is NOT NULL and an empty value
  // is a value.
  static char const empty = 0;
  sqlite3_bind_blob64(mStatement, index, size > 0 ? data : &empty, size, SQLITE_STATIC);
  return *this;
}

int Statement::Step() { return sqlite3_step(mStatement); }

void Statement::Reset() {
  sqlite3_reset(mStatement);
  sqlite3_clear_bindings(mStatement);
}

int64_t Statement::Int(int column) const { return sqlite3_column_int64(mStatement, column); }

std::string Statement::Text(int column) const {
  auto const * text = sqlite3_column_text(mStatement, column);
  int const size = sqlite3_column_bytes(mStatement, column);
  return text != nullptr ? std::string(reinterpret_cast<char const *>(text), size) : std::string();
}

std::string Statement::Blob(int column) const {
  void const * data = sqlite3_column_blob(mStatement, column);
  int const size = sqlite3_column_bytes(mStatement, column);
  return data != nullptr ? std::string(static_cast<char const *>(data), size) : std::string();
}

int ExecuteScript(sqlite3 * db, char const * sql) {
  while (sql != nullptr && *sql != '\0') {
    sqlite3_stmt * statement = nullptr;
    char const * rest = nullptr;
    int rc = sqlite3_prepare_v2(db, sql, -1, &statement, &rest);
    if (rc != SQLITE_OK) return rc;
    if (statement != nullptr) {
      do rc = sqlite3_step(statement);
      while (rc == SQLITE_ROW);
      sqlite3_finalize(statement);
      if (rc != SQLITE_DONE) return rc;
    }
    sql = rest;
  }
  return SQLITE_OK;
}

LONG Win32CodeOf(int sqliteResult) {
  switch (sqliteResult & 0xFF) {
    case SQLITE_OK:
    case SQLITE_ROW:
    case SQLITE_DONE: return ERROR_SUCCESS;
    case SQLITE_BUSY:
    case SQLITE_LOCKED: return ERROR_BUSY;
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_AUTH: return ERROR_ACCESS_DENIED;
    case SQLITE_NOMEM: return ERROR_NOT_ENOUGH_MEMORY;
    case SQLITE_TOOBIG: return ERROR_NO_SYSTEM_RESOURCES;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
    case SQLITE_SCHEMA: return ERROR_BADDB;
    case SQLITE_CANTOPEN: return ERROR_CANTOPEN;
    case SQLITE_FULL:
    case SQLITE_IOERR:
    case SQLITE_PROTOCOL: return ERROR_REGISTRY_IO_FAILED;
    default: return ERROR_CANTWRITE;
  }
}

}  // namespace registry
