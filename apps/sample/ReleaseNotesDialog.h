#pragma once
// The sample's "Release notes": a rich text resource of the sample's own
// resource module shown in a read-only rich edit.

#include <wx/dialog.h>

class VxRichEdit;
class wxFrame;
class wxMenu;

// The release notes' text resource (resources/html/).
constexpr unsigned int kReleaseNotesResource = 7001;

class ReleaseNotesDialog : public wxDialog {
public:
  explicit ReleaseNotesDialog(wxWindow * parent);

  VxRichEdit & GetNotes() const { return *mNotes; }

private:
  VxRichEdit * mNotes = nullptr;
};

// Appends the command to `menu`; `frame` handles it.
void AddReleaseNotesCommand(wxMenu & menu, wxFrame & frame);
