#include "platform/RegistryHive.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <thread>

#include "platform/RegistryNotices.h"
#include "platform/RegistryTransaction.h"
#include "platform/WinError.h"
#include "utl/DamagedCopyName.h"
#include "utl/ExceptionMessage.h"
#include "utl/Paths.h"

namespace registry {

namespace {

// "TREG" in the database header marks a hive of this store.
constexpr int64_t kApplicationId = 0x54524547;

// Key ids are never given twice (AUTOINCREMENT), so that a handle on a
// deleted key keeps answering ERROR_KEY_DELETED. A value's row id is its
// place in creation order; writing a value again updates the row in place
// and so keeps the place.
char const * const kSchema = R"sql(
PRAGMA journal_mode = DELETE;
BEGIN;
CREATE TABLE keys(
  id INTEGER PRIMARY KEY AUTOINCREMENT,
  parent INTEGER NOT NULL,
  name TEXT NOT NULL,
  folded TEXT NOT NULL,
  UNIQUE(parent, folded));
CREATE TABLE vals(
  id INTEGER PRIMARY KEY,
  key INTEGER NOT NULL,
  name TEXT NOT NULL,
  folded TEXT NOT NULL,
  type INTEGER NOT NULL,
  data BLOB NOT NULL,
  UNIQUE(key, folded));
INSERT INTO keys(id, parent, name, folded) VALUES(1, 0, '', '');
PRAGMA application_id = 1414677831;
PRAGMA user_version = 1;
COMMIT;
)sql";

void SyncPath(std::string const & path) {
  int const fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) return;
  ::fsync(fd);
  ::close(fd);
}

// SQLite's check reports over several lines; a notice keeps to one.
std::string FirstLine(std::string const & text) {
  std::string line = text.substr(0, text.find('\n'));
  return line.empty() ? "the check failed" : line;
}

// Holds an exclusive lock on "<hive>.lock" for creating or replacing the
// hive file, so that two processes never both do it.
class CreationLock {
public:
  explicit CreationLock(std::string const & hivePath)
      : mFd(::open((hivePath + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644)) {
    if (mFd >= 0 && ::flock(mFd, LOCK_EX) != 0) {
      ::close(mFd);
      mFd = -1;
    }
  }
  ~CreationLock() {
    if (mFd >= 0) ::close(mFd);
  }
  CreationLock(CreationLock const &) = delete;
  CreationLock & operator=(CreationLock const &) = delete;
  bool Held() const { return mFd >= 0; }

private:
  int mFd;
};

}  // namespace

Hive::Hive(std::string path, bool privateToUser)
    : mPath(std::move(path)), mPrivate(privateToUser) {}

Hive::~Hive() {
  std::lock_guard<std::recursive_mutex> lock(mMutex);
  Close();
}

bool Hive::IsWritable() {
  std::lock_guard<std::recursive_mutex> lock(mMutex);
  EnsureOpen();
  return mState == State::Open && mWritable;
}

void Hive::EnsureOpen() {
  if (mState != State::Unopened) return;
  mState = State::Absent;
  if (VxFileExist(mPath) == VxNothing) {
    // A hive nobody made yet. A process that may not make it (the system
    // hive for a user) sees an empty hive it cannot change.
    if (!VxCreateFolder(VxGetDirectory(mPath)) || !CreateFile()) return;
  }
  std::string problem;
  Opening opening = OpenFile(problem);
  // SQLite gives up at once, without its busy handler, where waiting could
  // deadlock; many processes starting together meet that. Try again a while.
  auto const start = std::chrono::steady_clock::now();
  for (int attempt = 1;
       opening == Opening::Busy && std::chrono::steady_clock::now() - start < kBusyTimeout;
       ++attempt) {
    std::this_thread::sleep_for(std::chrono::milliseconds(std::min(attempt, 50)));
    opening = OpenFile(problem);
  }
  switch (opening) {
    case Opening::Opened: mState = State::Open; return;
    case Opening::Damaged: Recover(problem); return;
    case Opening::Unusable:
    case Opening::Busy:
      AddNotice(ExceptionMessage::translate(
                    "The registry hive {1} cannot be opened. Its settings are not available "
                    "and changes to them cannot be kept.") %
                    mPath,
                mPath);
      return;
  }
}

