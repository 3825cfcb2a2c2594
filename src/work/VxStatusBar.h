#pragma once
// The family's status bar: a wxStatusBar whose panes carry ids (0 is the
// message pane) and may hold a window each, as Progress needs for its
// spinner (pane 1036) and gauge (pane 1037). The message pane stays the
// first field, so that SetStatusText(text) of a frame keeps reaching it;
// the index given to InsertWindow orders the window panes behind it.

#include <wx/statusbr.h>

#include <vector>

#include "work/VxStatusAccess.h"

class VxStatusBar : public wxStatusBar, public VxStatusAccess {
public:
  explicit VxStatusBar(wxWindow * parent);

  int CommandToIndex(unsigned int id) const override;
  void SetPaneText(int index, wxString const & text, int update) override;
  bool InsertWindow(wxWindow * window, int width, int index, unsigned int id) override;
  void RemoveWindow(wxWindow * window, bool hideOnly, unsigned int id) override;
  int GetCount() const override { return static_cast<int>(mPanes.size()); }
  unsigned int GetItemID(int index) const override;

  bool IsPaneVisible(unsigned int id) const;

private:
  struct Pane {
    unsigned int id;
    int width;  // -1: takes the rest
    wxWindow * window;
    bool visible;
  };

  // Panes come and go in front of the message pane; its text stays.
  void ApplyPanes(wxString const & message);
  wxString MessageText() const;
  void PlaceWindows();
  void OnSize(wxSizeEvent & event);

  std::vector<Pane> mPanes;
};
