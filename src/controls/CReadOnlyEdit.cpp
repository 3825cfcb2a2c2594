#include "controls/CReadOnlyEdit.h"

#include "platform/SysColor.h"

CReadOnlyEdit::CReadOnlyEdit(wxWindow * parent, wxWindowID id, wxString const & value,
                             wxPoint const & position, wxSize const & size, long style)
    : wxTextCtrl(parent, id, value, position, size, style | wxTE_READONLY) {
  COLORREF const window = GetSysColor(COLOR_WINDOW);
  SetBackgroundColour(wxColour(GetRValue(window), GetGValue(window), GetBValue(window)));
}