Hive::Opening Hive::OpenFile(std::string & problem) {
  problem.clear();
  struct stat file {};
  if (::stat(mPath.c_str(), &file) != 0) return Opening::Unusable;
  mFileDevice = file.st_dev;
  mFileInode = file.st_ino;
  std::string const folder = VxGetDirectory(mPath);
  bool const writable =
      ::access(mPath.c_str(), R_OK | W_OK) == 0 && ::access(folder.c_str(), W_OK) == 0;
  int const flags = (writable ? SQLITE_OPEN_READWRITE : SQLITE_OPEN_READONLY) | SQLITE_OPEN_NOMUTEX;
  if (sqlite3_open_v2(mPath.c_str(), &mDb, flags, nullptr) != SQLITE_OK) {
    Close();
    return Opening::Unusable;
  }
  sqlite3_busy_handler(mDb, &Hive::BusyHandler, this);
  if (writable) {
    // Keep the -wal and -shm files when the last connection closes: a
    // process that may only read the hive cannot make them itself.
    int persist = 1;
    sqlite3_file_control(mDb, "main", SQLITE_FCNTL_PERSIST_WAL, &persist);
  }
  auto const fail = [&](int rc, std::string const & why) {
    int const primary = rc & 0xFF;
    bool const damaged = !why.empty() || primary == SQLITE_NOTADB || primary == SQLITE_CORRUPT;
    problem = !why.empty() ? why : damaged ? sqlite3_errstr(rc) : std::string();
    Close();
    if (damaged) return Opening::Damaged;
    return primary == SQLITE_BUSY || primary == SQLITE_LOCKED ? Opening::Busy : Opening::Unusable;
  };

  // Identity first: a file that is no SQLite database fails here.
  {
    Statement identity;
    int rc = identity.Prepare(mDb, "PRAGMA application_id");
    if (rc == SQLITE_OK) rc = identity.Step();
    if (rc != SQLITE_ROW) return fail(rc, "");
    if (identity.Int(0) != kApplicationId) return fail(rc, "the file is no registry hive");
  }
  if (writable) {
    int rc = Execute("PRAGMA journal_mode = WAL");
    if (rc == SQLITE_OK) rc = Execute("PRAGMA synchronous = NORMAL");
    if (rc != SQLITE_OK) return fail(rc, "");
  }
  {
    Statement check;
    int rc = check.Prepare(mDb, "PRAGMA quick_check(1)");
    if (rc == SQLITE_OK) rc = check.Step();
    if (rc != SQLITE_ROW) return fail(rc, "");
    std::string const verdict = check.Text(0);
    if (verdict != "ok") return fail(rc, FirstLine(verdict));
  }
  if (!PrepareStatements()) return fail(SQLITE_ERROR, sqlite3_errmsg(mDb));
  mWritable = writable;
  return Opening::Opened;
}

bool Hive::CreateFile() {
  CreationLock lock(mPath);
  return lock.Held() && CreateFileLocked();
}

bool Hive::CreateFileLocked() {
  if (VxFileExist(mPath) != VxNothing) return true;  // another process made it meanwhile

  // Built complete under a temporary name, then linked into place: no
  // process ever sees a half-made hive, and link() never replaces a file.
  std::string const temporary = mPath + ".new-" + std::to_string(::getpid());
  ::unlink(temporary.c_str());
  ::unlink((temporary + "-journal").c_str());
  sqlite3 * db = nullptr;
  bool made = sqlite3_open_v2(temporary.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE,
                              nullptr) == SQLITE_OK &&
              ExecuteScript(db, kSchema) == SQLITE_OK &&
              // Made in WAL mode, so that no opener has to convert it, which
              // needs the whole file to itself.
              ExecuteScript(db, "PRAGMA journal_mode = WAL;") == SQLITE_OK;
  made = sqlite3_close(db) == SQLITE_OK && made;
  // A user's hive is private; the system hive is for every user to read.
  made = made && ::chmod(temporary.c_str(), mPrivate ? 0600 : 0644) == 0;
  if (made) SyncPath(temporary);
  made = made && (::link(temporary.c_str(), mPath.c_str()) == 0 || errno == EEXIST);
  ::unlink(temporary.c_str());
  if (made) SyncPath(VxGetDirectory(mPath));
  return made;
}

