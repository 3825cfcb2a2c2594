// The registry store beside bare SQLite on the same hive file:
//  - RegistryReadInt: RegistrySection::ReadInt of an existing DWORD, beside a
//    prepared select of the same row.
//  - RegistryWriteValue: one committed write through RegistrySection, beside
//    a bare insert-or-replace in its own transaction.
//  - Registry4ProcessWrites: four processes writing 10,000 values each into
//    one hive at once, beside four processes doing bare insert-or-replace
//    transactions on one database; values_per_second is the throughput.
#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "Figures.h"
#include "platform/RegistryStore.h"
#include "settings/RegistrySection.h"
#include "utl/Paths.h"

extern char ** environ;

namespace {

TALVO_RATIO_LIMIT("RegistryReadInt", 2.0);
TALVO_RATIO_LIMIT("RegistryWriteValue", 1.5);

constexpr REGSAM kReadWrite = 0x2001F;

// A hive of the benchmarks' own, removed at exit.
class BenchHive {
public:
  static BenchHive & Instance() {
    static BenchHive hive;
    return hive;
  }

  std::string const & Folder() const { return mFolder; }
  std::string Path() const { return mFolder + "/user.db"; }
  RegistrySection & Section() { return *mSection; }

  // The hive's own row id of the section's key, for the bare statements.
  sqlite3_int64 KeyId() const { return mKeyId; }

  // A connection of its own to the hive file, set up as the store's.
  sqlite3 * Connection() {
    if (mDb == nullptr) {
      sqlite3_open_v2(Path().c_str(), &mDb, SQLITE_OPEN_READWRITE, nullptr);
      sqlite3_busy_timeout(mDb, 30000);
      sqlite3_exec(mDb, "PRAGMA synchronous = NORMAL", nullptr, nullptr, nullptr);
    }
    return mDb;
  }

private:
  BenchHive() {
    char const * tmp = std::getenv("TMPDIR");
    mFolder = std::string(tmp != nullptr ? tmp : "/tmp") + "/talvo-bench-registry-" +
              std::to_string(::getpid());
    std::filesystem::remove_all(mFolder);
    VxCreateFolder(mFolder);
    ::setenv("TALVO_REGISTRY_USER_HIVE", Path().c_str(), 1);
    registry::CloseHives();
    mSection = std::make_unique<RegistrySection>(HKEY_CURRENT_USER, "Software\\Karvinel\\Bench",
                                                 kReadWrite, true);
    mSection->WriteInt("Counter", 42);
    HKEY key = nullptr;
    RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Karvinel\\Bench", 0, KEY_READ, &key);
    registry::OpenKey found;
    registry::FindKey(key, found);
    mKeyId = found.id;
    RegCloseKey(key);
  }

  ~BenchHive() {
    mSection.reset();
    sqlite3_close(mDb);
    mDb = nullptr;
    registry::CloseHives();
    std::error_code ignored;
    std::filesystem::remove_all(mFolder, ignored);
  }

