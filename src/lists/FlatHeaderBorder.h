#pragma once
// The flat look's frame around a header and its grooves at the column
// edges, shared by the list's header and the tree list's.

class wxDC;
class CHeaderCtrl;

void DrawFlatHeaderBorder(wxDC & dc, CHeaderCtrl const & header);
