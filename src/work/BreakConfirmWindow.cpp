#include "work/BreakConfirmWindow.h"

#include <gtk/gtk.h>
#include <wx/artprov.h>
#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>

#include "utl/Translation.h"
#include "work/ProgressPump.h"

BreakConfirmWindow::BreakConfirmWindow(wxWindow * breakDialog, std::function<void(bool)> onAnswer)
    : wxDialog(breakDialog, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
               wxCAPTION | wxCLOSE_BOX),
      mOnAnswer(std::move(onAnswer)) {
  auto * const icon = new wxStaticBitmap(
      this, wxID_ANY, wxArtProvider::GetBitmap(wxART_WARNING, wxART_MESSAGE_BOX));
  mQuestion = new wxStaticText(this, wxID_ANY, wxString());
  mYes = new wxButton(this, wxID_YES, vx3::Tr("Message box", "&Yes"));
  mNo = new wxButton(this, wxID_NO, vx3::Tr("Message box", "&No"));
  mYes->SetDefault();
  SetEscapeId(wxID_NO);

  auto * const text = new wxBoxSizer(wxHORIZONTAL);
  text->Add(icon, 0, wxALIGN_CENTRE_VERTICAL | wxRIGHT, FromDIP(12));
  text->Add(mQuestion, 1, wxALIGN_CENTRE_VERTICAL);
  auto * const buttons = new wxBoxSizer(wxHORIZONTAL);
  buttons->AddStretchSpacer();
  buttons->Add(mYes, 0, wxRIGHT, FromDIP(6));
  buttons->Add(mNo);
  auto * const all = new wxBoxSizer(wxVERTICAL);
  all->Add(text, 1, wxEXPAND | wxALL, FromDIP(12));
  all->Add(buttons, 0, wxEXPAND | wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(12));
  SetSizer(all);

  Bind(
      wxEVT_BUTTON, [this](wxCommandEvent &) { Answer(true); }, wxID_YES);
  Bind(
      wxEVT_BUTTON, [this](wxCommandEvent &) { Answer(false); }, wxID_NO);
  Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent & event) {
    if (!event.CanVeto()) {
      event.Skip();
      return;
    }
    event.Veto();
    Answer(false);
  });

  // Modal within the break dialog's group only: a grab of GTK holds for the
  // windows of one group.
  GtkWindow * const window = GTK_WINDOW(GetHandle());
  gtk_window_group_add_window(gtk_window_get_group(GTK_WINDOW(breakDialog->GetHandle())), window);
  gtk_window_set_modal(window, TRUE);
  gtk_window_set_keep_above(window, TRUE);
  progress_pump::AllowWindow(this);
}

BreakConfirmWindow::~BreakConfirmWindow() { progress_pump::DisallowWindow(this); }

void BreakConfirmWindow::Ask(wxString const & question, wxString const & caption) {
  SetTitle(caption);
  mQuestion->SetLabelText(question);
  GetSizer()->SetSizeHints(this);
  CentreOnParent();
  Show();
  Raise();
  mYes->SetFocus();
}

wxString BreakConfirmWindow::GetQuestion() const { return mQuestion->GetLabelText(); }

void BreakConfirmWindow::Answer(bool yes) {
  if (!IsShown()) return;
  Hide();
  if (mOnAnswer) mOnAnswer(yes);
}
