#include "audit/AuditTrailTransform.h"

#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xmlerror.h>
#include <libxslt/security.h>
#include <libxslt/transform.h>
#include <libxslt/xslt.h>
#include <libxslt/xsltInternals.h>
#include <libxslt/xsltutils.h>

#include <cstdarg>
#include <cstdio>
#include <fstream>
#include <memory>
#include <mutex>
#include <sstream>

#include "utl/Translation.h"

namespace {

// No network, no DTD loading, no entity substitution, no huge documents;
// libxml2's own limits (depth 256, text sizes) stay in force.
constexpr int kParseOptions = XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;

struct DocFree {
  void operator()(xmlDoc * doc) const { xmlFreeDoc(doc); }
};
struct StylesheetFree {
  void operator()(xsltStylesheet * sheet) const { xsltFreeStylesheet(sheet); }
};
struct ContextFree {
  void operator()(xsltTransformContext * context) const { xsltFreeTransformContext(context); }
};
struct SecurityFree {
  void operator()(xsltSecurityPrefs * prefs) const { xsltFreeSecurityPrefs(prefs); }
};
using DocPtr = std::unique_ptr<xmlDoc, DocFree>;

// The messages libxml2 and libxslt report while one transform runs on this
// thread, instead of stderr.
thread_local std::string * tMessages = nullptr;

void Collect(void * /*context*/, char const * format, ...) {
  if (tMessages == nullptr || tMessages->size() > 2000) return;
  char buffer[512];
  va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(buffer, sizeof buffer, format, arguments);
  va_end(arguments);
  *tMessages += buffer;
}

class MessageScope {
public:
  explicit MessageScope(std::string & messages) {
    tMessages = &messages;
    xmlSetGenericErrorFunc(nullptr, Collect);
    xsltSetGenericErrorFunc(nullptr, Collect);
  }
  ~MessageScope() {
    xmlSetGenericErrorFunc(nullptr, nullptr);
    xsltSetGenericErrorFunc(nullptr, nullptr);
    tMessages = nullptr;
  }
  MessageScope(MessageScope const &) = delete;
  MessageScope & operator=(MessageScope const &) = delete;
};

std::string FirstLine(std::string text) {
  size_t const end = text.find('\n');
  if (end != std::string::npos) text.resize(end);
  return text;
}

AuditTrailHtml Problem(std::string problem) {
  AuditTrailHtml result;
  result.problem = std::move(problem);
  return result;
}

// Parses `text` as `what`; a DTD, a parse error or an oversize text is a
// problem.
DocPtr Parse(std::string const & text, char const * what, std::string & problem) {
  if (text.size() > kMaxInputBytes) {
    problem = std::string("The ") + what + " is too large.";
    return nullptr;
  }
  DocPtr doc(
      xmlReadMemory(text.data(), static_cast<int>(text.size()), nullptr, nullptr, kParseOptions));
  if (!doc) {
    xmlError const * error = xmlGetLastError();
    problem = std::string("The ") + what + " is no well-formed XML";
    if (error != nullptr && error->message != nullptr)
      problem += " (line " + std::to_string(error->line) + ": " + FirstLine(error->message) + ")";
    problem += ".";
    return nullptr;
  }
  if (doc->intSubset != nullptr || doc->extSubset != nullptr) {
    problem = std::string("The ") + what + " declares a document type, which is not allowed.";
    return nullptr;
  }
  return doc;
}

std::unique_ptr<xsltSecurityPrefs, SecurityFree> ForbidEverything() {
  std::unique_ptr<xsltSecurityPrefs, SecurityFree> prefs(xsltNewSecurityPrefs());
  if (!prefs) return prefs;
  for (xsltSecurityOption const option :
       {XSLT_SECPREF_READ_FILE, XSLT_SECPREF_WRITE_FILE, XSLT_SECPREF_CREATE_DIRECTORY,
        XSLT_SECPREF_READ_NETWORK, XSLT_SECPREF_WRITE_NETWORK})
    xsltSetSecurityPrefs(prefs.get(), option, xsltSecurityForbid);
  return prefs;
}

bool ReadFile(std::string const & path, std::string & text) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  in.seekg(0, std::ios::end);
  std::streamoff const size = in.tellg();
  if (size < 0) return false;
  if (static_cast<size_t>(size) > kMaxInputBytes) {
    text.assign(kMaxInputBytes + 1, ' ');  // refused as too large by Parse
    return true;
  }
  in.seekg(0);
  text.resize(static_cast<size_t>(size));
  return static_cast<bool>(in.read(text.data(), size)) || size == 0;
}

