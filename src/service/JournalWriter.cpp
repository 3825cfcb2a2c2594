#include "service/JournalWriter.h"

#include <sys/socket.h>
#include <syslog.h>
#include <systemd/sd-journal.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string_view>

#include "service/JournalFields.h"

namespace {

// What one sendmsg takes (UIO_MAXIOV).
constexpr size_t kMaxParts = 1024;

// How long a journal socket seen stays believed: it goes away only when the
// journal is shut down for good, and checking it for every entry would add
// a system call to each.
constexpr std::chrono::seconds kListenerCheck{1};

// One field in the native protocol, appended to `out`.
void AppendField(std::string_view field, std::string & out) {
  size_t const equals = field.find('=');
  if (equals == std::string_view::npos) return;
  if (field.find('\n', equals + 1) == std::string_view::npos) {
    out += field;
    out += '\n';
    return;
  }
  out.append(field.substr(0, equals));
  out += '\n';
  uint64_t length = field.size() - equals - 1;
  for (int i = 0; i < 8; ++i) out += static_cast<char>((length >> (8 * i)) & 0xFF);
  out.append(field.substr(equals + 1));
  out += '\n';
}

std::string_view View(iovec const & part) {
  return {static_cast<char const *>(part.iov_base), part.iov_len};
}

}  // namespace

JournalWriter::JournalWriter(std::string socketPath, SyslogFunction syslog)
    : mSocketPath(std::move(socketPath)),
      mDefaultSocket(mSocketPath == DefaultSocket()),
      mSyslog(std::move(syslog)) {
  if (!mSyslog) mSyslog = [](int priority, char const * text) { ::syslog(priority, "%s", text); };
  mAddress.sun_family = AF_UNIX;
  // A path too long for an address leaves it empty: sends to it fail.
  if (mSocketPath.size() < sizeof mAddress.sun_path)
    std::memcpy(mAddress.sun_path, mSocketPath.c_str(), mSocketPath.size() + 1);
}

JournalWriter::~JournalWriter() {
  if (mSocket >= 0) ::close(mSocket);
}

std::string JournalWriter::EncodeDatagram(iovec const * fields, size_t count) {
  size_t size = 0;
  for (size_t i = 0; i < count; ++i) size += fields[i].iov_len + 10;
  std::string datagram;
  datagram.reserve(size);
  for (size_t i = 0; i < count; ++i) AppendField(View(fields[i]), datagram);
  return datagram;
}

bool JournalWriter::Connect() {
  if (mSocket >= 0) return true;
  if (mAddress.sun_path[0] == '\0') return false;
  mSocket = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  if (mSocket < 0) return false;
  if (::connect(mSocket, reinterpret_cast<sockaddr const *>(&mAddress), sizeof mAddress) == 0)
    return true;
  ::close(mSocket);
  mSocket = -1;
  return false;
}

bool JournalWriter::SendDatagram(VxJournal::EntryFields const & entry) {
  // The fields go out in place, as sd_journal_sendv sends them: a field
  // with a newline in its value, or a vector longer than the kernel takes,
  // is written into one buffer first.
  static char newline = '\n';
  mParts.clear();
  if (!entry.HasNewline() && entry.Count() * 2 <= kMaxParts) {
    for (size_t i = 0; i < entry.Count(); ++i) {
      mParts.push_back(entry.Fields()[i]);
      mParts.push_back({&newline, 1});
    }
  } else {
    mDatagram = EncodeDatagram(entry.Fields(), entry.Count());
    mParts.push_back({mDatagram.data(), mDatagram.size()});
  }
  msghdr message{};
  message.msg_iov = mParts.data();
  message.msg_iovlen = mParts.size();
  // The socket stays connected, which spares looking its path up for every
  // entry; a journal started again since then has a new socket there.
  for (int attempt = 0; attempt < 2; ++attempt) {
    if (!Connect()) return false;
    ssize_t sent = 0;
    do {
      sent = ::sendmsg(mSocket, &message, MSG_NOSIGNAL);
    } while (sent < 0 && errno == EINTR);
    if (sent > 0) return true;
    if (errno != ECONNREFUSED && errno != ENOTCONN) return false;
    ::close(mSocket);
    mSocket = -1;
  }
  return false;
}

bool JournalWriter::JournalListens() {
  auto const now = std::chrono::steady_clock::now();
  if (mListenedAt != std::chrono::steady_clock::time_point{} && now - mListenedAt < kListenerCheck)
    return true;
  if (::access(mSocketPath.c_str(), F_OK) != 0) {
    mListenedAt = {};
    return false;
  }
  mListenedAt = now;
  return true;
}

bool JournalWriter::Write(VxJournal::EntryFields const & entry) {
  {
    std::lock_guard<std::mutex> const hold(mLock);
    if (!mDefaultSocket) {
      // A send to a socket that is not there fails by itself.
      if (SendDatagram(entry)) return true;
    } else if (JournalListens()) {
      if (::sd_journal_sendv(entry.Fields(), static_cast<int>(entry.Count())) >= 0) return true;
    }
  }
  std::string text = entry.Identifier() + ": ";
  text += entry.Message();
  mSyslog(entry.EntryPriority(), text.c_str());
  return false;
}
