#include "platform/RegFile.h"

#include <cstring>

#include "platform/RegistryName.h"
#include "utl/Utf.h"

namespace registry {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

std::string_view Trim(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool EqualNoCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i)
    if (Lower(a[i]) != Lower(b[i])) return false;
  return true;
}

bool StartsWithNoCase(std::string_view text, std::string_view start) {
  return text.size() >= start.size() && EqualNoCase(text.substr(0, start.size()), start);
}

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  c = Lower(c);
  return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

// A hex number of 1 to `maxDigits` digits and nothing else.
bool ParseHex(std::string_view text, size_t maxDigits, uint32_t & value) {
  if (text.empty() || text.size() > maxDigits) return false;
  value = 0;
  for (char c : text) {
    int const digit = HexDigit(c);
    if (digit < 0) return false;
    value = value << 4 | static_cast<uint32_t>(digit);
  }
  return true;
}

void AppendWide(std::string & out, char32_t code) {
  auto const c = static_cast<wchar_t>(code);
  char bytes[sizeof(wchar_t)];
  std::memcpy(bytes, &c, sizeof c);
  out.append(bytes, sizeof bytes);
}

// wchar_t bytes of UTF-8 text, with a terminator if asked.
std::string WideBytesOf(std::string_view utf8, bool terminated) {
  std::string out;
  for (wchar_t c : vx3::Utf8ToWide(utf8)) AppendWide(out, static_cast<char32_t>(c));
  if (terminated) AppendWide(out, 0);
  return out;
}

// A file in UTF-16 (known by its byte order mark) as UTF-8; anything else as
// it is, less a UTF-8 byte order mark.
std::string DecodeFile(std::string_view bytes) {
  bool const little = bytes.size() >= 2 && bytes[0] == '\xFF' && bytes[1] == '\xFE';
  bool const big = bytes.size() >= 2 && bytes[0] == '\xFE' && bytes[1] == '\xFF';
  if (!little && !big) {
    if (bytes.substr(0, 3) == "\xEF\xBB\xBF") bytes.remove_prefix(3);
    return std::string(bytes);
  }
  std::string units;
  for (size_t at = 2; at + 1 < bytes.size(); at += 2) {
    units += bytes[at + (big ? 1 : 0)];
    units += bytes[at + (big ? 0 : 1)];
  }
  std::string const wide = Utf16ToWideBytes(units);
  std::wstring text(wide.size() / sizeof(wchar_t), L'\0');
  std::memcpy(text.data(), wide.data(), text.size() * sizeof(wchar_t));
  return vx3::WideToUtf8(text);
}

class Parser {
public:
  Parser(std::string text, std::vector<RegFileEntry> & entries, ExceptionMessage & error)
      : mText(std::move(text)), mEntries(entries), mError(error) {
    for (size_t start = 0; start <= mText.size();) {
      size_t end = mText.find('\n', start);
      if (end == std::string::npos) end = mText.size();
      std::string_view line(mText.data() + start, end - start);
      if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
      mLines.push_back(line);
      start = end + 1;
    }
  }

  bool Parse() {
    mEntries.clear();
    if (!Header()) return false;
    for (; mAt < mLines.size(); ++mAt) {
      std::string_view const line = Trim(mLines[mAt]);
      if (line.empty() || line.front() == ';') continue;
      if (!ValidText(line)) return false;
      bool ok;
      if (line.front() == '[') {
        ok = KeyLine(line);
      } else if (line.front() == '"' || line.front() == '@') {
        ok = ValueLine(line);
      } else {
        ok = Fail("Line {1}: the line is neither a key nor a value.");
      }
      if (!ok) return false;
    }
    return true;
  }

private:
  int LineNumber() const { return static_cast<int>(mAt) + 1; }

  bool Fail(char const * id) {
    mError = ExceptionMessage::translate(id) % LineNumber();
    return false;
  }
  bool Fail(char const * id, std::string const & detail) {
    mError = ExceptionMessage::translate(id) % LineNumber() % detail;
    return false;
  }

  // Valid UTF-8 without NUL characters, which no name or text of a line can
  // hold.
  bool ValidText(std::string_view text) {
    if (vx3::SanitizeUtf8(text) != text) return Fail("Line {1}: the text is not valid UTF-8.");
    if (text.find('\0') != std::string_view::npos)
      return Fail("Line {1}: the line holds a NUL character.");
    return true;
  }

  bool Header() {
    while (mAt < mLines.size() && Trim(mLines[mAt]).empty()) ++mAt;
    std::string_view const header = mAt < mLines.size() ? Trim(mLines[mAt]) : std::string_view();
    if (header == "Windows Registry Editor Version 5.00") {
      mVersion = 5;
    } else if (header == "REGEDIT4") {
      mVersion = 4;
    } else {
      if (mAt == mLines.size()) mAt = 0;
      return Fail(
          "Line {1}: a .reg file starts with \"Windows Registry Editor Version 5.00\" or "
          "\"REGEDIT4\".");
    }
    ++mAt;
    return true;
  }