void Hive::Recover(std::string const & problem) {
  auto const unusable = [&](std::string const & why) {
    AddNotice(ExceptionMessage::translate(
                  "The registry hive {1} is damaged ({2}) and could not be replaced. Its "
                  "settings are not available and changes to them cannot be kept.") %
                  mPath % why,
              mPath);
  };
  std::string aside;
  {
    CreationLock lock(mPath);
    if (!lock.Held()) return unusable(problem);
    // Move the file aside only if it is still the one found damaged: another
    // process may have replaced it by a new hive meanwhile.
    struct stat now {};
    if (::stat(mPath.c_str(), &now) == 0 && now.st_dev == mFileDevice && now.st_ino == mFileInode) {
      aside = vx3::DamagedCopyName(mPath);
      if (::rename(mPath.c_str(), aside.c_str()) != 0) return unusable(problem);
      // The log and index of the old file must never meet the new one: kept
      // beside it, or else removed, or else no new hive is made.
      for (char const * suffix : {"-wal", "-shm"}) {
        std::string const from = mPath + suffix;
        if (VxFileExist(from) == VxNothing) continue;
        if (::rename(from.c_str(), (aside + suffix).c_str()) != 0 && ::unlink(from.c_str()) != 0)
          return unusable(problem);
      }
    }
    if (!CreateFileLocked()) return unusable(problem);
  }
  if (!aside.empty()) {
    AddNotice(ExceptionMessage::translate(
                  "The registry hive {1} was damaged ({2}). It was kept as {3} and a new, "
                  "empty hive was made.") %
                  mPath % problem % aside,
              mPath);
  }
  std::string again;
  if (OpenFile(again) == Opening::Opened) {
    mState = State::Open;
    return;
  }
  unusable(again.empty() ? problem : again);
}

void Hive::Close() {
  for (Statement * statement :
       {&mFindChild,        &mInsertKey,      &mKeyExists,   &mHasSubKeys,  &mDeleteKeyRow,
        &mDeleteKeyValues,  &mQueryValue,     &mUpsertValue, &mDeleteValue, &mEnumKey,
        &mEnumValue,        &mCountKeys,      &mCountValues, &mSubKeys,     &mValues,
        &mDeleteTreeValues, &mDeleteTreeKeys, &mBegin,       &mCommit,      &mRollback,
        &mSavepoint,        &mRelease,        &mRollbackTo})
    statement->Finalize();
  if (mDb != nullptr) sqlite3_close_v2(mDb);
  mDb = nullptr;
}

