#pragma once
// A read-only edit that keeps the window colour instead of turning grey.

#include <wx/textctrl.h>

class CReadOnlyEdit : public wxTextCtrl {
public:
  CReadOnlyEdit(wxWindow * parent, wxWindowID id, wxString const & value = wxString(),
                wxPoint const & position = wxDefaultPosition, wxSize const & size = wxDefaultSize,
                long style = 0);
};
