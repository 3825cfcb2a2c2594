#include "utl/Log.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <mutex>

#include "utl/Paths.h"
#include "utl/Utf.h"
#include "utl/VxSystemInfo.h"

namespace {

// A log larger than this is renamed to "<name>.log.1" (replacing the older
// one) before the next line is written.
constexpr off_t kRotateSize = 16 * 1024 * 1024;

struct LogFile {
  std::mutex mutex;
  int fd = -1;
  std::string path;
  // What the path was made of; the path is rebuilt only when it changes.
  std::string applicationName;
  std::string stateHome;
  off_t size = 0;
};

LogFile & TheLogFile() {
  // Never destroyed: service threads may log while the process exits.
  static LogFile * file = new LogFile;
  return *file;
}

int StderrThreshold() {
  static int const threshold = [] {
    char const * value = std::getenv("TALVO_LOG_STDERR");
    if (value == nullptr || *value < '0' || *value > '4' || value[1] != '\0') return 5;
    return *value - '0';
  }();
  return threshold;
}

std::string StateHome() {
  char const * state = std::getenv("XDG_STATE_HOME");
  if (state != nullptr && *state == '/') return state;
  char const * home = std::getenv("HOME");
  if (home != nullptr && *home == '/') return VxPathAppend(home, ".local/state");
  return VxPathAppend("/tmp", "talvo-" + std::to_string(::getuid()));
}

// A file-name-safe form of the application name.
std::string FileStem(std::string name) {
  for (char & c : name)
    if (c == '/' || c == '\0') c = '_';
  if (name.empty() || name == "." || name == "..") name = "TALVOutlwin";
  return name;
}

std::string PathFor(std::string const & applicationName) {
  std::string const stem = FileStem(applicationName);
  return VxPathAppend(VxPathAppend(VxPathAppend(StateHome(), "Karvinel"), stem), stem + ".log");
}

void WriteAll(int fd, char const * data, size_t size) {
  while (size > 0) {
    ssize_t const written = ::write(fd, data, size);
    if (written < 0) {
      if (errno == EINTR) continue;
      return;
    }
    data += written;
    size -= static_cast<size_t>(written);
  }
}

// Opens (or re-opens) the file for the current application name. Called
// with the mutex held.
bool EnsureOpen(LogFile & file) {
  std::string const name = VxSystemInfo::GetApplicationName();
  char const * stateHome = std::getenv("XDG_STATE_HOME");
  bool const samePlace = file.fd >= 0 && name == file.applicationName &&
                         file.stateHome == (stateHome != nullptr ? stateHome : "");
  if (samePlace && file.size < kRotateSize) return true;
  std::string const path = samePlace ? file.path : PathFor(name);
  file.applicationName = name;
  file.stateHome = stateHome != nullptr ? stateHome : "";
  if (file.fd >= 0) {
    ::close(file.fd);
    file.fd = -1;
    if (path == file.path) ::rename(path.c_str(), (path + ".1").c_str());
  }
  VxCreateFolder(VxGetDirectory(path));
  file.fd = ::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
  file.path = path;
  struct stat info {};
  file.size = file.fd >= 0 && ::fstat(file.fd, &info) == 0 ? info.st_size : 0;
  return file.fd >= 0;
}

// "pid/tid", made once a thread (the pid is asked again after a fork).
std::string const & ProcessAndThread() {
  thread_local pid_t pid = 0;
  thread_local std::string text;
  pid_t const now = ::getpid();
  if (now != pid) {
    pid = now;
    text = std::to_string(now) + '/' + std::to_string(static_cast<long>(::syscall(SYS_gettid)));
  }
  return text;
}

void AppendTimestamp(std::string & line) {
  timespec now{};
  ::clock_gettime(CLOCK_REALTIME, &now);
  tm utc{};
  ::gmtime_r(&now.tv_sec, &utc);
  char buffer[40];
  int const length = std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02dT%02d:%02d:%02d.%06ldZ",
                                   utc.tm_year + 1900, utc.tm_mon + 1, utc.tm_mday, utc.tm_hour,
                                   utc.tm_min, utc.tm_sec, now.tv_nsec / 1000);
  line.append(buffer, static_cast<size_t>(length));
}

// One entry is one line: line breaks inside the text are written as "\n".
void AppendEscaped(std::string & line, std::string const & text) {
  for (char const c : vx3::SanitizeUtf8(text)) {
    if (c == '\n') {
      line += "\\n";
    } else if (c == '\r') {
      line += "\\r";
    } else {
      line += c;
    }
  }
}

std::string FormatLine(char const * className, char const * functionName, std::string const & text,
                       Log::Importance level) {
  std::string line;
  line.reserve(64 + text.size());
  AppendTimestamp(line);
  line += " [";
  line += ProcessAndThread();
  line += "] ";
  line += static_cast<char>('0' + (level < 0 ? 0 : level > 4 ? 4 : level));
  line += ' ';
  AppendEscaped(line, className != nullptr ? className : "");
  line += "::";
  AppendEscaped(line, functionName != nullptr ? functionName : "");
  line += ": ";
  AppendEscaped(line, text);
  line += '\n';
  return line;
}

}  // namespace

void Log::WriteMessage(char const * className, char const * functionName, char const * text,
                       Importance level, bool flush) {
  try {
    WriteMessage(className, functionName, std::string(text != nullptr ? text : ""), level, flush);
  } catch (...) {
    // Nothing to be done: logging never raises.
  }
}

void Log::WriteMessage(char const * className, char const * functionName, std::string const & text,
                       Importance level, bool flush) {
  try {
    std::string const line = FormatLine(className, functionName, text, level);
    LogFile & file = TheLogFile();
    {
      std::lock_guard<std::mutex> lock(file.mutex);
      if (EnsureOpen(file)) {
        // One write of one whole line: O_APPEND keeps lines of other
        // processes from interleaving with ours too.
        WriteAll(file.fd, line.data(), line.size());
        file.size += static_cast<off_t>(line.size());
        if (flush) ::fdatasync(file.fd);
      }
    }
    if (static_cast<int>(level) >= StderrThreshold()) WriteAll(2, line.data(), line.size());
  } catch (...) {
    // Out of memory or a broken locale: logging never raises.
  }
}

std::string Log::GetLogFilePath() {
  try {
    return PathFor(VxSystemInfo::GetApplicationName());
  } catch (...) {
    return std::string();
  }
}
