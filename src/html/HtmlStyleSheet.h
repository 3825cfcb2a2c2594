#pragma once
// The style model of an HTML view: its style sheets as rules of a selector
// and a declaration block, read by a small CSS rule reader. The view keeps
// the page's style here, so that reading and completing a style sheet needs
// no round trip to the browser; the view puts changes into the page.

#include <functional>
#include <memory>
#include <vector>

#include <wx/string.h>

struct HtmlStyleRule {
  wxString selectorText;  // blanks collapsed: "td.x, th"
  wxString style;         // the declarations, trimmed: "color: red"
};

class HtmlStyleSheet {
public:
  // Reads `css` by its "{" and "}" pairs: comments are dropped, quoted
  // texts and nested blocks (an @media rule) stay in their rule, a rule
  // left open at the end is closed there. Text without a block is dropped.
  static std::vector<HtmlStyleRule> ReadRules(wxString const & css);

  // The sheet as text, one rule a line: "selector { style }".
  wxString GetCssText() const;
  void SetCssText(wxString const & css);

  std::vector<HtmlStyleRule> const & Rules() const { return mRules; }
  // The first rule of that selector, compared without regard to case
  // and blanks; null when there is none.
  HtmlStyleRule * FindRule(wxString const & selector);
  // Inserts a rule before `index`; -1 (or past the end) appends.
  void AddRule(wxString const & selector, wxString const & style, int index = -1);

  // Called after every change made through this sheet; a caller that
  // changes a rule it found calls NotifyChanged itself.
  void SetChangeHandler(std::function<void()> handler) { mChanged = std::move(handler); }
  void NotifyChanged() const {
    if (mChanged) mChanged();
  }

private:
  std::vector<HtmlStyleRule> mRules;
  std::function<void()> mChanged;
};

// A document's style sheets, in order; the first one is the one that
// GetCSSText and SetCSSText mean.
class HtmlDocumentStyle {
public:
  size_t GetSheetCount() const { return mSheets.size(); }
  HtmlStyleSheet * GetSheet(size_t index) {
    return index < mSheets.size() ? mSheets[index].get() : nullptr;
  }
  // Appends an empty sheet that reports its changes to this document.
  HtmlStyleSheet & CreateStyleSheet();
  void RemoveAll() { mSheets.clear(); }

  void SetChangeHandler(std::function<void()> handler) { mChanged = std::move(handler); }

private:
  std::vector<std::unique_ptr<HtmlStyleSheet>> mSheets;
  std::function<void()> mChanged;
};
