#include "dialogs/ButtonRow.h"

#include <algorithm>
#include <climits>
#include <vector>

#include <wx/window.h>

#include "dialogs/VxDialog.h"

int PackButtonRowRight(wxWindow & dialog, std::initializer_list<int> ids) {
  std::vector<wxWindow *> buttons;
  for (int id : ids)
    if (wxWindow * button = dialog.FindWindow(id)) buttons.push_back(button);
  if (buttons.empty()) return INT_MAX;
  int right = 0;
  for (wxWindow * button : buttons) right = std::max(right, button->GetRect().GetRight() + 1);
  int spacing = 6;
  if (buttons.size() >= 2) {
    int const gap = buttons[1]->GetPosition().x - (buttons[0]->GetRect().GetRight() + 1);
    if (gap >= 0) spacing = gap;
  }
  int left = right;
  for (auto it = buttons.rbegin(); it != buttons.rend(); ++it) {
    wxWindow * button = *it;
    if (!button->IsShown()) continue;
    left = right - button->GetSize().x;
    button->Move(left, button->GetPosition().y);
    right = left - spacing;
  }
  return left;
}

void WidenForButtonRow(VxDialog & dialog, int rowLeft, int margin) {
  if (rowLeft >= margin) return;
  wxSize const size = dialog.GetClientSize();
  dialog.SetClientSize(size.x + margin - rowLeft, size.y);
  dialog.ArrangeLayout();
}
