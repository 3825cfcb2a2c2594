#pragma once
// The folder editor: "..." asks for a folder with the toolkit's folder
// chooser ("Select Folder"), starting at the data cut to 259 characters.

#include "properties/PropertyInPlaceEditAndBrowse.h"

class PropertyInPlaceBrowseForFolder : public PropertyInPlaceEditAndBrowse {
public:
  PropertyInPlaceBrowseForFolder(wxWindow * parent, RECT const & rect,
                                 wxString const & data = wxString());
  // The parent owns the result.
  static PropertyInPlaceBrowseForFolder * CreateInPlaceControl(wxWindow * parent, RECT rect);

protected:
  bool OnBrowse() override;
};
