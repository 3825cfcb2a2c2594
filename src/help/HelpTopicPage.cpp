#include "help/HelpTopicPage.h"

#include <boost/format.hpp>

#include "help/ChmSystemStreams.h"
#include "help/HelpFile.h"
#include "help/HelpText.h"
#include "utl/Translation.h"

namespace {

constexpr char kScheme[] = "help:";

int HexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

std::string PercentDecoded(std::string const & text) {
  std::string decoded;
  decoded.reserve(text.size());
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '%' && i + 2 < text.size() && HexValue(text[i + 1]) >= 0 &&
        HexValue(text[i + 2]) >= 0) {
      decoded.push_back(static_cast<char>(HexValue(text[i + 1]) * 16 + HexValue(text[i + 2])));
      i += 2;
    } else {
      decoded.push_back(text[i]);
    }
  }
  return decoded;
}

std::string PercentEncodedPath(std::string const & path) {
  static constexpr char kHex[] = "0123456789ABCDEF";
  std::string encoded;
  for (char const c : path) {
    auto const byte = static_cast<unsigned char>(c);
    bool const plain = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
                       (byte >= '0' && byte <= '9') || c == '/' || c == '-' || c == '_' ||
                       c == '.' || c == '~';
    if (plain) {
      encoded.push_back(c);
    } else {
      encoded.push_back('%');
      encoded.push_back(kHex[byte >> 4]);
      encoded.push_back(kHex[byte & 15]);
    }
  }
  return encoded;
}

std::string Escaped(std::string const & text) {
  std::string escaped;
  for (char const c : text) {
    switch (c) {
      case '<': escaped += "&lt;"; break;
      case '>': escaped += "&gt;"; break;
      case '&': escaped += "&amp;"; break;
      case '"': escaped += "&quot;"; break;
      default: escaped.push_back(c);
    }
  }
  return escaped;
}

}  // namespace

wxString HelpTopicPage(std::string const & innerPath, std::string const & html) {
  std::string const folder = innerPath.substr(0, innerPath.rfind('/') + 1);
  std::string const base =
      "<base href=\"" + std::string(kScheme) + PercentEncodedPath(folder) + "\">";
  // A <base> counts anywhere before the first link; in front of everything
  // it needs no parsing of the page.
  return wxString::FromUTF8(base + ChmTextToUtf8(html));
}

wxString HelpMissingTopicPage(std::string const & file, std::string const & innerPath) {
  std::string const text =
      (boost::format(vx3::Tr("The help file %1% has no topic %2%.").utf8_string()) % Escaped(file) %
       Escaped(innerPath))
          .str();
  return wxString::FromUTF8("<html><body><p>" + text + "</p></body></html>");
}

bool HelpTopicFromAddress(std::string const & address, std::string & innerPath) {
  size_t const schemeLength = sizeof(kScheme) - 1;
  if (address.size() <= schemeLength ||
      !vx3::help::EqualsAsciiNoCase(address.substr(0, schemeLength), kScheme))
    return false;
  std::string path = address.substr(schemeLength);
  path = path.substr(0, path.find_first_of("#?"));
  innerPath = ResolveHelpLink("/", PercentDecoded(path));
  return innerPath != "/";
}