bool Hive::PrepareStatements() {
  struct Prepared {
    Statement * statement;
    char const * sql;
  };
  Prepared const all[] = {
      {&mFindChild, "SELECT id FROM keys WHERE parent = ?1 AND folded = ?2"},
      {&mInsertKey, "INSERT INTO keys(parent, name, folded) VALUES(?1, ?2, ?3)"},
      {&mKeyExists, "SELECT 1 FROM keys WHERE id = ?1"},
      {&mHasSubKeys, "SELECT 1 FROM keys WHERE parent = ?1 LIMIT 1"},
      {&mDeleteKeyRow, "DELETE FROM keys WHERE id = ?1"},
      {&mDeleteKeyValues, "DELETE FROM vals WHERE key = ?1"},
      {&mQueryValue, "SELECT type, data FROM vals WHERE key = ?1 AND folded = ?2"},
      {&mUpsertValue,
       "INSERT INTO vals(key, name, folded, type, data) VALUES(?1, ?2, ?3, ?4, ?5) "
       "ON CONFLICT(key, folded) DO UPDATE SET type = excluded.type, data = excluded.data"},
      {&mDeleteValue, "DELETE FROM vals WHERE key = ?1 AND folded = ?2"},
      {&mEnumKey, "SELECT name FROM keys WHERE parent = ?1 ORDER BY folded LIMIT 1 OFFSET ?2"},
      {&mEnumValue,
       "SELECT name, type, data FROM vals WHERE key = ?1 "
       "ORDER BY id LIMIT 1 OFFSET ?2"},
      {&mCountKeys, "SELECT count(*), coalesce(max(length(name)), 0) FROM keys WHERE parent = ?1"},
      {&mCountValues,
       "SELECT count(*), coalesce(max(length(name)), 0), coalesce(max(length(data)), 0) "
       "FROM vals WHERE key = ?1"},
      {&mSubKeys, "SELECT id, name FROM keys WHERE parent = ?1 ORDER BY folded"},
      {&mValues, "SELECT name, type, data FROM vals WHERE key = ?1 ORDER BY id"},
      {&mDeleteTreeValues,
       "WITH RECURSIVE tree(id) AS (SELECT ?1 UNION ALL "
       "SELECT keys.id FROM keys JOIN tree ON keys.parent = tree.id) "
       "DELETE FROM vals WHERE key IN (SELECT id FROM tree)"},
      {&mDeleteTreeKeys,
       "WITH RECURSIVE tree(id) AS (SELECT id FROM keys WHERE parent = ?1 UNION ALL "
       "SELECT keys.id FROM keys JOIN tree ON keys.parent = tree.id) "
       "DELETE FROM keys WHERE id IN (SELECT id FROM tree)"},
      {&mBegin, "BEGIN IMMEDIATE"},
      {&mCommit, "COMMIT"},
      {&mRollback, "ROLLBACK"},
      {&mSavepoint, "SAVEPOINT change"},
      {&mRelease, "RELEASE change"},
      {&mRollbackTo, "ROLLBACK TO change"},
  };
  for (Prepared const & each : all)
    if (each.statement->Prepare(mDb, each.sql) != SQLITE_OK) return false;
  return true;
}

int Hive::Execute(char const * sql) { return ExecuteScript(mDb, sql); }

int Hive::BusyHandler(void * self, int count) {
  auto * hive = static_cast<Hive *>(self);
  auto const now = std::chrono::steady_clock::now();
  if (count == 0) hive->mBusySince = now;
  if (now - hive->mBusySince > kBusyTimeout) return 0;
  // Short waits first: a writer holds the hive for well under a millisecond.
  std::this_thread::sleep_for(std::chrono::microseconds(std::min(20 * (count + 1), 2000)));
  return 1;
}

bool Hive::KeyExists(KeyId key) {
  StatementUse query(mKeyExists);
  query->Bind(1, key);
  return query->Step() == SQLITE_ROW;
}

LONG Hive::Missing(KeyId key, LONG otherwise) {
  return KeyExists(key) ? otherwise : ERROR_KEY_DELETED;
}

LONG Hive::FindChild(KeyId parent, std::string const & folded, KeyId & child) {
  StatementUse query(mFindChild);
  query->Bind(1, parent).Bind(2, folded);
  int const rc = query->Step();
  if (rc == SQLITE_ROW) {
    child = query->Int(0);
    return ERROR_SUCCESS;
  }
  return rc == SQLITE_DONE ? ERROR_FILE_NOT_FOUND : Win32CodeOf(rc);
}

