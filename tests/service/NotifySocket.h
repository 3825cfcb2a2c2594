#pragma once
// A notify socket bound where a service under test sends its status, as
// systemd's is: the records it sends, read one at a time.
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <sstream>
#include <string>

class NotifySocket {
public:
  using Record = std::map<std::string, std::string>;

  explicit NotifySocket(std::string const & name) {
    char const * tmp = std::getenv("TMPDIR");
    mPath = std::string(tmp != nullptr ? tmp : "/tmp") + "/" + name;
    ::unlink(mPath.c_str());
    mSocket = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::snprintf(address.sun_path, sizeof address.sun_path, "%s", mPath.c_str());
    mBound = ::bind(mSocket, reinterpret_cast<sockaddr *>(&address), sizeof address) == 0;
  }
  ~NotifySocket() {
    ::close(mSocket);
    ::unlink(mPath.c_str());
  }
  NotifySocket(NotifySocket const &) = delete;
  NotifySocket & operator=(NotifySocket const &) = delete;

  bool IsBound() const { return mBound; }
  std::string const & Path() const { return mPath; }

  // The next record, or an empty one when none comes within 10 s.
  Record Next() {
    pollfd wait{mSocket, POLLIN, 0};
    Record record;
    if (::poll(&wait, 1, 10000) != 1) return record;
    char buffer[4096];
    ssize_t const got = ::recv(mSocket, buffer, sizeof buffer, 0);
    std::istringstream lines(std::string(buffer, got > 0 ? static_cast<size_t>(got) : 0));
    for (std::string line; std::getline(lines, line);) {
      size_t const equals = line.find('=');
      record[line.substr(0, equals)] = line.substr(equals + 1);
    }
    return record;
  }

  // True when no record is waiting.
  bool NothingSent() {
    pollfd wait{mSocket, POLLIN, 0};
    return ::poll(&wait, 1, 0) == 0;
  }

private:
  std::string mPath;
  int mSocket = -1;
  bool mBound = false;
};
