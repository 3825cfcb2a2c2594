#include "html/IHTMLDocumentUtilities.h"

#include "platform/WinHResult.h"

namespace IHTMLDocumentUtilities {

HRESULT GetCSSText(HtmlDocumentStyle * document, wxString * text) {
  if (document == nullptr || text == nullptr) return E_POINTER;
  HtmlStyleSheet const * sheet = document->GetSheet(0);
  if (sheet == nullptr) return E_FAIL;
  *text = sheet->GetCssText();
  return S_OK;
}

HRESULT SetCSSText(HtmlDocumentStyle * document, wxString const & text) {
  if (document == nullptr) return E_POINTER;
  HtmlStyleSheet * sheet = document->GetSheet(0);
  if (sheet == nullptr) sheet = &document->CreateStyleSheet();
  sheet->SetCssText(text);
  return S_OK;
}

HRESULT GetIHTMLRuleStyle(wxString const & selector, HtmlStyleSheet * sheet,
                          HtmlStyleRule ** rule) {
  if (sheet == nullptr || rule == nullptr) return E_POINTER;
  *rule = sheet->FindRule(selector);
  return *rule != nullptr ? S_OK : E_FAIL;
}

HRESULT GetIHTMLRuleStyle(wxString const & selector, HtmlDocumentStyle * document,
                          HtmlStyleRule ** rule) {
  if (document == nullptr || rule == nullptr) return E_POINTER;
  for (size_t i = 0; i < document->GetSheetCount(); ++i)
    if (GetIHTMLRuleStyle(selector, document->GetSheet(i), rule) == S_OK) return S_OK;
  *rule = nullptr;
  return E_FAIL;
}

void AddMissingHTMLRuleStyles(wxString const & css, HtmlStyleSheet * sheet) {
  if (sheet == nullptr) return;
  for (HtmlStyleRule const & rule : HtmlStyleSheet::ReadRules(css))
    if (sheet->FindRule(rule.selectorText) == nullptr)
      sheet->AddRule(rule.selectorText, rule.style);
}

}  // namespace IHTMLDocumentUtilities