template <typename Change>
LONG Hive::Write(Change change) {
  std::lock_guard<std::recursive_mutex> lock(mMutex);
  EnsureOpen();
  if (mState != State::Open || !mWritable) return ERROR_ACCESS_DENIED;
  if (!mInBatch) {
    if (RegistryTransaction * transaction = RegistryTransaction::Current()) {
      LONG const joined = transaction->Join(*this);
      if (joined != ERROR_SUCCESS) return joined;
    }
  }
  auto const run = [](Statement & statement) {
    int const rc = statement.Step();
    statement.Reset();
    return rc;
  };
  if (mInBatch) {
    int const rc = run(mSavepoint);
    if (rc != SQLITE_DONE) return Win32CodeOf(rc);
    LONG const result = change();
    if (result != ERROR_SUCCESS) run(mRollbackTo);
    run(mRelease);
    return result;
  }
  int rc = run(mBegin);
  if (rc != SQLITE_DONE) return Win32CodeOf(rc);
  LONG result = change();
  if (result == ERROR_SUCCESS) {
    rc = run(mCommit);
    if (rc == SQLITE_DONE) return ERROR_SUCCESS;
    result = Win32CodeOf(rc);
  }
  run(mRollback);
  return result;
}

LONG Hive::OpenPath(KeyId from, std::vector<Name> const & path, KeyId & key) {
  std::lock_guard<std::recursive_mutex> lock(mMutex);
  EnsureOpen();
  if (mState != State::Open) {
    if (from != kRootKey) return ERROR_KEY_DELETED;
    if (!path.empty()) return ERROR_FILE_NOT_FOUND;
    key = from;
    return ERROR_SUCCESS;
  }
  KeyId current = from;
  for (Name const & element : path) {
    KeyId child = 0;
    LONG const rc = FindChild(current, element.folded, child);
    if (rc == ERROR_FILE_NOT_FOUND && current == from) return Missing(from, rc);
    if (rc != ERROR_SUCCESS) return rc;
    current = child;
  }
  if (path.empty() && !KeyExists(from)) return ERROR_KEY_DELETED;
  key = current;
  return ERROR_SUCCESS;
}

LONG Hive::CreatePath(KeyId from, std::vector<Name> const & path, KeyId & key, bool & created) {
  std::lock_guard<std::recursive_mutex> lock(mMutex);
  created = false;
  // Most creates find the key: that needs no write lock.
  LONG const found = OpenPath(from, path, key);
  if (found != ERROR_FILE_NOT_FOUND) return found;
  return Write([&]() -> LONG {
    if (!KeyExists(from)) return ERROR_KEY_DELETED;
    KeyId current = from;
    for (Name const & element : path) {
      KeyId child = 0;
      LONG const rc = FindChild(current, element.folded, child);
      created = rc == ERROR_FILE_NOT_FOUND;
      if (created) {
        StatementUse insert(mInsertKey);
        insert->Bind(1, current).Bind(2, element.text).Bind(3, element.folded);
        int const inserted = insert->Step();
        if (inserted != SQLITE_DONE) return Win32CodeOf(inserted);
        child = sqlite3_last_insert_rowid(mDb);
      } else if (rc != ERROR_SUCCESS) {
        return rc;
      }
      current = child;
    }
    key = current;
    return ERROR_SUCCESS;
  });
}

LONG Hive::QueryValue(KeyId key, std::string const & folded, DWORD & type, std::string & data) {
  std::lock_guard<std::recursive_mutex> lock(mMutex);
  EnsureOpen();
  if (mState != State::Open) return key == kRootKey ? ERROR_FILE_NOT_FOUND : ERROR_KEY_DELETED;
  StatementUse query(mQueryValue);
  query->Bind(1, key).Bind(2, folded);
  int const rc = query->Step();
  if (rc == SQLITE_ROW) {
    type = static_cast<DWORD>(query->Int(0));
    data = query->Blob(1);
    return ERROR_SUCCESS;
  }
  return rc == SQLITE_DONE ? Missing(key, ERROR_FILE_NOT_FOUND) : Win32CodeOf(rc);
}

LONG Hive::SetValue(KeyId key, Name const & name, DWORD type, void const * data, size_t size) {
  return Write([&]() -> LONG {
    if (!KeyExists(key)) return ERROR_KEY_DELETED;
    StatementUse upsert(mUpsertValue);
    upsert->Bind(1, key).Bind(2, name.text).Bind(3, name.folded).Bind(4, type);
    upsert->BindBlob(5, data, size);
    int const rc = upsert->Step();
    return rc == SQLITE_DONE ? ERROR_SUCCESS : Win32CodeOf(rc);
  });
}

