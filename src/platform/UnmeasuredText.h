#pragma once
// Drawing a label without the measuring that comes with wxDC::DrawText. On
// GTK every device context draws through a graphics context, and its
// DrawText lays the text out a second time only to widen the bounding box
// (MinX/MaxX), which no control here reads: half of a tree row's painting.
#include <wx/dc.h>
#include <wx/string.h>

// Draws `text` at (x, y) in the font and foreground colour of `dc`, exactly
// as dc.DrawText does, but leaves the bounding box alone.
void DrawTextUnmeasured(wxDC & dc, wxString const & text, int x, int y);
