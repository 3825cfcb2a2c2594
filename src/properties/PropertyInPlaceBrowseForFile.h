#pragma once
// The file editor: "..." asks for a file with SelectFileDialog, which takes
// an existing file or a new name without asking about overwriting.

#include "properties/PropertyInPlaceEditAndBrowse.h"

class PropertyInPlaceBrowseForFile : public PropertyInPlaceEditAndBrowse {
public:
  PropertyInPlaceBrowseForFile(wxWindow * parent, RECT const & rect,
                               wxString const & data = wxString());
  // The parent owns the result.
  static PropertyInPlaceBrowseForFile * CreateInPlaceControl(wxWindow * parent, RECT rect);

protected:
  bool OnBrowse() override;
};
