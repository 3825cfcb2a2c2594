#pragma once
// Several registry changes as one: while a RegistryTransaction lives, every
// change that its thread makes through the registry functions joins it, and
// nothing of them is seen by anyone else until Commit. Without Commit (an
// error, an exception) the destructor takes every change back.
//
//   RegistryTransaction transaction;
//   if (RegSetValueExW(...) != ERROR_SUCCESS) return;   // rolled back
//   transaction.Commit();
//
// A hive joins on its first change and stays locked for writing by other
// processes, and for use by other threads, until the end. A transaction over
// both hives commits them one after the other. One transaction a thread at a
// time.

#include <vector>

#include "platform/WinTypes.h"

namespace registry {
class Hive;
}

class RegistryTransaction {
public:
  // Throws std::logic_error if this thread already has one.
  RegistryTransaction();
  ~RegistryTransaction();
  RegistryTransaction(RegistryTransaction const &) = delete;
  RegistryTransaction & operator=(RegistryTransaction const &) = delete;

  // Commits every hive joined. ERROR_SUCCESS, or the code of the first that
  // failed (that hive and those after it are rolled back). The transaction
  // is over either way.
  LONG Commit();

  // The transaction of the calling thread, or null.
  static RegistryTransaction * Current();
  // Called by a hive on its first change inside the transaction.
  LONG Join(registry::Hive & hive);

private:
  void End(bool commit, LONG & result);

  std::vector<registry::Hive *> mHives;
  bool mOver = false;
};
