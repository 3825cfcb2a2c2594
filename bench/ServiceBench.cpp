// The event log and the service host:
// - WriteEntry with two strings beside the bare send of the same fields.
//   With a journal on this machine that is sd_journal_sendv on the journal's
//   socket; without one both go to a socket bound here, the baseline sending
//   the prepared fields in place as sd_journal_sendv does. A thread reads the
//   socket all the while, as journald would. (The event log keeps its own
//   socket connected, so there it is spared the baseline's path look-up.)
// - From SIGTERM to the STOPPING=1 record, read on a notify socket bound
//   here, for talvo-sample-service started afresh for every measurement,
//   beside a bare process that answers the signal and nothing else.
#include <benchmark/benchmark.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/signalfd.h>
#include <sys/socket.h>
#include <sys/uio.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <systemd/sd-daemon.h>
#include <systemd/sd-journal.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "Figures.h"
#include "service/EventLog.h"
#include "service/JournalWriter.h"
#include "utl/Paths.h"

extern char ** environ;

namespace {

TALVO_RATIO_LIMIT("WriteEntry", 1.1);
TALVO_TIME_LIMIT("ServiceStopSignal", 1e6);

std::string TempPath(std::string const & name) {
  char const * tmp = std::getenv("TMPDIR");
  return std::string(tmp != nullptr ? tmp : "/tmp") + "/" + name;
}

int BindDatagram(std::string const & path) {
  ::unlink(path.c_str());
  int const fd = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::snprintf(address.sun_path, sizeof address.sun_path, "%s", path.c_str());
  if (::bind(fd, reinterpret_cast<sockaddr *>(&address), sizeof address) != 0) {
    ::close(fd);
    return -1;
  }
  return fd;
}

// A socket standing in for the journal, read by a thread of its own.
class JournalStandIn {
public:
  JournalStandIn() : mPath(TempPath("bench-journal-socket")), mSocket(BindDatagram(mPath)) {
    mReader = std::thread([this] {
      char buffer[65536];
      pollfd wait{mSocket, POLLIN, 0};
      while (!mStop)
        if (::poll(&wait, 1, 20) == 1)
          benchmark::DoNotOptimize(::recv(mSocket, buffer, sizeof buffer, 0));
    });
  }
  ~JournalStandIn() {
    mStop = true;
    mReader.join();
    ::close(mSocket);
    ::unlink(mPath.c_str());
  }
  std::string const & Path() const { return mPath; }

private:
  std::string mPath;
  int mSocket;
  std::atomic<bool> mStop{false};
  std::thread mReader;
};

bool RealJournal() { return ::access(JournalWriter::DefaultSocket(), F_OK) == 0; }

std::vector<std::string> const kStrings = {"pump 3", "pressure over limit"};

void WriteEntry_candidate(benchmark::State & state) {
  std::unique_ptr<JournalStandIn> standIn;
  if (!RealJournal()) standIn = std::make_unique<JournalStandIn>();
  EventLog log(L"Bench", std::make_shared<JournalWriter>(standIn ? standIn->Path()
                                                                 : JournalWriter::DefaultSocket()));
  for (auto _ : state) log.WriteEntry(kStrings, 7, EventLog::Warning);
}
BENCHMARK(WriteEntry_candidate)->Name("WriteEntry/candidate");

void WriteEntry_baseline(benchmark::State & state) {
  std::vector<std::string> const fields = {"MESSAGE=Event 7: pump 3; pressure over limit",
                                           "PRIORITY=4",
                                           "SYSLOG_IDENTIFIER=Bench",
                                           "EVENT_ID=7",
                                           "EVENT_TYPE=2",
                                           "EVENT_CATEGORY=0",
                                           "EVENT_LOG=Application",
                                           "EVENT_STRING_1=pump 3",
                                           "EVENT_STRING_2=pressure over limit",
                                           "USER_SID=S-1-22-1-0"};
  if (RealJournal()) {
    std::vector<iovec> vector;
    vector.reserve(fields.size());
    for (auto const & field : fields)
      vector.push_back({const_cast<char *>(field.data()), field.size()});
    for (auto _ : state)
      benchmark::DoNotOptimize(::sd_journal_sendv(vector.data(), static_cast<int>(vector.size())));
    return;
  }
  JournalStandIn standIn;
  int const fd = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::snprintf(address.sun_path, sizeof address.sun_path, "%s", standIn.Path().c_str());
  static char newline = '\n';
  for (auto _ : state) {
    std::vector<iovec> parts;
    parts.reserve(fields.size() * 2);
    for (auto const & field : fields) {
      parts.push_back({const_cast<char *>(field.data()), field.size()});
      parts.push_back({&newline, 1});
    }
    msghdr message{};
    message.msg_name = &address;
    message.msg_namelen = sizeof address;
    message.msg_iov = parts.data();
    message.msg_iovlen = parts.size();
    benchmark::DoNotOptimize(::sendmsg(fd, &message, MSG_NOSIGNAL));
  }
  ::close(fd);
}
BENCHMARK(WriteEntry_baseline)->Name("WriteEntry/baseline");

// The STOPPING=1 record's arrival after SIGTERM, timed by hand: starting and
// ending the service lie outside the measurement.
void ServiceStopSignal_candidate(benchmark::State & state) {
  std::string const socketPath = TempPath("bench-notify-socket");
  int const notify = BindDatagram(socketPath);
  std::string const program = VxGetExecutableDirectory() + "/talvo-sample-service";
  std::string const variable = "NOTIFY_SOCKET=" + socketPath;
  std::vector<char *> environment;
  for (char ** at = environ; *at != nullptr; ++at)
    if (std::strncmp(*at, "NOTIFY_SOCKET=", 14) != 0) environment.push_back(*at);
  environment.push_back(const_cast<char *>(variable.c_str()));
  environment.push_back(nullptr);
  char buffer[4096];
  auto receive = [&]() -> std::string {
    pollfd wait{notify, POLLIN, 0};
    if (::poll(&wait, 1, 10000) != 1) return {};
    ssize_t const got = ::recv(notify, buffer, sizeof buffer, 0);
    return std::string(buffer, got > 0 ? static_cast<size_t>(got) : 0);
  };
  for (auto _ : state) {
    pid_t pid = -1;
    char * argv[] = {const_cast<char *>(program.c_str()), nullptr};
    if (::posix_spawn(&pid, argv[0], nullptr, nullptr, argv, environment.data()) != 0) {
      state.SkipWithError("talvo-sample-service did not start");
      break;
    }
    while (true) {
      std::string const record = receive();
      if (record.empty() || record.find("READY=1") != std::string::npos) break;
    }
    // A stop comes to a settled service, not to one still writing its first
    // event: give it that moment, outside the measurement.
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    auto const sent = std::chrono::steady_clock::now();
    ::kill(pid, SIGTERM);
    std::string record;
    do record = receive();
    while (!record.empty() && record.find("STOPPING=1") == std::string::npos);
    auto const arrived = std::chrono::steady_clock::now();
    state.SetIterationTime(std::chrono::duration<double>(arrived - sent).count());
    while (!receive().empty() && ::waitpid(pid, nullptr, WNOHANG) == 0) {}
    ::waitpid(pid, nullptr, 0);
    if (record.empty()) {
      state.SkipWithError("no STOPPING=1 came");
      break;
    }
  }
  ::close(notify);
  ::unlink(socketPath.c_str());
}
BENCHMARK(ServiceStopSignal_candidate)
    ->Name("ServiceStopSignal/candidate")
    ->UseManualTime()
    ->Iterations(50);

// The bare round trip: a forked process that reads SIGTERM from a signalfd
// and sends STOPPING=1 at once, timed the same way (it shows what the
// machine's scheduling costs while the figure is taken).
void ServiceStopSignal_baseline(benchmark::State & state) {
  std::string const socketPath = TempPath("bench-notify-bare");
  int const notify = BindDatagram(socketPath);
  ::setenv("NOTIFY_SOCKET", socketPath.c_str(), 1);
  sigset_t set;
  sigemptyset(&set);
  sigaddset(&set, SIGTERM);
  sigset_t former;
  ::pthread_sigmask(SIG_BLOCK, &set, &former);
  char buffer[256];
  for (auto _ : state) {
    pid_t const pid = ::fork();
    if (pid == 0) {
      int const signals = ::signalfd(-1, &set, SFD_CLOEXEC);
      ::sd_notify(0, "READY=1");
      signalfd_siginfo info{};
      if (::read(signals, &info, sizeof info) > 0) ::sd_notify(0, "STOPPING=1");
      ::_exit(0);
    }
    pollfd wait{notify, POLLIN, 0};
    if (::poll(&wait, 1, 10000) == 1) ::recv(notify, buffer, sizeof buffer, 0);
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    auto const sent = std::chrono::steady_clock::now();
    ::kill(pid, SIGTERM);
    if (::poll(&wait, 1, 10000) == 1) ::recv(notify, buffer, sizeof buffer, 0);
    auto const arrived = std::chrono::steady_clock::now();
    state.SetIterationTime(std::chrono::duration<double>(arrived - sent).count());
    ::waitpid(pid, nullptr, 0);
  }
  ::pthread_sigmask(SIG_SETMASK, &former, nullptr);
  ::unsetenv("NOTIFY_SOCKET");
  ::close(notify);
  ::unlink(socketPath.c_str());
}
BENCHMARK(ServiceStopSignal_baseline)
    ->Name("ServiceStopSignal/baseline")
    ->UseManualTime()
    ->Iterations(50);

}  // namespace