LONG Hive::DeleteValue(KeyId key, std::string const & folded) {
  return Write([&]() -> LONG {
    if (!KeyExists(key)) return ERROR_KEY_DELETED;
    StatementUse remove(mDeleteValue);
    remove->Bind(1, key).Bind(2, folded);
    int const rc = remove->Step();
    if (rc != SQLITE_DONE) return Win32CodeOf(rc);
    return sqlite3_changes(mDb) > 0 ? ERROR_SUCCESS : ERROR_FILE_NOT_FOUND;
  });
}

LONG Hive::DeleteKey(KeyId key) {
  return Write([&]() -> LONG {
    if (key == kRootKey) return ERROR_ACCESS_DENIED;
    if (!KeyExists(key)) return ERROR_KEY_DELETED;
    {
      StatementUse children(mHasSubKeys);
      children->Bind(1, key);
      int const rc = children->Step();
      if (rc == SQLITE_ROW) return ERROR_ACCESS_DENIED;
      if (rc != SQLITE_DONE) return Win32CodeOf(rc);
    }
    for (Statement * statement : {&mDeleteKeyValues, &mDeleteKeyRow}) {
      StatementUse remove(*statement);
      remove->Bind(1, key);
      int const rc = remove->Step();
      if (rc != SQLITE_DONE) return Win32CodeOf(rc);
    }
    return ERROR_SUCCESS;
  });
}

LONG Hive::DeleteTree(KeyId key, bool withKey) {
  return Write([&]() -> LONG {
    if (!KeyExists(key)) return ERROR_KEY_DELETED;
    if (withKey && key == kRootKey) return ERROR_ACCESS_DENIED;
    std::vector<Statement *> steps = {&mDeleteTreeValues, &mDeleteTreeKeys};
    if (withKey) steps.push_back(&mDeleteKeyRow);
    for (Statement * statement : steps) {
      StatementUse remove(*statement);
      remove->Bind(1, key);
      int const rc = remove->Step();
      if (rc != SQLITE_DONE) return Win32CodeOf(rc);
    }
    return ERROR_SUCCESS;
  });
}

LONG Hive::EnumKey(KeyId key, DWORD index, std::string & name) {
  std::lock_guard<std::recursive_mutex> lock(mMutex);
  EnsureOpen();
  if (mState != State::Open) return key == kRootKey ? ERROR_NO_MORE_ITEMS : ERROR_KEY_DELETED;
  StatementUse query(mEnumKey);
  query->Bind(1, key).Bind(2, static_cast<int64_t>(index));
  int const rc = query->Step();
  if (rc == SQLITE_ROW) {
    name = query->Text(0);
    return ERROR_SUCCESS;
  }
  return rc == SQLITE_DONE ? Missing(key, ERROR_NO_MORE_ITEMS) : Win32CodeOf(rc);
}

LONG Hive::EnumValue(KeyId key, DWORD index, StoredValue & value) {
  std::lock_guard<std::recursive_mutex> lock(mMutex);
  EnsureOpen();
  if (mState != State::Open) return key == kRootKey ? ERROR_NO_MORE_ITEMS : ERROR_KEY_DELETED;
  StatementUse query(mEnumValue);
  query->Bind(1, key).Bind(2, static_cast<int64_t>(index));
  int const rc = query->Step();
  if (rc == SQLITE_ROW) {
    value.name = query->Text(0);
    value.type = static_cast<DWORD>(query->Int(1));
    value.data = query->Blob(2);
    return ERROR_SUCCESS;
  }
  return rc == SQLITE_DONE ? Missing(key, ERROR_NO_MORE_ITEMS) : Win32CodeOf(rc);
}

