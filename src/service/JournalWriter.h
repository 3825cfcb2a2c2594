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

#include <functional>
#include <string>
#include <vector>

class JournalWriter {
public:
  static char const * DefaultSocket() { return "/run/systemd/journal/socket"; }
  // syslog(priority, "%s", text) by default.
  using SyslogFunction = std::function<void(int priority, char const * text)>;

  explicit JournalWriter(std::string socketPath = DefaultSocket(), SyslogFunction syslog = {});
  ~JournalWriter();
  JournalWriter(JournalWriter const &) = delete;
  JournalWriter & operator=(JournalWriter const &) = delete;

  // Sends the fields ("NAME=value", MESSAGE first). Without a journal the
  // system log gets "<source>: <message>" at `priority`. True when the
  // journal took the entry, false when it went to the system log.
  bool Write(std::vector<std::string> const & fields, int priority, std::string const & source);

  // The datagram of the native protocol for `fields`, as sent.
  static std::string EncodeDatagram(std::vector<std::string> const & fields);

private:
  bool SendDatagram(std::vector<std::string> const & fields);

  std::string mSocketPath;
  SyslogFunction mSyslog;
  int mSocket = -1;
};
