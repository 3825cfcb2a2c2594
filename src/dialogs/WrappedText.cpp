#include "dialogs/WrappedText.h"

#include <algorithm>

#include <wx/dcclient.h>
#include <wx/display.h>
#include <wx/stattext.h>

#include "dialogs/LimitLineLength.h"
#include "dialogs/VxDialog.h"

void ShowWrappedText(VxDialog & dialog, int controlId, wxString const & text) {
  auto * label = wxDynamicCast(dialog.GetDlgItem(controlId), wxStaticText);
  if (label == nullptr) return;
  wxSize const room = label->GetSize();
  std::wstring wrapped = text.ToStdWstring();
  {
    wxClientDC dc(label);
    dc.SetFont(label->GetFont());
    wrapped = LimitLineLength::ByPixels(wrapped, dc, static_cast<size_t>(std::max(room.x, 1)));
  }
  label->SetLabelText(wrapped);
  int const needed = LimitLineLength::GetBoundsRect(wrapped.c_str(), label->GetFont()).height;
  if (needed <= room.y) return;
  int const displayHeight = wxDisplay(&dialog).GetClientArea().height;
  int const tallest = std::max(dialog.GetSize().y, displayHeight * 3 / 4);
  int const growth = std::min(needed - room.y, tallest - dialog.GetSize().y);
  if (growth <= 0) return;
  wxSize const client = dialog.GetClientSize();
  dialog.SetClientSize(client.x, client.y + growth);
  dialog.ArrangeLayout();
}
