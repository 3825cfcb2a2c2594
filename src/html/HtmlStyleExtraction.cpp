#include "html/HtmlStyleExtraction.h"

std::wstring ExtractStyleFromHtml(std::wstring_view html) {
  static constexpr std::wstring_view kOpen = L"<style";
  static constexpr std::wstring_view kClose = L"</style>";
  size_t const open = html.find(kOpen);
  if (open == std::wstring_view::npos) return std::wstring();
  size_t const inner = open + kOpen.size();
  size_t const close = html.find(kClose, inner);
  if (close == std::wstring_view::npos) return std::wstring();
  std::wstring_view const element = html.substr(inner, close - inner);
  size_t const tagEnd = element.find(L'>');
  if (tagEnd == std::wstring_view::npos) return std::wstring();
  return std::wstring(element.substr(tagEnd + 1));
}
