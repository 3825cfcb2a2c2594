#pragma once
// One hive: a tree of keys holding typed values, in one SQLite database that
// several processes use at once.
//
// The database runs in WAL mode with synchronous=NORMAL: every change is one
// transaction, atomic and safe from a process killed at any moment, and seen
// by every process as soon as it is committed; RegFlushKey makes it safe from
// a crash of the machine too, as on Windows. Writers wait for each other
// through a busy handler (up to kBusyTimeout) and readers never wait.
//
// The hive is opened on first use. A file that is missing is created (as a
// temporary file beside it, moved into place when complete). A file that is
// no hive (not SQLite, damaged, another schema) is moved aside, never
// deleted, a notice is given (RegistryNotices.h) and a new hive is made; a
// process that may not do so works on an empty hive that it cannot change.
// Who may write the file may change the hive; everyone else gets
// ERROR_ACCESS_DENIED for every change.
//
// All operations take key ids (rows of the hive) and names already parsed,
// and return Win32 codes; a key deleted since its id was found gives
// ERROR_KEY_DELETED. Thread-safe.

#include <sqlite3.h>
#include <sys/types.h>

#include <chrono>
#include <cstdint>
#include <mutex>
#include <string>
#include <vector>

#include "platform/RegistryName.h"
#include "platform/RegistryStatement.h"
#include "platform/WinTypes.h"

namespace registry {

using KeyId = int64_t;
constexpr KeyId kRootKey = 1;

struct KeyCounts {
  DWORD subKeys = 0;
  DWORD maxSubKeyLength = 0;  // characters
  DWORD values = 0;
  DWORD maxValueNameLength = 0;  // characters
  DWORD maxValueSize = 0;        // bytes
};

struct StoredKey {
  KeyId id = 0;
  std::string name;
};

struct StoredValue {
  std::string name;
  DWORD type = 0;
  std::string data;
};

class Hive {
public:
  static constexpr std::chrono::seconds kBusyTimeout{30};

  // `privateToUser`: the file is made readable by its owner only.
  Hive(std::string path, bool privateToUser);
  ~Hive();
  Hive(Hive const &) = delete;
  Hive & operator=(Hive const &) = delete;

  std::string const & Path() const { return mPath; }
  // Whether this process may change the hive.
  bool IsWritable();

  LONG OpenPath(KeyId from, std::vector<Name> const & path, KeyId & key);
  // Opens the path, creating what is missing; `created` tells whether the
  // last element was made.
  LONG CreatePath(KeyId from, std::vector<Name> const & path, KeyId & key, bool & created);

  LONG QueryValue(KeyId key, std::string const & folded, DWORD & type, std::string & data);
  LONG SetValue(KeyId key, Name const & name, DWORD type, void const * data, size_t size);
  LONG DeleteValue(KeyId key, std::string const & folded);

  // Removes a key that has no sub-keys (ERROR_ACCESS_DENIED otherwise, and
  // for the root), with its values.
  LONG DeleteKey(KeyId key);
  // Removes everything below `key` and, with `withKey`, the key itself.
  LONG DeleteTree(KeyId key, bool withKey);

  // The sub-key or value at `index` in enumeration order; ERROR_NO_MORE_ITEMS
  // past the end.
  LONG EnumKey(KeyId key, DWORD index, std::string & name);
  LONG EnumValue(KeyId key, DWORD index, StoredValue & value);
  LONG QueryCounts(KeyId key, KeyCounts & counts);
  // Every sub-key (sorted) or value (in creation order) in one read.
  LONG SubKeys(KeyId key, std::vector<StoredKey> & keys);
  LONG Values(KeyId key, std::vector<StoredValue> & values);

  // Makes what is committed durable on disk.
  LONG Flush();

  // A transaction over several operations of this thread (see
  // RegistryTransaction): other threads wait until it ends.
  LONG BeginBatch();
  LONG EndBatch(bool commit);

private:
  enum class State { Unopened, Open, Absent };
  // Busy: another process held a lock that SQLite would not wait for (two
  // openers upgrading their locks at once); opening again is right.
  enum class Opening { Opened, Damaged, Unusable, Busy };

  void EnsureOpen();
  // Damaged: `problem` says why the file is no hive. Unusable: it could not
  // be read at all, which is no reason to move it aside.
  Opening OpenFile(std::string & problem);
  // Both under the creation lock ("<hive>.lock").
  bool CreateFile();
  bool CreateFileLocked();
  void Recover(std::string const & problem);
  void Close();
  bool PrepareStatements();
  int Execute(char const * sql);
  static int BusyHandler(void * hive, int count);

  bool KeyExists(KeyId key);
  LONG Missing(KeyId key, LONG otherwise);
  LONG FindChild(KeyId parent, std::string const & folded, KeyId & child);
  // Runs `change` as one transaction (a savepoint inside a batch).
  template <typename Change>
  LONG Write(Change change);

  std::string const mPath;
  bool const mPrivate;
  std::recursive_mutex mMutex;
  State mState = State::Unopened;
  bool mWritable = false;
  bool mInBatch = false;
  sqlite3 * mDb = nullptr;
  dev_t mFileDevice = 0;  // the file last opened, to recognise it later
  ino_t mFileInode = 0;
  std::chrono::steady_clock::time_point mBusySince;

  Statement mFindChild, mInsertKey, mKeyExists, mHasSubKeys, mDeleteKeyRow, mDeleteKeyValues;
  Statement mQueryValue, mUpsertValue, mDeleteValue;
  Statement mEnumKey, mEnumValue, mCountKeys, mCountValues, mSubKeys, mValues;
  Statement mDeleteTreeValues, mDeleteTreeKeys;
  Statement mBegin, mCommit, mRollback, mSavepoint, mRelease, mRollbackTo;
};

}  // namespace registry
