#include "crash/CrashReportText.h"

#include <boost/format.hpp>
#include <boost/locale/message.hpp>

#include "frame/AppProfile.h"

namespace crash_report {

namespace {
char const kSection[] = "Crash diagnostics";
namespace bl = boost::locale;
}  // namespace

char const kDefaultSupportAddress[] = "support@karvinel.example";

std::string SupportAddress() {
  return AppProfile::GetProfileString(kSection, "SupportAddress", kDefaultSupportAddress);
}

std::string Content(std::string const & application, std::string const & dumpPath,
                    std::string const & address) {
  std::string text =
      (boost::format(bl::translate("%1% has encountered an error and needs to close. We are "
                                   "sorry for the inconvenience.")
                         .str()) %
       application)
          .str();
  if (!dumpPath.empty()) {
    text += (boost::format(bl::translate("\n\nWe have created a crash dump file which can help us "
                                         "troubleshoot the problem: <A HREF=\"%1%\">%1%</A>.")
                               .str()) %
             dumpPath)
                .str();
    text +=
        (boost::format(bl::translate("\n\nPlease send this file to us with \"Send error report\", "
                                     "or mail it to <A HREF=\"mailto:%1%\">%1%</A>.")
                           .str()) %
         address)
            .str();
  } else {
    text += (boost::format(bl::translate("\n\nPlease send a mail to <A HREF=\"mailto:%1%\">%1%</A> "
                                         "that describes how to reproduce the problem.")
                               .str()) %
             address)
                .str();
  }
  return text;
}

std::vector<Run> SplitLinks(std::string const & markup) {
  std::vector<Run> runs;
  std::string const open = "<A HREF=\"";
  size_t at = 0;
  while (at < markup.size()) {
    size_t const start = markup.find(open, at);
    size_t const targetEnd =
        start == std::string::npos ? start : markup.find("\">", start + open.size());
    size_t const close =
        targetEnd == std::string::npos ? targetEnd : markup.find("</A>", targetEnd + 2);
    if (close == std::string::npos) {
      runs.push_back({markup.substr(at), {}});
      break;
    }
    if (start > at) runs.push_back({markup.substr(at, start - at), {}});
    runs.push_back({markup.substr(targetEnd + 2, close - targetEnd - 2),
                    markup.substr(start + open.size(), targetEnd - start - open.size())});
    at = close + 4;
  }
  return runs;
}

std::string Subject(std::string const & application, std::string const & version) {
  return "CRASH: " + application + " " + version;
}

std::string Body() {
  return (boost::format(
              bl::translate("Please describe how to reproduce the problem or what you were "
                            "trying to do before it crashed. If possible, please also "
                            "attach the %1% file you were working with. We will treat the "
                            "file as confidential.")
                  .str()) %
          bl::translate("project").str())
      .str();
}

std::string PercentEncode(std::string const & text) {
  static char const hex[] = "0123456789ABCDEF";
  std::string encoded;
  for (char const c : text) {
    auto const byte = static_cast<unsigned char>(c);
    if ((byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') ||
        (byte >= '0' && byte <= '9') || byte == '-' || byte == '.' || byte == '_' || byte == '~') {
      encoded.push_back(c);
    } else {
      encoded.push_back('%');
      encoded.push_back(hex[byte >> 4]);
      encoded.push_back(hex[byte & 0xf]);
    }
  }
  return encoded;
}

std::string MailtoUrl(std::string const & address, std::string const & subject,
                      std::string const & body, std::string const & dumpPath) {
  std::string text;
  if (!dumpPath.empty())
    text =
        (boost::format(bl::translate("Please attach the file \"%1%\". ").str()) % dumpPath).str();
  text += body;
  // The address is kept as it is but for what would end it early or is no
  // plain ASCII.
  std::string safeAddress;
  for (char const c : address)
    if (c == '?' || c == '&' || c == '#' || c == '%' || static_cast<unsigned char>(c) <= ' ' ||
        static_cast<unsigned char>(c) >= 0x7f)
      safeAddress += PercentEncode(std::string(1, c));
    else
      safeAddress.push_back(c);
  return "mailto:" + safeAddress + "?subject=" + PercentEncode(subject) +
         "&body=" + PercentEncode(text);
}

}  // namespace crash_report
