#include "platform/RegFileExport.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>
#include <vector>

#include "platform/RegFile.h"
#include "platform/RegistryErrorText.h"
#include "platform/RegistryStore.h"
#include "utl/Paths.h"
#include "utl/Utf.h"

namespace registry {

namespace {

std::string Escape(std::string const & text) {
  std::string escaped;
  for (char c : text) {
    if (c == '\\' || c == '"') escaped += '\\';
    escaped += c;
  }
  return escaped;
}

bool HasLineBreak(std::string const & text) {
  return text.find_first_of("\r\n") != std::string::npos;
}

// The text of a REG_SZ value when a quoted string can carry it exactly: whole
// characters, one terminator at the end and none before, no line break.
bool QuotableText(std::string const & data, std::string & text) {
  size_t const count = data.size() / sizeof(wchar_t);
  if (count == 0 || data.size() % sizeof(wchar_t) != 0) return false;
  std::wstring wide(count, L'\0');
  std::memcpy(wide.data(), data.data(), data.size());
  if (wide.back() != L'\0') return false;
  wide.pop_back();
  for (wchar_t c : wide) {
    auto const code = static_cast<uint32_t>(c);
    if (code == 0 || code == '\r' || code == '\n' || code > 0x10FFFF ||
        (code >= 0xD800 && code <= 0xDFFF))
      return false;
  }
  text = vx3::WideToUtf8(wide);
  return true;
}

// "name"=hex(N):xx,xx,... wrapped as Windows wraps it, under 80 columns.
void AppendHex(std::string & out, std::string const & field, std::string const & bytes) {
  size_t column = field.size();
  out += field;
  char digits[4];
  for (size_t i = 0; i < bytes.size(); ++i) {
    std::snprintf(digits, sizeof digits, "%02x", static_cast<unsigned char>(bytes[i]));
    std::string const piece = std::string(digits) + (i + 1 < bytes.size() ? "," : "");
    if (i > 0 && column + piece.size() > 77) {
      out += "\\\n  ";
      column = 2;
    }
    out += piece;
    column += piece.size();
  }
  out += '\n';
}

void AppendValue(std::string & out, StoredValue const & value) {
  std::string const name = value.name.empty() ? "@" : "\"" + Escape(value.name) + "\"";
  std::string text;
  if (value.type == REG_SZ && QuotableText(value.data, text)) {
    out += name + "=\"" + Escape(text) + "\"\n";
  } else if (value.type == REG_DWORD && value.data.size() == sizeof(DWORD)) {
    DWORD number;
    std::memcpy(&number, value.data.data(), sizeof number);
    char digits[16];
    std::snprintf(digits, sizeof digits, "%08x", static_cast<unsigned>(number));
    out += name + "=dword:" + digits + "\n";
  } else if (value.type == REG_BINARY) {
    AppendHex(out, name + "=hex:", value.data);
  } else {
    bool const isText =
        value.type == REG_SZ || value.type == REG_EXPAND_SZ || value.type == REG_MULTI_SZ;
    char type[24];
    std::snprintf(type, sizeof type, "=hex(%x):", static_cast<unsigned>(value.type));
    AppendHex(out, name + type, isText ? WideBytesToUtf16(value.data) : value.data);
  }
}

ExceptionMessage LineBreakError(std::string const & name) {
  return ExceptionMessage::translate(
             "The name \"{1}\" holds a line break, which a .reg file cannot carry.") %
         name;
}

}  // namespace

LONG WalkKeyTree(HKEY root, std::wstring const & path, std::string const & top,
                 KeyVisitor const & visit) {
  HKEY handle = nullptr;
  LONG rc = RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &handle);
  OpenKey key;
  if (rc == ERROR_SUCCESS) rc = FindKey(handle, key);
  std::vector<std::pair<KeyId, std::string>> pending;
  if (rc == ERROR_SUCCESS) pending.emplace_back(key.id, top);
  std::vector<StoredValue> values;
  std::vector<StoredKey> subKeys;
  while (rc == ERROR_SUCCESS && !pending.empty()) {
    auto const [id, name] = pending.back();
    pending.pop_back();
    rc = key.hive->Values(id, values);
    if (rc == ERROR_SUCCESS) rc = key.hive->SubKeys(id, subKeys);
    if (rc != ERROR_SUCCESS) break;
    if (!visit(name, values)) {
      rc = ERROR_CANCELLED;
      break;
    }
    for (auto sub = subKeys.rbegin(); sub != subKeys.rend(); ++sub)
      pending.emplace_back(sub->id, name + "\\" + sub->name);
  }
  if (handle != nullptr) RegCloseKey(handle);
  return rc;
}

bool ExportRegFile(HKEY root, std::wstring const & path, std::string & text,
                   ExceptionMessage & error) {
  std::string top = RegFileRootName(root);
  std::string const relative = vx3::WideToUtf8(path);
  if (!relative.empty()) top += "\\" + relative.substr(0, relative.find_last_not_of('\\') + 1);
  text = "Windows Registry Editor Version 5.00\n";
  bool lineBreak = false;
  LONG const rc = WalkKeyTree(
      root, path, top, [&](std::string const & name, std::vector<StoredValue> const & values) {
        if (HasLineBreak(name)) {
          error = LineBreakError(name);
          lineBreak = true;
          return false;
        }
        text += "\n[" + name + "]\n";
        for (StoredValue const & value : values) {
          if (HasLineBreak(value.name)) {
            error = LineBreakError(value.name);
            lineBreak = true;
            return false;
          }
          AppendValue(text, value);
        }
        return true;
      });
  if (lineBreak) return false;
  if (rc == ERROR_SUCCESS) return true;
  char const * why = ErrorText(rc);
  error = ExceptionMessage::translate("The key {1} cannot be exported: {2} (system error {3}).") %
          top % (why != nullptr ? ExceptionMessage::translate(why).ToString(std::locale()) : "") %
          static_cast<int>(rc);
  return false;
}

bool SaveRegFile(std::string const & file, std::string const & text, ExceptionMessage & error) {
  std::string const temporary = file + ".tmp-" + std::to_string(::getpid());
  int const fd = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  bool saved = fd >= 0;
  for (size_t written = 0; saved && written < text.size();) {
    ssize_t const n = ::write(fd, text.data() + written, text.size() - written);
    if (n < 0 && errno == EINTR) continue;
    saved = n > 0;
    if (saved) written += static_cast<size_t>(n);
  }
  saved = saved && ::fsync(fd) == 0;
  int const failure = saved ? 0 : errno;
  if (fd >= 0) saved = ::close(fd) == 0 && saved;
  saved = saved && ::rename(temporary.c_str(), file.c_str()) == 0;
  if (!saved) {
    int const code = failure != 0 ? failure : errno;
    ::unlink(temporary.c_str());
    error = ExceptionMessage::translate("The file {1} cannot be written: {2}.") % file %
            std::string(std::strerror(code));
    return false;
  }
  std::string const folder = VxGetDirectory(file);
  int const dir = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_CLOEXEC);
  if (dir >= 0) {
    ::fsync(dir);
    ::close(dir);
  }
  return true;
}

}  // namespace registry
