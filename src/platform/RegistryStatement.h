#pragma once
// A prepared SQLite statement of a hive, reset after each use so that it can
// be bound and stepped again, and the mapping of SQLite results to the Win32
// codes the registry functions return.

#include <sqlite3.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/WinTypes.h"

namespace registry {

class Statement {
public:
  Statement() = default;
  ~Statement();
  Statement(Statement const &) = delete;
  Statement & operator=(Statement const &) = delete;

  // Prepares `sql` on `db` (kept for the life of the connection).
  int Prepare(sqlite3 * db, char const * sql);
  void Finalize();

  // Binds the parameters ?1, ?2... of the next step after Reset.
  Statement & Bind(int index, int64_t value);
  Statement & Bind(int index, std::string_view text);
  Statement & BindBlob(int index, void const * data, size_t size);

  // SQLITE_ROW, SQLITE_DONE or an error.
  int Step();
  // Clears the bindings and ends the statement's read, keeping it prepared.
  void Reset();

  int64_t Int(int column) const;
  std::string Text(int column) const;
  std::string Blob(int column) const;

private:
  sqlite3_stmt * mStatement = nullptr;
};

// Resets a statement when the scope ends, whatever path leaves it.
class StatementUse {
public:
  explicit StatementUse(Statement & statement) : mStatement(statement) {}
  ~StatementUse() { mStatement.Reset(); }
  StatementUse(StatementUse const &) = delete;
  StatementUse & operator=(StatementUse const &) = delete;
  Statement * operator->() { return &mStatement; }

private:
  Statement & mStatement;
};

// Prepares and runs each statement of `sql` (constant SQL only: values are
// always bound to a Statement); SQLITE_OK or the first error.
int ExecuteScript(sqlite3 * db, char const * sql);

// The Win32 code for an SQLite result that is neither success, row nor done.
LONG Win32CodeOf(int sqliteResult);

}  // namespace registry
