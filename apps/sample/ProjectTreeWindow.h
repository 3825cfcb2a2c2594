#pragma once
// The sample's runs by project: a window with the family's tree. Projects
// hold their measurement runs; a run's status (in brackets at the end of its
// text) gives its colour. Checks are tri-state, several runs are selected
// at once, a run is dragged to another project (Ctrl: copied), a closed
// project opens while a drag hovers over it, Edit > Find searches, and the
// tree is saved and loaded in its plain-text form. A tip over a row tells
// the run's status and volume; the volume field refuses what is not a
// volume with a tip that goes away by itself.

#include <string>

#include <wx/frame.h>

#include "lists/InfoTipWnd.h"
#include "lists/VxTreeCtrl.h"

class wxMenu;
class wxTextCtrl;

// Appends Tools > Runs by project to `menu`; `frame` opens the window.
void AddProjectTreeCommand(wxMenu & menu, wxFrame & frame);

class ProjectTreeWindow : public wxFrame {
public:
  // Volumes are kept in the items' data, in microlitres.
  static constexpr double kMaxVolumeMl = 1000.0;

  explicit ProjectTreeWindow(wxWindow * parent);

  VxTreeCtrl & Tree() { return *mTree; }
  InfoTipWnd & RowTip() { return mRowTip; }
  wxTextCtrl & VolumeField() { return *mVolume; }

  // Edit > Find with the text given: selects the next run holding it as a
  // word (any case); false, and the status bar says so, when none does.
  bool FindNext(wxString const & text);
  // The text form to or from a file; false with a message when it fails,
  // and a failed load keeps the tree as it was.
  bool SaveTo(wxString const & path);
  bool LoadFrom(wxString const & path);
  // Takes the volume field's text for the selected runs; refuses (tip, old
  // text back) what is not a number from 0 to kMaxVolumeMl.
  bool AcceptVolume();
  // The colour of every run from the status word of its text.
  void ColourByStatus();
  // What the tip says over the row at `client` (tree coordinates): run
  // text, a "\r", then status and volume. Empty away from a row.
  std::wstring RowTipText(POINT client) const;

private:
  void BuildMenus();
  void FillSampleProjects();
  void ShowSelectedVolume();
  void OnFind();
  void OnSave();
  void OnLoad();
  void OnTipNotify(NotifyEvent & event);

  VxTreeCtrl * mTree = nullptr;
  wxTextCtrl * mVolume = nullptr;
  InfoTipWnd mRowTip;
  POINT mTipPoint{-1, -1};
  std::wstring mTipText;
  wxString mLastFind;
};
