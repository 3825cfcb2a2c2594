#pragma once
// A dialog asked to show an empty caption names the application instead, as
// the message boxes do, so that no window stands untitled.

#include <wx/string.h>

wxString TitleOrApplicationName(wxString const & caption);
