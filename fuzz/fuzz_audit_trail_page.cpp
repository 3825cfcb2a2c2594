// Audit-trail files (and stylesheets) from anywhere through the page
// transform: a page or a named problem, never a crash, nothing read or
// written. An input holding the line "--XSL--" is a trail, then the
// stylesheet; any other input is a trail shown with the library's
// stylesheet.
#include <cstdint>
#include <string>

#include "audit/AuditTrailTransform.h"
#include "utl/AuditTrail.h"

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  std::string const input(reinterpret_cast<char const *>(data), size);
  static std::string const kSeparator = "\n--XSL--\n";
  size_t const split = input.find(kSeparator);
  bool const ownStylesheet = split != std::string::npos;
  std::string const trail = ownStylesheet ? input.substr(0, split) : input;
  std::string const stylesheet =
      ownStylesheet ? input.substr(split + kSeparator.size()) : AuditTrail::GetStylesheet();
  AuditTrailHtml const page = TransformAuditTrail(trail, stylesheet);
  if (!page.ok && page.problem.empty()) __builtin_trap();
  if (page.ok && !ownStylesheet && page.html.find("<table") == std::string::npos) __builtin_trap();
  if (!page.ok && AuditTrailProblemPage(page.problem).find("<script") != std::string::npos &&
      page.problem.find("<script") != std::string::npos)
    __builtin_trap();  // a problem is shown as text
  return 0;
}
