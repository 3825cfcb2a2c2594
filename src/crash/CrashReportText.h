#pragma once
// The texts of the crash report: what the dialog says, with its links
// written as <A HREF="target">text</A>, and the mail that sends the dump.

#include <string>
#include <vector>

namespace crash_report {

// Where reports go: the profile's "Crash diagnostics" section, entry
// "SupportAddress"; kDefaultSupportAddress when the application set none.
extern char const kDefaultSupportAddress[];
std::string SupportAddress();

// The dialog's content for `application`, with `dumpPath` ("" when no dump
// was written) and `address`.
std::string Content(std::string const & application, std::string const & dumpPath,
                    std::string const & address);

// A run of the content: plain text, or a link's text with its target.
struct Run {
  std::string text;
  std::string target;  // empty for plain text
};
// Splits marked-up text into runs. A link that is not closed stays text.
std::vector<Run> SplitLinks(std::string const & markup);

std::string Subject(std::string const & application, std::string const & version);
std::string Body();

// Every byte but A-Z a-z 0-9 - . _ ~ as %XX (UTF-8 bytes, upper-case hex).
std::string PercentEncode(std::string const & text);
// "mailto:<address>?subject=...&body=..." with the dump named in the body.
std::string MailtoUrl(std::string const & address, std::string const & subject,
                      std::string const & body, std::string const & dumpPath);

}  // namespace crash_report
