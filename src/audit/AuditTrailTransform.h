#pragma once
// Turns an audit-trail file into the HTML page the view shows, with the
// stylesheet beside it, in this process (libxslt). The browser never runs
// the stylesheet itself: it would need file access for its pages.
//
// Both documents are outside input and parsed hardened: no network, no DTD
// (a document that declares one is refused), no entity substitution, the
// parser's depth limit kept, at most kMaxInputBytes each. The transform may
// read, write or fetch nothing (document(), xsl:include, exsl:document all
// fail). Every failure comes back as a problem text; nothing throws.

#include <cstddef>
#include <string>

struct AuditTrailHtml {
  bool ok = false;
  std::string html;     // UTF-8, when ok
  std::string problem;  // for a person, when not ok (English)
};

constexpr size_t kMaxInputBytes = size_t{256} << 20;

AuditTrailHtml TransformAuditTrail(std::string const & trailXml, std::string const & stylesheet);
// The same from files; a file that cannot be read is a problem that names it.
AuditTrailHtml TransformAuditTrailFile(std::string const & trailPath,
                                       std::string const & stylesheetPath);
// A small page that names `problem` (escaped), shown instead of the trail.
std::string AuditTrailProblemPage(std::string const & problem);