  bool KeyLine(std::string_view line) {
    if (line.back() != ']') return Fail("Line {1}: the key name does not end with \"]\".");
    std::string_view inner = line.substr(1, line.size() - 2);
    bool const remove = !inner.empty() && inner.front() == '-';
    if (remove) inner.remove_prefix(1);
    size_t const separator = inner.find('\\');
    std::string_view const rootName = inner.substr(0, separator);
    HKEY const root = RegFileRoot(rootName);
    if (root == nullptr) return Fail("Line {1}: {2} is no root key.", std::string(rootName));
    std::string_view const path =
        separator == std::string_view::npos ? std::string_view() : inner.substr(separator + 1);
    std::wstring const widePath = vx3::Utf8ToWide(path);
    std::vector<Name> elements;
    if (ParseKeyPath(widePath.c_str(), elements) != ERROR_SUCCESS ||
        (separator != std::string_view::npos && elements.empty()))
      return Fail("Line {1}: {2} is no valid key name.", std::string(inner));
    if (remove && elements.empty()) return Fail("Line {1}: a root key cannot be removed.");
    mEntry = RegFileEntry();
    mEntry.kind = remove ? RegFileEntry::DeleteKey : RegFileEntry::Key;
    mEntry.line = LineNumber();
    mEntry.root = root;
    mEntry.path = widePath;
    mEntries.push_back(mEntry);
    mHaveKey = true;
    return true;
  }

  // A quoted text at the start of `text`, with \\ and \" undone; `text` is
  // left after the closing quote.
  bool Quoted(std::string_view & text, std::string & value) {
    value.clear();
    for (size_t at = 1; at < text.size(); ++at) {
      char const c = text[at];
      if (c == '"') {
        text.remove_prefix(at + 1);
        return true;
      }
      if (c == '\\') {
        char const next = at + 1 < text.size() ? text[at + 1] : '\0';
        if (next != '\\' && next != '"')
          return Fail("Line {1}: \\{2} is no escape of a .reg file (only \\\\ and \\\").",
                      std::string(1, next));
        value += next;
        ++at;
      } else {
        value += c;
      }
    }
    return Fail("Line {1}: the quoted text does not end.");
  }

  bool ValueLine(std::string_view line) {
    if (!mHaveKey) return Fail("Line {1}: a value comes before any key.");
    if (mEntry.kind == RegFileEntry::DeleteKey)
      return Fail("Line {1}: a value is given for a key that is removed.");
    int const line0 = LineNumber();
    std::string name;
    if (line.front() == '@') {
      line.remove_prefix(1);
    } else if (!Quoted(line, name)) {
      return false;
    }
    std::wstring wideName = vx3::Utf8ToWide(name);
    Name parsed;
    if (ParseValueName(wideName.c_str(), parsed) != ERROR_SUCCESS)
      return Fail("Line {1}: the value name {2} is too long.", name.substr(0, 40) + "...");
    line = Trim(line);
    if (line.empty() || line.front() != '=')
      return Fail("Line {1}: \"=\" is missing after the value name.");
    line = Trim(line.substr(1));

    RegFileEntry entry = mEntry;
    entry.kind = RegFileEntry::Value;
    entry.line = line0;
    entry.name = wideName;
    if (line == "-") {
      entry.kind = RegFileEntry::DeleteValue;
    } else if (!line.empty() && line.front() == '"') {
      std::string text;
      if (!Quoted(line, text)) return false;
      if (!Trim(line).empty()) return Fail("Line {1}: there is more after the quoted text.");
      entry.type = REG_SZ;
      entry.data = WideBytesOf(text, true);
    } else if (StartsWithNoCase(line, "dword:")) {
      uint32_t value = 0;
      if (!ParseHex(Trim(line.substr(6)), 8, value))
        return Fail("Line {1}: a dword is 1 to 8 hex digits.");
      entry.type = REG_DWORD;
      entry.data.assign(reinterpret_cast<char const *>(&value), sizeof value);
    } else if (StartsWithNoCase(line, "hex")) {
      if (!HexValue(line.substr(3), entry)) return false;
    } else {
      return Fail("Line {1}: the data of the value is of no known form.");
    }
    mEntries.push_back(std::move(entry));
    return true;
  }