  std::string mFolder;
  std::unique_ptr<RegistrySection> mSection;
  sqlite3 * mDb = nullptr;
  sqlite3_int64 mKeyId = 0;
};

void RegistryReadInt_candidate(benchmark::State & state) {
  RegistrySection & section = BenchHive::Instance().Section();
  int value = 0;
  for (auto _ : state) {
    bool const read = section.ReadInt("Counter", value);
    benchmark::DoNotOptimize(read);
    benchmark::DoNotOptimize(value);
  }
  if (value != 42) state.SkipWithError("the value was not read");
}
BENCHMARK(RegistryReadInt_candidate)->Name("RegistryReadInt/candidate")->UseRealTime();

void RegistryReadInt_baseline(benchmark::State & state) {
  BenchHive & hive = BenchHive::Instance();
  sqlite3_stmt * select = nullptr;
  sqlite3_prepare_v2(hive.Connection(),
                     "SELECT type, data FROM vals WHERE key = ?1 AND folded = ?2", -1, &select,
                     nullptr);
  int value = 0;
  for (auto _ : state) {
    sqlite3_bind_int64(select, 1, hive.KeyId());
    sqlite3_bind_text(select, 2, "COUNTER", 7, SQLITE_STATIC);
    if (sqlite3_step(select) == SQLITE_ROW && sqlite3_column_int(select, 0) == 4 &&
        sqlite3_column_bytes(select, 1) == 4)
      std::memcpy(&value, sqlite3_column_blob(select, 1), 4);
    sqlite3_reset(select);
    benchmark::DoNotOptimize(value);
  }
  sqlite3_finalize(select);
  if (value != 42) state.SkipWithError("the row was not read");
}
BENCHMARK(RegistryReadInt_baseline)->Name("RegistryReadInt/baseline")->UseRealTime();

void RegistryWriteValue_candidate(benchmark::State & state) {
  RegistrySection & section = BenchHive::Instance().Section();
  int value = 0;
  bool written = true;
  for (auto _ : state) written = section.WriteInt("Written", ++value) && written;
  if (!written) state.SkipWithError("a write failed");
}
BENCHMARK(RegistryWriteValue_candidate)->Name("RegistryWriteValue/candidate")->UseRealTime();

// A bare insert-or-replace of a value row of the same shape, committed on
// its own, into a plain table of the same database (same file, same WAL,
// same synchronous setting).
void RegistryWriteValue_baseline(benchmark::State & state) {
  sqlite3 * db = BenchHive::Instance().Connection();
  sqlite3_exec(db,
               "CREATE TABLE IF NOT EXISTS bench(name TEXT PRIMARY KEY, type INTEGER, data BLOB) "
               "WITHOUT ROWID",
               nullptr, nullptr, nullptr);
  sqlite3_stmt * begin = nullptr;
  sqlite3_stmt * insert = nullptr;
  sqlite3_stmt * commit = nullptr;
  sqlite3_prepare_v2(db, "BEGIN IMMEDIATE", -1, &begin, nullptr);
  sqlite3_prepare_v2(db, "INSERT OR REPLACE INTO bench(name, type, data) VALUES(?1, 4, ?2)", -1,
                     &insert, nullptr);
  sqlite3_prepare_v2(db, "COMMIT", -1, &commit, nullptr);
  int value = 0;
  bool written = true;
  for (auto _ : state) {
    ++value;
    written = sqlite3_step(begin) == SQLITE_DONE && written;
    sqlite3_reset(begin);
    sqlite3_bind_text(insert, 1, "WRITTEN", 7, SQLITE_STATIC);
    sqlite3_bind_blob(insert, 2, &value, sizeof value, SQLITE_STATIC);
    written = sqlite3_step(insert) == SQLITE_DONE && written;
    sqlite3_reset(insert);
    written = sqlite3_step(commit) == SQLITE_DONE && written;
    sqlite3_reset(commit);
  }
  for (sqlite3_stmt * statement : {begin, insert, commit}) sqlite3_finalize(statement);
  if (!written) state.SkipWithError("a write failed");
}
BENCHMARK(RegistryWriteValue_baseline)->Name("RegistryWriteValue/baseline")->UseRealTime();

constexpr int kWriters = 4;
constexpr long kEach = 10000;

// Starts the four writers with `arguments` (after the program) plus their
// prefix and count, and waits for them; false if one failed.
bool RunWriters(std::vector<std::string> const & arguments) {
  std::string const program = VxGetExecutableDirectory() + "/talvo-bench-registry-writer";
  std::vector<pid_t> writers;
  for (int w = 0; w < kWriters; ++w) {
    std::vector<std::string> args = {program};
    args.insert(args.end(), arguments.begin(), arguments.end());
    args.push_back("w" + std::to_string(w) + "-");
    args.push_back(std::to_string(kEach));
    std::vector<char *> argv;
    argv.reserve(args.size() + 1);
    for (std::string & arg : args) argv.push_back(arg.data());
    argv.push_back(nullptr);
    pid_t pid = -1;
    if (posix_spawn(&pid, program.c_str(), nullptr, nullptr, argv.data(), environ) != 0)
      return false;
    writers.push_back(pid);
  }
  bool ok = true;
  for (pid_t pid : writers) {
    int status = 0;
    ::waitpid(pid, &status, 0);
    ok = ok && WIFEXITED(status) && WEXITSTATUS(status) == 0;
  }
  return ok;
}

void Report(benchmark::State & state, double seconds) {
  state.counters["values_per_second"] = kWriters * kEach / seconds;
}

void Registry4ProcessWrites_candidate(benchmark::State & state) {
  BenchHive & hive = BenchHive::Instance();
  for (auto _ : state) {
    RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Bench");
    auto const start = std::chrono::steady_clock::now();
    if (!RunWriters({"registry"})) state.SkipWithError("a writer failed");
    std::chrono::duration<double> const took = std::chrono::steady_clock::now() - start;
    state.SetIterationTime(took.count());
    Report(state, took.count());
  }
  // Every value is there.
  HKEY key = nullptr;
  DWORD values = 0;
  if (RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Bench", 0, KEY_READ, &key) == ERROR_SUCCESS)
    RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &values, nullptr,
                     nullptr, nullptr, nullptr);
  RegCloseKey(key);
  if (values != kWriters * kEach) state.SkipWithError("values were lost");
  benchmark::DoNotOptimize(hive.Folder());
}
BENCHMARK(Registry4ProcessWrites_candidate)
    ->Name("Registry4ProcessWrites/candidate")
    ->Iterations(1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

void Registry4ProcessWrites_baseline(benchmark::State & state) {
  std::string const file = BenchHive::Instance().Folder() + "/plain.db";
  for (auto _ : state) {
    state.PauseTiming();
    std::filesystem::remove(file);
    sqlite3 * db = nullptr;
    sqlite3_open(file.c_str(), &db);
    sqlite3_exec(db,
                 "PRAGMA journal_mode = WAL; CREATE TABLE vals(name TEXT PRIMARY KEY, type "
                 "INTEGER, data BLOB) WITHOUT ROWID",
                 nullptr, nullptr, nullptr);
    sqlite3_close(db);
    state.ResumeTiming();
    auto const start = std::chrono::steady_clock::now();
    if (!RunWriters({"sqlite", file})) state.SkipWithError("a writer failed");
    std::chrono::duration<double> const took = std::chrono::steady_clock::now() - start;
    state.SetIterationTime(took.count());
    Report(state, took.count());
  }
}
BENCHMARK(Registry4ProcessWrites_baseline)
    ->Name("Registry4ProcessWrites/baseline")
    ->Iterations(1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
