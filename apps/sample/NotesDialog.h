#pragma once
// The sample's "Notes" pad: a rich edit with buttons for bold, underline,
// colour, size and face, and Open/Save of RTF files. A format button
// changes the selected text and the text typed next; a file that cannot be
// read or written is named in the pad's status line and nothing is lost.

#include <wx/dialog.h>

class VxRichEdit;
class wxChoice;
class wxFrame;
class wxMenu;
class wxStaticText;
class wxToggleButton;

class NotesDialog : public wxDialog {
public:
  explicit NotesDialog(wxWindow * parent);

  VxRichEdit & GetPad() const { return *mPad; }
  wxToggleButton & GetBold() const { return *mBold; }
  wxToggleButton & GetUnderline() const { return *mUnderline; }
  wxChoice & GetColour() const { return *mColour; }
  wxChoice & GetSize() const { return *mSize; }
  wxChoice & GetFace() const { return *mFace; }
  wxStaticText & GetStatus() const { return *mStatus; }

  // What the Open and Save buttons do once a file is chosen.
  bool OpenFile(wxString const & path);
  bool SaveFile(wxString const & path);

private:
  void ApplyFormat();
  void OnOpen(wxCommandEvent & event);
  void OnSave(wxCommandEvent & event);

  VxRichEdit * mPad = nullptr;
  wxToggleButton * mBold = nullptr;
  wxToggleButton * mUnderline = nullptr;
  wxChoice * mColour = nullptr;
  wxChoice * mSize = nullptr;
  wxChoice * mFace = nullptr;
  wxStaticText * mStatus = nullptr;
};

// Appends the command to `menu`; `frame` handles it.
void AddNotesCommand(wxMenu & menu, wxFrame & frame);