LONG Hive::QueryCounts(KeyId key, KeyCounts & counts) {
  std::lock_guard<std::recursive_mutex> lock(mMutex);
  EnsureOpen();
  counts = KeyCounts();
  if (mState != State::Open) return key == kRootKey ? ERROR_SUCCESS : ERROR_KEY_DELETED;
  {
    StatementUse query(mCountKeys);
    query->Bind(1, key);
    int const rc = query->Step();
    if (rc != SQLITE_ROW) return Win32CodeOf(rc);
    counts.subKeys = static_cast<DWORD>(query->Int(0));
    counts.maxSubKeyLength = static_cast<DWORD>(query->Int(1));
  }
  {
    StatementUse query(mCountValues);
    query->Bind(1, key);
    int const rc = query->Step();
    if (rc != SQLITE_ROW) return Win32CodeOf(rc);
    counts.values = static_cast<DWORD>(query->Int(0));
    counts.maxValueNameLength = static_cast<DWORD>(query->Int(1));
    counts.maxValueSize = static_cast<DWORD>(query->Int(2));
  }
  return counts.subKeys == 0 && counts.values == 0 ? Missing(key, ERROR_SUCCESS) : ERROR_SUCCESS;
}

LONG Hive::SubKeys(KeyId key, std::vector<StoredKey> & keys) {
  std::lock_guard<std::recursive_mutex> lock(mMutex);
  EnsureOpen();
  keys.clear();
  if (mState != State::Open) return key == kRootKey ? ERROR_SUCCESS : ERROR_KEY_DELETED;
  StatementUse query(mSubKeys);
  query->Bind(1, key);
  int rc;
  while ((rc = query->Step()) == SQLITE_ROW) keys.push_back({query->Int(0), query->Text(1)});
  if (rc != SQLITE_DONE) return Win32CodeOf(rc);
  return keys.empty() ? Missing(key, ERROR_SUCCESS) : ERROR_SUCCESS;
}

LONG Hive::Values(KeyId key, std::vector<StoredValue> & values) {
  std::lock_guard<std::recursive_mutex> lock(mMutex);
  EnsureOpen();
  values.clear();
  if (mState != State::Open) return key == kRootKey ? ERROR_SUCCESS : ERROR_KEY_DELETED;
  StatementUse query(mValues);
  query->Bind(1, key);
  int rc;
  while ((rc = query->Step()) == SQLITE_ROW)
    values.push_back({query->Text(0), static_cast<DWORD>(query->Int(1)), query->Blob(2)});
  if (rc != SQLITE_DONE) return Win32CodeOf(rc);
  return values.empty() ? Missing(key, ERROR_SUCCESS) : ERROR_SUCCESS;
}

LONG Hive::Flush() {
  std::lock_guard<std::recursive_mutex> lock(mMutex);
  EnsureOpen();
  if (mState != State::Open || !mWritable) return ERROR_SUCCESS;
  // Committed changes not yet checkpointed live in the WAL file: syncing it
  // makes them durable (checkpoints sync the database file themselves).
  int const fd = ::open((mPath + "-wal").c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) return ERROR_SUCCESS;
  bool const synced = ::fsync(fd) == 0;
  ::close(fd);
  return synced ? ERROR_SUCCESS : ERROR_REGISTRY_IO_FAILED;
}

LONG Hive::BeginBatch() {
  mMutex.lock();
  EnsureOpen();
  if (mState != State::Open || !mWritable) {
    mMutex.unlock();
    return ERROR_ACCESS_DENIED;
  }
  int const rc = mBegin.Step();
  mBegin.Reset();
  if (rc != SQLITE_DONE) {
    mMutex.unlock();
    return Win32CodeOf(rc);
  }
  mInBatch = true;
  return ERROR_SUCCESS;
}

LONG Hive::EndBatch(bool commit) {
  LONG result = ERROR_SUCCESS;
  if (commit) {
    int const rc = mCommit.Step();
    mCommit.Reset();
    if (rc != SQLITE_DONE) result = Win32CodeOf(rc);
  }
  if (!commit || result != ERROR_SUCCESS) {
    mRollback.Step();
    mRollback.Reset();
  }
  mInBatch = false;
  mMutex.unlock();
  return result;
}

}  // namespace registry
