#include "properties/PropertyItemPaths.h"

#include "properties/EditorCaret.h"
#include "properties/PathCompact.h"
#include "properties/PropertyInPlaceBrowseForFile.h"
#include "properties/PropertyInPlaceBrowseForFolderCollection.h"

namespace {

// The most of a path a cell shows, as the platform's path buffer held.
constexpr size_t kMaxShownPath = 259;

// The editor, readied: caret at the end of its edit, focus there.
wxWindow * Ready(PropertyInPlaceEditAndBrowse * editor, wxString const & path) {
  editor->SetData(path);
  ReadyForTyping(editor->FindWindow(PropertyInPlaceEditAndBrowse::kEditId));
  return editor;
}

}  // namespace

void PropertyItemPath::DrawValue(wxDC & dc, RECT rect) {
  int const width = (rect.right - 3) - (rect.left + 3);
  DrawValueText(dc, rect, CompactPath(dc, SingleLine(mPath.Left(kMaxShownPath)), width));
}

void PropertyItemPath::SetData(wxWindow * control) {
  if (auto const * editor = dynamic_cast<PropertyInPlaceEditAndBrowse *>(control))
    editor->GetData(mPath);
}

PropertyItemFolderPath::PropertyItemFolderPath(wchar_t const * name, unsigned id,
                                               wchar_t const * description)
    : PropertyItemPath(name, id, description) {}

PropertyItemFolderPath::PropertyItemFolderPath(unsigned nameId, unsigned id, unsigned descriptionId)
    : PropertyItemPath(nameId, id, descriptionId) {}

wxWindow * PropertyItemFolderPath::CreateInPlaceControl(wxWindow * parent, RECT rect) {
  return Ready(PropertyInPlaceBrowseForFolder::CreateInPlaceControl(parent, rect), mPath);
}

PropertyItemFolderCollection::PropertyItemFolderCollection(wchar_t const * name, unsigned id,
                                                           wchar_t const * description,
                                                           wchar_t const * first,
                                                           wchar_t const * second)
    : PropertyItemFolderPath(name, id, description),
      mFirst(first != nullptr ? first : L""),
      mSecond(second != nullptr ? second : L"") {}

PropertyItemFolderCollection::PropertyItemFolderCollection(unsigned nameId, unsigned id,
                                                           unsigned descriptionId,
                                                           wchar_t const * first,
                                                           wchar_t const * second)
    : PropertyItemFolderPath(nameId, id, descriptionId),
      mFirst(first != nullptr ? first : L""),
      mSecond(second != nullptr ? second : L"") {}

wxWindow * PropertyItemFolderCollection::CreateInPlaceControl(wxWindow * parent, RECT rect) {
  return Ready(
      PropertyInPlaceBrowseForFolderCollection::CreateInPlaceControl(parent, rect, mFirst, mSecond),
      mPath);
}

PropertyItemFilePath::PropertyItemFilePath(wchar_t const * name, unsigned id,
                                           wchar_t const * description)
    : PropertyItemPath(name, id, description) {}

PropertyItemFilePath::PropertyItemFilePath(unsigned nameId, unsigned id, unsigned descriptionId)
    : PropertyItemPath(nameId, id, descriptionId) {}

wxWindow * PropertyItemFilePath::CreateInPlaceControl(wxWindow * parent, RECT rect) {
  return Ready(PropertyInPlaceBrowseForFile::CreateInPlaceControl(parent, rect), mPath);
}
