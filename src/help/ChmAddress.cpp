#include "help/ChmAddress.h"

#include <vector>

namespace {

bool StartsWithNoCase(std::string_view text, std::string_view prefix) {
  if (text.size() < prefix.size()) return false;
  for (std::size_t i = 0; i < prefix.size(); ++i) {
    char c = text[i];
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    if (c != prefix[i]) return false;
  }
  return true;
}

void AppendEscaped(std::string & out, unsigned char c) {
  static char const digits[] = "0123456789ABCDEF";
  out.push_back('%');
  out.push_back(digits[c >> 4]);
  out.push_back(digits[c & 15]);
}

int HexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

bool Decode(std::string_view text, std::string & out) {
  out.clear();
  for (std::size_t i = 0; i < text.size(); ++i) {
    char c = text[i];
    if (c == '%') {
      if (i + 2 >= text.size()) return false;
      int const high = HexValue(text[i + 1]);
      int const low = HexValue(text[i + 2]);
      if (high < 0 || low < 0) return false;
      c = static_cast<char>(high * 16 + low);
      i += 2;
    }
    if (c == '\0') return false;
    out.push_back(c);
  }
  return true;
}

// "/a/./b/../c" -> "/a/c"; false when ".." climbs above the root.
bool Normalise(std::string const & path, std::string & out) {
  std::vector<std::string> parts;
  std::size_t start = 0;
  while (start <= path.size()) {
    std::size_t end = path.find('/', start);
    if (end == std::string::npos) end = path.size();
    std::string const part = path.substr(start, end - start);
    if (part == "..") {
      if (parts.empty()) return false;
      parts.pop_back();
    } else if (!part.empty() && part != ".") {
      parts.push_back(part);
    }
    start = end + 1;
  }
  if (parts.empty()) return false;
  out.clear();
  for (auto const & part : parts) out += "/" + part;
  return true;
}

}  // namespace

std::string MakeChmAddress(std::string const & chmPath, std::string_view topic) {
  std::string address = "its:";
  for (char ch : chmPath) {
    auto const c = static_cast<unsigned char>(ch);
    if (c <= 0x20 || c >= 0x7F || c == '#' || c == '?' || c == '%' || c == ':')
      AppendEscaped(address, c);
    else
      address.push_back(ch);
  }
  address += "::";
  if (topic.empty() || topic[0] != '/') address.push_back('/');
  for (char ch : topic) {
    auto const c = static_cast<unsigned char>(ch);
    if (c <= 0x20 || c >= 0x7F)
      AppendEscaped(address, c);
    else
      address.push_back(ch);
  }
  return address;
}

bool ParseChmAddress(std::string_view url, std::string & chmPath, std::string & inner) {
  if (!StartsWithNoCase(url, "its:")) return false;
  url.remove_prefix(4);
  auto const separator = url.find("::");
  if (separator == std::string_view::npos) return false;
  std::string_view rawInner = url.substr(separator + 2);
  // A query or fragment is the browser's, not part of the name; a "#" or
  // "?" in a name arrives encoded.
  rawInner = rawInner.substr(0, rawInner.find_first_of("?#"));
  std::string decodedInner;
  if (!Decode(url.substr(0, separator), chmPath) || chmPath.empty()) return false;
  if (!Decode(rawInner, decodedInner)) return false;
  return Normalise(decodedInner, inner);
}

bool ParseForeignChmLink(std::string_view url, std::string & file, std::string & topic) {
  if (StartsWithNoCase(url, "ms-its:")) {
    url.remove_prefix(7);
  } else if (StartsWithNoCase(url, "mk:@msitstore:")) {
    url.remove_prefix(14);
  } else {
    return false;
  }
  auto const separator = url.find("::");
  file = std::string(url.substr(0, separator));
  topic =
      separator == std::string_view::npos ? std::string() : std::string(url.substr(separator + 2));
  return !file.empty();
}
