#include "utl/VxString.h"

#include <cwchar>
#include <memory>

namespace VxString {

wxString const & Empty() {
  static wxString const empty;
  return empty;
}

wchar_t * vxstrdup(wchar_t const * text) {
  if (text == nullptr) return nullptr;
  size_t const length = std::wcslen(text);
  wchar_t * copy = new wchar_t[length + 1];
  std::wmemcpy(copy, text, length + 1);
  return copy;
}

wchar_t * SetStr(wchar_t *& target, wchar_t const * value) {
  // Copy before releasing: `value` may live inside `target`.
  wchar_t * const copy = vxstrdup(value);
  delete[] target;
  target = copy;
  return target;
}

wchar_t * ConcatStr(wchar_t *& target, wchar_t const * value) {
  if (value == nullptr) return target;
  size_t const head = target != nullptr ? std::wcslen(target) : 0;
  size_t const tail = std::wcslen(value);
  std::unique_ptr<wchar_t[]> joined(new wchar_t[head + tail + 1]);
  if (head > 0) std::wmemcpy(joined.get(), target, head);
  std::wmemcpy(joined.get() + head, value, tail + 1);
  delete[] target;
  target = joined.release();
  return target;
}

wxString SplitString(wxString & text, wchar_t separator) {
  size_t const at = text.find(separator);
  if (at == wxString::npos) {
    wxString all;
    all.swap(text);
    return all;
  }
  wxString const head = text.substr(0, at);
  text.erase(0, at + 1);
  return head;
}

}  // namespace VxString
