#include "platform/RegistryTransaction.h"

#include <algorithm>
#include <stdexcept>

#include "platform/RegistryHive.h"
#include "platform/WinError.h"

namespace {
thread_local RegistryTransaction * tCurrent = nullptr;
}

RegistryTransaction::RegistryTransaction() {
  if (tCurrent != nullptr) throw std::logic_error("a registry transaction is already open");
  tCurrent = this;
}

RegistryTransaction::~RegistryTransaction() {
  LONG ignored = ERROR_SUCCESS;
  End(false, ignored);
}

LONG RegistryTransaction::Commit() {
  LONG result = ERROR_SUCCESS;
  End(true, result);
  return result;
}

void RegistryTransaction::End(bool commit, LONG & result) {
  if (mOver) return;
  mOver = true;
  tCurrent = nullptr;
  for (registry::Hive * hive : mHives) {
    LONG const ended = hive->EndBatch(commit && result == ERROR_SUCCESS);
    if (result == ERROR_SUCCESS) result = ended;
  }
  mHives.clear();
}

RegistryTransaction * RegistryTransaction::Current() { return tCurrent; }

LONG RegistryTransaction::Join(registry::Hive & hive) {
  if (std::find(mHives.begin(), mHives.end(), &hive) != mHives.end()) return ERROR_SUCCESS;
  LONG const begun = hive.BeginBatch();
  if (begun == ERROR_SUCCESS) mHives.push_back(&hive);
  return begun;
}
