#include "work/VxStatusBar.h"

#include <algorithm>

VxStatusBar::VxStatusBar(wxWindow * parent) : wxStatusBar(parent, wxID_ANY) {
  mPanes.push_back({0, -1, nullptr, true});
  ApplyPanes(wxString());
  Bind(wxEVT_SIZE, &VxStatusBar::OnSize, this);
}

int VxStatusBar::CommandToIndex(unsigned int id) const {
  for (size_t i = 0; i < mPanes.size(); ++i)
    if (mPanes[i].id == id) return static_cast<int>(i);
  return -1;
}

unsigned int VxStatusBar::GetItemID(int index) const {
  return index >= 0 && index < GetCount() ? mPanes[size_t(index)].id : ~0u;
}

void VxStatusBar::SetPaneText(int index, wxString const & text, int) {
  if (index >= 0 && index < GetCount()) SetStatusText(text, index);
}

bool VxStatusBar::InsertWindow(wxWindow * window, int width, int index, unsigned int id) {
  if (window == nullptr) return false;
  wxString const message = MessageText();
  int const existing = CommandToIndex(id);
  if (existing >= 0) {
    Pane & pane = mPanes[size_t(existing)];
    pane.window = window;
    pane.visible = true;
  } else {
    index = std::max(1, std::min(index + 1, GetCount()));
    mPanes.insert(mPanes.begin() + index, Pane{id, width, window, true});
  }
  if (window->GetParent() != this) window->Reparent(this);
  window->Show();
  ApplyPanes(message);
  return true;
}

void VxStatusBar::RemoveWindow(wxWindow * window, bool hideOnly, unsigned int id) {
  int const index = CommandToIndex(id);
  if (index < 0) return;
  wxString const message = MessageText();
  Pane & pane = mPanes[size_t(index)];
  if (window != nullptr) window->Hide();
  if (pane.window != nullptr && pane.window != window) pane.window->Hide();
  if (hideOnly)
    pane.visible = false;
  else
    mPanes.erase(mPanes.begin() + index);
  ApplyPanes(message);
}

bool VxStatusBar::IsPaneVisible(unsigned int id) const {
  int const index = CommandToIndex(id);
  return index >= 0 && mPanes[size_t(index)].visible;
}

void VxStatusBar::ApplyPanes(wxString const & message) {
  std::vector<int> widths;
  for (Pane const & pane : mPanes) widths.push_back(pane.visible ? pane.width : 0);
  SetFieldsCount(GetCount(), widths.data());
  for (int i = 0; i < GetCount(); ++i) SetStatusText(mPanes[size_t(i)].id == 0 ? message : "", i);
  PlaceWindows();
}

wxString VxStatusBar::MessageText() const {
  int const index = CommandToIndex(0);
  return index >= 0 && index < GetFieldsCount() ? GetStatusText(index) : wxString();
}

void VxStatusBar::PlaceWindows() {
  for (int i = 0; i < GetCount(); ++i) {
    Pane const & pane = mPanes[size_t(i)];
    if (pane.window == nullptr || !pane.visible) continue;
    wxRect rect;
    if (GetFieldRect(i, rect)) pane.window->SetSize(rect.Deflate(1));
  }
}

void VxStatusBar::OnSize(wxSizeEvent & event) {
  PlaceWindows();
  event.Skip();
}
