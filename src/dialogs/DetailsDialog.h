#pragma once
// A short message with a details panel that opens on request ("&Details >>"),
// for what went wrong in a list of work and the like. The dialog runs
// modally from its constructor; the free functions are what callers use.
//
// A batch run silences them all with MuteDetailsDialog and collects through
// its signal what would have been shown.

#include <boost/signals2/signal.hpp>

#include <wx/gdicmn.h>
#include <wx/string.h>

#include "dialogs/VxDialog.h"

class wxButton;
class wxCheckBox;
class wxTextCtrl;

// The mute switch of the details dialogs and the signal that gets text,
// details and caption (null for the form without a caption) of every
// dialog not shown because of it.
class MuteDetailsDialog
    : public boost::signals2::signal<void(wchar_t const *, wchar_t const *, wchar_t const *)> {
public:
  static MuteDetailsDialog & Instance();
  void Mute(bool muted) { mMuted = muted; }
  bool IsMuted() const { return mMuted; }

private:
  MuteDetailsDialog() = default;
  bool mMuted = false;
};

class DetailsDialogClass : public VxDialog {
public:
  static constexpr unsigned int kTemplate = 13100;
  static constexpr unsigned int kTemplateWithCheckBox = 13420;
  static constexpr int kDetailsEditId = 13041;
  static constexpr int kDetailsButtonId = 13042;
  static constexpr int kTextId = 13043;
  static constexpr int kIconId = 13066;
  static constexpr int kCheckBoxId = 13394;
  // Icon values that name the standard icons; any other is a bitmap resource.
  static constexpr unsigned int kIconHand = 16;
  static constexpr unsigned int kIconExclamation = 48;
  static constexpr unsigned int kIconAsterisk = 64;

  // Runs the dialog (the parent null: above the main window). With a `key`
  // the form has the check box, and a stored answer under `key` in
  // "DontShowAgainMessages" keeps it from running at all.
  DetailsDialogClass(wxWindow * parent, wchar_t const * text, wchar_t const * details,
                     wchar_t const * caption, unsigned int icon, bool showDetails,
                     wchar_t const * key = nullptr);

  // What the last run ended with: IDOK, IDCANCEL, or 0 when it did not run.
  int GetResult() const { return mResult; }
  bool IsDetailsClosed() const { return mDetailsClosed; }

protected:
  bool OnInitDialog() override;
  void OnOK() override;

private:
  void ToggleDetails();
  void GrowForText(wxWindow * text, wxString const & wrapped, int extra, bool tooWide);
  void ShowIcon();
  void OnDetailsButton(wxCommandEvent & event);
  void OnSizeWhileOpen(wxSizeEvent & event);

  bool mDetailsClosed;
  wxString mText;
  wxString mDetails;
  wxString mCaption;
  bool mHasCheckBox;
  wxString mKey;
  unsigned int mIcon;
  wxSize mOpenSize;
  int mClosedHeight = 0;
  int mResult = 0;
};

// A message with details under a "&Details >>" button, the panel open at
// start when `showDetails`. Icons: 16 error, 48 warning, 64 information,
// else a bitmap resource (warning when there is none).
void DetailsDialog(wchar_t const * text, wchar_t const * details, unsigned int icon,
                   bool showDetails);
void DetailsDialog(wchar_t const * text, wchar_t const * details, wchar_t const * caption,
                   unsigned int icon, bool showDetails);
void DetailsDialog(wxWindow * parent, wchar_t const * text, wchar_t const * details,
                   wchar_t const * caption, unsigned int icon, bool showDetails);
// The form with "Don't show this message again": OK with the box ticked
// stores 1 under `key`, and any stored value but -1 keeps it away.
void DetailsDialogDontShowAgain(wchar_t const * text, wchar_t const * details,
                                wchar_t const * caption, wchar_t const * key, unsigned int icon,
                                bool showDetails);