std::string Escaped(std::string const & text) {
  std::string out;
  for (char const c : text) {
    switch (c) {
      case '<': out += "&lt;"; break;
      case '>': out += "&gt;"; break;
      case '&': out += "&amp;"; break;
      case '"': out += "&quot;"; break;
      default: out += c;
    }
  }
  return out;
}

}  // namespace

AuditTrailHtml TransformAuditTrail(std::string const & trailXml, std::string const & stylesheet) {
  // libxslt's global state is set up once; the rest is per call.
  static std::once_flag started;
  std::call_once(started, [] {
    xmlInitParser();
    xsltInit();
  });
  std::string messages;
  MessageScope const scope(messages);
  std::string problem;

  DocPtr styleDoc = Parse(stylesheet, "stylesheet", problem);
  if (!styleDoc) return Problem(problem);
  // The stylesheet owns its document from here on, also when it fails.
  std::unique_ptr<xsltStylesheet, StylesheetFree> sheet(xsltParseStylesheetDoc(styleDoc.get()));
  if (!sheet) {
    // libxslt frees the document only when it succeeded.
    return Problem("The stylesheet is no valid XSLT: " + FirstLine(messages));
  }
  static_cast<void>(styleDoc.release());

  DocPtr trail = Parse(trailXml, "audit trail", problem);
  if (!trail) return Problem(problem);
  xmlNode const * root = xmlDocGetRootElement(trail.get());
  if (root == nullptr || xmlStrcmp(root->name, BAD_CAST "AuditTrail") != 0)
    return Problem("The file is no audit trail.");

  std::unique_ptr<xsltTransformContext, ContextFree> context(
      xsltNewTransformContext(sheet.get(), trail.get()));
  auto prefs = ForbidEverything();
  if (!context || !prefs || xsltSetCtxtSecurityPrefs(prefs.get(), context.get()) != 0)
    return Problem("The page could not be prepared.");
  xsltSetTransformErrorFunc(context.get(), nullptr, Collect);
  DocPtr page(
      xsltApplyStylesheetUser(sheet.get(), trail.get(), nullptr, nullptr, nullptr, context.get()));
  if (!page || context->state != XSLT_STATE_OK)
    return Problem("The stylesheet failed on the audit trail: " + FirstLine(messages));

  xmlChar * bytes = nullptr;
  int size = 0;
  if (xsltSaveResultToString(&bytes, &size, page.get(), sheet.get()) != 0)
    return Problem("The page could not be written.");
  AuditTrailHtml result;
  result.ok = true;
  if (bytes != nullptr) result.html.assign(reinterpret_cast<char const *>(bytes), size);
  xmlFree(bytes);
  return result;
}

AuditTrailHtml TransformAuditTrailFile(std::string const & trailPath,
                                       std::string const & stylesheetPath) {
  std::string trail;
  std::string stylesheet;
  if (!ReadFile(trailPath, trail)) return Problem("The file " + trailPath + " cannot be read.");
  if (!ReadFile(stylesheetPath, stylesheet))
    return Problem("The file " + stylesheetPath + " cannot be read.");
  return TransformAuditTrail(trail, stylesheet);
}

std::string AuditTrailProblemPage(std::string const & problem) {
  return "<!DOCTYPE html><html><head><meta charset=\"utf-8\"><title>Audit Trail</title></head>"
         "<body style=\"font-family: sans-serif; font-size: 10pt; margin: 1em\">"
         "<h3>" +
         Escaped(vx3::Tr("The audit trail cannot be shown.").utf8_string()) + "</h3><p>" +
         Escaped(problem) + "</p></body></html>";
}
