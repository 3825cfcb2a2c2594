#pragma once
// Where event-log entries go: the journal, by its native protocol, or the
// system log when no journal listens.
//
// At the default socket (/run/systemd/journal/socket) the fields go through
// sd_journal_sendv. That call reports success when nothing listens, so the
// socket's existence is checked first; without it the message text goes to
// syslog(3). Any other socket path (a journal namespace's,
// /run/systemd/journal.<namespace>/socket, which sd_journal_sendv cannot
// reach) is written by this class in the same protocol: a datagram of
// "NAME=value\n" fields, a value with a newline in the binary form
// "NAME\n" + 64-bit little-endian length + value + "\n".

#include <sys/uio.h>
#include <sys/un.h>

#include <chrono>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

namespace VxJournal {
class EntryFields;
}

class JournalWriter {
public:
  static char const * DefaultSocket() { return "/run/systemd/journal/socket"; }
  // syslog(priority, "%s", text) by default.
  using SyslogFunction = std::function<void(int priority, char const * text)>;

  explicit JournalWriter(std::string socketPath = DefaultSocket(), SyslogFunction syslog = {});
  ~JournalWriter();
  JournalWriter(JournalWriter const &) = delete;
  JournalWriter & operator=(JournalWriter const &) = delete;

  // Sends the entry's fields. Without a journal the system log gets
  // "<identifier>: <message>" at the entry's priority. True when the
  // journal took the entry, false when it went to the system log.
  // Writers may share one JournalWriter from several threads.
  bool Write(VxJournal::EntryFields const & entry);

  // The datagram of the native protocol for `fields` ("NAME=value" each),
  // as sent.
  static std::string EncodeDatagram(iovec const * fields, size_t count);

private:
  bool Connect();
  bool SendDatagram(VxJournal::EntryFields const & entry);
  bool JournalListens();

  std::string mSocketPath;
  bool mDefaultSocket;
  sockaddr_un mAddress{};
  SyslogFunction mSyslog;
  std::mutex mLock;  // guards what follows
  int mSocket = -1;
  std::vector<iovec> mParts;
  std::string mDatagram;
  std::chrono::steady_clock::time_point mListenedAt{};
};
