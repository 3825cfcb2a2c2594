#pragma once
// Rows holding a path: a folder, a set of folders or a file, edited in an
// edit with a browse button. The path is kept exactly as given (a Linux name
// need not be UTF-8; see dialogs/FileSystemNames.h); only the cell shows it
// cut to 259 characters and compacted to the cell's width (PathCompact.h).

#include "properties/PropertyItem.h"

// What the path rows share: the text, its drawing and taking it back.
class PropertyItemPath : public PropertyItem {
public:
  PROPERTY_ITEM_CLONE(PropertyItemPath)

  void DrawValue(wxDC & dc, RECT rect) override;
  using PropertyItem::SetData;
  // The browse editor's data.
  void SetData(wxWindow * control) override;

  void SetData(wxString const & path) { mPath = path; }
  void GetData(wxString & path) const { path = mPath; }

protected:
  using PropertyItem::PropertyItem;

  wxString mPath;
};

class PropertyItemFolderPath : public PropertyItemPath {
public:
  PropertyItemFolderPath(wchar_t const * name, unsigned id, wchar_t const * description);
  PropertyItemFolderPath(unsigned nameId, unsigned id, unsigned descriptionId);
  PROPERTY_ITEM_CLONE(PropertyItemFolderPath)

  wxWindow * CreateInPlaceControl(wxWindow * parent, RECT rect) override;
};

// A set of folders, chosen in the folder collection dialog; the two texts
// are handed to that dialog as they are.
class PropertyItemFolderCollection : public PropertyItemFolderPath {
public:
  PropertyItemFolderCollection(wchar_t const * name, unsigned id, wchar_t const * description,
                               wchar_t const * first, wchar_t const * second);
  PropertyItemFolderCollection(unsigned nameId, unsigned id, unsigned descriptionId,
                               wchar_t const * first, wchar_t const * second);
  PROPERTY_ITEM_CLONE(PropertyItemFolderCollection)

  wxWindow * CreateInPlaceControl(wxWindow * parent, RECT rect) override;

  wxString const & GetFirstText() const { return mFirst; }
  wxString const & GetSecondText() const { return mSecond; }

private:
  wxString mFirst;
  wxString mSecond;
};

class PropertyItemFilePath : public PropertyItemPath {
public:
  PropertyItemFilePath(wchar_t const * name, unsigned id, wchar_t const * description);
  PropertyItemFilePath(unsigned nameId, unsigned id, unsigned descriptionId);
  PROPERTY_ITEM_CLONE(PropertyItemFilePath)

  wxWindow * CreateInPlaceControl(wxWindow * parent, RECT rect) override;
};
