#include "service/JournalWriter.h"

#include <sys/socket.h>
#include <sys/uio.h>
#include <sys/un.h>
#include <syslog.h>
#include <systemd/sd-journal.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace {

// What one sendmsg takes (UIO_MAXIOV).
constexpr size_t kMaxParts = 1024;

bool SocketExists(std::string const & path) { return ::access(path.c_str(), F_OK) == 0; }

// One field in the native protocol, appended to `out`.
void AppendField(std::string const & field, std::string & out) {
  size_t const equals = field.find('=');
  if (equals == std::string::npos) return;
  if (field.find('\n', equals + 1) == std::string::npos) {
    out += field;
    out += '\n';
    return;
  }
  out.append(field, 0, equals);
  out += '\n';
  uint64_t length = field.size() - equals - 1;
  for (int i = 0; i < 8; ++i) out += static_cast<char>((length >> (8 * i)) & 0xFF);
  out.append(field, equals + 1, std::string::npos);
  out += '\n';
}

}  // namespace

JournalWriter::JournalWriter(std::string socketPath, SyslogFunction syslog)
    : mSocketPath(std::move(socketPath)), mSyslog(std::move(syslog)) {
  if (!mSyslog) mSyslog = [](int priority, char const * text) { ::syslog(priority, "%s", text); };
}

JournalWriter::~JournalWriter() {
  if (mSocket >= 0) ::close(mSocket);
}

std::string JournalWriter::EncodeDatagram(std::vector<std::string> const & fields) {
  size_t size = 0;
  for (auto const & field : fields) size += field.size() + 10;
  std::string datagram;
  datagram.reserve(size);
  for (auto const & field : fields) AppendField(field, datagram);
  return datagram;
}

bool JournalWriter::SendDatagram(std::vector<std::string> const & fields) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (mSocketPath.size() >= sizeof address.sun_path) return false;
  std::memcpy(address.sun_path, mSocketPath.c_str(), mSocketPath.size() + 1);
  if (mSocket < 0) mSocket = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  if (mSocket < 0) return false;
  // The fields go out in place, as sd_journal_sendv sends them: a field
  // with a newline in its value, or a vector longer than the kernel takes,
  // is written into one buffer first.
  static char newline = '\n';
  std::string joined;
  std::vector<iovec> parts;
  bool inPlace = fields.size() * 2 <= kMaxParts;
  for (auto const & field : fields)
    if (field.find('\n') != std::string::npos) inPlace = false;
  if (inPlace) {
    parts.reserve(fields.size() * 2);
    for (auto const & field : fields) {
      parts.push_back({const_cast<char *>(field.data()), field.size()});
      parts.push_back({&newline, 1});
    }
  } else {
    joined = EncodeDatagram(fields);
    parts.push_back({joined.data(), joined.size()});
  }
  msghdr message{};
  message.msg_name = &address;
  message.msg_namelen = sizeof address;
  message.msg_iov = parts.data();
  message.msg_iovlen = parts.size();
  ssize_t sent = 0;
  do {
    sent = ::sendmsg(mSocket, &message, MSG_NOSIGNAL);
  } while (sent < 0 && errno == EINTR);
  return sent > 0;
}

bool JournalWriter::Write(std::vector<std::string> const & fields, int priority,
                          std::string const & source) {
  if (mSocketPath != DefaultSocket()) {
    // A send to a socket that is not there fails by itself.
    if (SendDatagram(fields)) return true;
  } else if (SocketExists(mSocketPath)) {
    std::vector<iovec> vector(fields.size());
    for (size_t i = 0; i < fields.size(); ++i)
      vector[i] = {const_cast<char *>(fields[i].data()), fields[i].size()};
    if (::sd_journal_sendv(vector.data(), static_cast<int>(vector.size())) >= 0) return true;
  }
  std::string text = source + ": ";
  if (!fields.empty() && fields.front().rfind("MESSAGE=", 0) == 0)
    text.append(fields.front(), sizeof "MESSAGE=" - 1, std::string::npos);
  mSyslog(priority, text.c_str());
  return false;
}
