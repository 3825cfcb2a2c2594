#include "lists/ListClipboard.h"

#include <wx/clipbrd.h>
#include <wx/dataobj.h>

#include "lists/HtmlClipboardBlock.h"

char const kHtmlFormatTarget[] = "HTML Format";
char const kHtmlTarget[] = "text/html";

namespace {

wxCustomDataObject * BytesObject(char const * target, std::string const & bytes) {
  auto * object = new wxCustomDataObject(wxDataFormat(target));
  object->SetData(bytes.size(), bytes.data());
  return object;
}

}  // namespace

bool PutTextAndHtmlOnClipboard(wxString const & text, std::optional<std::string> const & block) {
  wxClipboardLocker const locker(wxTheClipboard);
  if (!locker) return false;
  auto * composite = new wxDataObjectComposite;
  composite->Add(new wxTextDataObject(text), true);
  if (block) {
    composite->Add(BytesObject(kHtmlTarget, HtmlDocumentOfClipBlock(*block)));
    composite->Add(BytesObject(kHtmlFormatTarget, *block));
  }
  wxTheClipboard->Clear();
  return wxTheClipboard->SetData(composite);
}