  // "(N):bytes" or ":bytes", the bytes possibly going on over further lines.
  bool HexValue(std::string_view text, RegFileEntry & entry) {
    entry.type = REG_BINARY;
    if (!text.empty() && text.front() == '(') {
      size_t const close = text.find(')');
      uint32_t type = 0;
      if (close == std::string_view::npos || !ParseHex(text.substr(1, close - 1), 8, type))
        return Fail("Line {1}: the type in hex(...) is 1 to 8 hex digits.");
      entry.type = type;
      text.remove_prefix(close + 1);
    }
    if (text.empty() || text.front() != ':') return Fail("Line {1}: \":\" is missing after hex.");
    text.remove_prefix(1);
    std::string bytes;
    for (;;) {
      text = Trim(text);
      bool const goesOn = !text.empty() && text.back() == '\\';
      if (goesOn) text.remove_suffix(1);
      size_t start = 0;
      while (start < text.size()) {
        size_t comma = text.find(',', start);
        bool const last = comma == std::string_view::npos;
        if (last) comma = text.size();
        std::string_view const item = Trim(text.substr(start, comma - start));
        uint32_t byte = 0;
        // A trailing comma is where a line breaks; an empty item elsewhere
        // is a missing byte.
        if (item.empty() && last && goesOn) break;
        if (!ParseHex(item, 2, byte))
          return Fail("Line {1}: \"{2}\" is no hex byte.", std::string(item));
        bytes += static_cast<char>(byte);
        start = comma + 1;
        if (last) break;
      }
      if (!goesOn) break;
      if (++mAt == mLines.size()) {
        --mAt;
        return Fail("Line {1}: the hex data goes on past the end of the file.");
      }
      text = mLines[mAt];
      if (!ValidText(text)) return false;
    }
    bool const isText =
        entry.type == REG_SZ || entry.type == REG_EXPAND_SZ || entry.type == REG_MULTI_SZ;
    if (!isText) {
      entry.data = std::move(bytes);
    } else if (mVersion == 5) {
      entry.data = Utf16ToWideBytes(bytes);
    } else {
      entry.data = WideBytesOf(vx3::SanitizeUtf8(bytes), false);
    }
    return true;
  }

  std::string const mText;
  std::vector<std::string_view> mLines;
  std::vector<RegFileEntry> & mEntries;
  ExceptionMessage & mError;
  size_t mAt = 0;
  int mVersion = 5;
  bool mHaveKey = false;
  RegFileEntry mEntry;  // the current key
};

}  // namespace

bool ParseRegFile(std::string_view bytes, std::vector<RegFileEntry> & entries,
                  ExceptionMessage & error) {
  Parser parser(DecodeFile(bytes), entries, error);
  if (parser.Parse()) return true;
  entries.clear();
  return false;
}

std::string RegFileRootName(HKEY root) {
  if (root == HKEY_CURRENT_USER) return "HKEY_CURRENT_USER";
  if (root == HKEY_LOCAL_MACHINE) return "HKEY_LOCAL_MACHINE";
  if (root == HKEY_CLASSES_ROOT) return "HKEY_CLASSES_ROOT";
  return std::string();
}

HKEY RegFileRoot(std::string_view name) {
  struct Root {
    char const * longName;
    char const * shortName;
    HKEY key;
  } const roots[] = {
      {"HKEY_CURRENT_USER", "HKCU", HKEY_CURRENT_USER},
      {"HKEY_LOCAL_MACHINE", "HKLM", HKEY_LOCAL_MACHINE},
      {"HKEY_CLASSES_ROOT", "HKCR", HKEY_CLASSES_ROOT},
  };
  for (Root const & root : roots)
    if (EqualNoCase(name, root.longName) || EqualNoCase(name, root.shortName)) return root.key;
  return nullptr;
}

std::string WideBytesToUtf16(std::string_view wide) {
  std::string out;
  auto const append = [&](uint32_t unit) {
    out += static_cast<char>(unit & 0xFF);
    out += static_cast<char>(unit >> 8);
  };
  for (size_t at = 0; at + sizeof(wchar_t) <= wide.size(); at += sizeof(wchar_t)) {
    wchar_t c;
    std::memcpy(&c, wide.data() + at, sizeof c);
    auto code = static_cast<uint32_t>(c);
    if (code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) code = kReplacement;
    if (code < 0x10000) {
      append(code);
    } else {
      append(0xD800 + ((code - 0x10000) >> 10));
      append(0xDC00 + ((code - 0x10000) & 0x3FF));
    }
  }
  return out;
}

std::string Utf16ToWideBytes(std::string_view utf16) {
  std::string out;
  size_t const units = utf16.size() / 2;
  auto const unit = [&](size_t i) {
    return static_cast<uint32_t>(static_cast<unsigned char>(utf16[2 * i])) |
           static_cast<uint32_t>(static_cast<unsigned char>(utf16[2 * i + 1])) << 8;
  };
  for (size_t i = 0; i < units; ++i) {
    uint32_t const first = unit(i);
    if (first >= 0xD800 && first <= 0xDBFF && i + 1 < units && unit(i + 1) >= 0xDC00 &&
        unit(i + 1) <= 0xDFFF) {
      AppendWide(out, 0x10000 + ((first - 0xD800) << 10) + (unit(i + 1) - 0xDC00));
      ++i;
    } else {
      AppendWide(out, first >= 0xD800 && first <= 0xDFFF ? kReplacement : first);
    }
  }
  return out;
}

}  // namespace registry
