#include "html/HtmlStyleSheet.h"

namespace {

bool IsBlank(wxUniChar c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f'; }

// Trimmed, and every run of blanks one space.
wxString Collapsed(wxString const & text) {
  wxString out;
  out.reserve(text.size());
  bool blank = false;
  for (wxUniChar const c : text) {
    if (IsBlank(c)) {
      blank = !out.empty();
      continue;
    }
    if (blank) out += ' ';
    blank = false;
    out += c;
  }
  return out;
}

wxString Trimmed(wxString text) {
  size_t begin = 0;
  while (begin < text.size() && IsBlank(text[begin])) ++begin;
  size_t end = text.size();
  while (end > begin && IsBlank(text[end - 1])) --end;
  return text.substr(begin, end - begin);
}

// The text without its comments; an open comment runs to the end. Quoted
// texts keep a "/*" that is inside them.
wxString WithoutComments(wxString const & css) {
  wxString out;
  out.reserve(css.size());
  wxUniChar quote = 0;
  for (auto it = css.begin(); it != css.end(); ++it) {
    wxUniChar const c = *it;
    if (quote != 0) {
      out += c;
      if (c == '\\' && it + 1 != css.end()) {
        out += *++it;
      } else if (c == quote) {
        quote = 0;
      }
      continue;
    }
    if (c == '/' && it + 1 != css.end() && *(it + 1) == '*') {
      ++it;
      while (it + 1 != css.end() && !(*it == '*' && *(it + 1) == '/')) ++it;
      if (it + 1 == css.end()) break;
      ++it;
      out += ' ';
      continue;
    }
    if (c == '"' || c == '\'') quote = c;
    out += c;
  }
  return out;
}

}  // namespace

std::vector<HtmlStyleRule> HtmlStyleSheet::ReadRules(wxString const & css) {
  std::vector<HtmlStyleRule> rules;
  wxString const text = WithoutComments(css);
  wxString selector;
  wxString body;
  int depth = 0;
  wxUniChar quote = 0;
  for (auto it = text.begin(); it != text.end(); ++it) {
    wxUniChar const c = *it;
    if (depth == 0 && quote != 0) {
      // A quoted text in a selector (a[title="{"]) is read as the comment
      // remover read it: no block opens or closes inside it.
      selector += c;
      if (c == '\\' && it + 1 != text.end())
        selector += *++it;
      else if (c == quote)
        quote = 0;
      continue;
    }
    if (depth == 0) {
      if (c == '"' || c == '\'') {
        quote = c;
        selector += c;
      } else if (c == '{') {
        depth = 1;
      } else if (c == '}' || c == ';') {
        selector.clear();  // a stray close or a block-less statement
      } else {
        selector += c;
      }
      continue;
    }
    if (quote != 0) {
      body += c;
      if (c == '\\' && it + 1 != text.end())
        body += *++it;
      else if (c == quote)
        quote = 0;
      continue;
    }
    if (c == '"' || c == '\'') quote = c;
    if (c == '{') ++depth;
    if (c == '}' && --depth == 0) {
      rules.push_back({Collapsed(selector), Trimmed(body)});
      selector.clear();
      body.clear();
      continue;
    }
    body += c;
  }
  if (depth > 0) {
    // A string open at the end is closed there, as a block is, so that the
    // rule written reads back the same.
    if (quote != 0) body += quote;
    while (--depth > 0) body += " }";
    rules.push_back({Collapsed(selector), Trimmed(body)});
  }
  return rules;
}

wxString HtmlStyleSheet::GetCssText() const {
  wxString text;
  for (HtmlStyleRule const & rule : mRules) {
    if (!text.empty()) text += '\n';
    text += rule.selectorText + " { " + rule.style + (rule.style.empty() ? "}" : " }");
  }
  return text;
}

void HtmlStyleSheet::SetCssText(wxString const & css) {
  mRules = ReadRules(css);
  NotifyChanged();
}

HtmlStyleRule * HtmlStyleSheet::FindRule(wxString const & selector) {
  wxString const wanted = Collapsed(selector);
  for (HtmlStyleRule & rule : mRules)
    if (rule.selectorText.IsSameAs(wanted, false)) return &rule;
  return nullptr;
}

void HtmlStyleSheet::AddRule(wxString const & selector, wxString const & style, int index) {
  HtmlStyleRule rule{Collapsed(selector), Trimmed(style)};
  if (index < 0 || static_cast<size_t>(index) >= mRules.size())
    mRules.push_back(std::move(rule));
  else
    mRules.insert(mRules.begin() + index, std::move(rule));
  NotifyChanged();
}

HtmlStyleSheet & HtmlDocumentStyle::CreateStyleSheet() {
  mSheets.push_back(std::make_unique<HtmlStyleSheet>());
  mSheets.back()->SetChangeHandler([this] {
    if (mChanged) mChanged();
  });
  return *mSheets.back();
}
