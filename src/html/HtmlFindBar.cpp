#include "html/HtmlFindBar.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "html/HtmlBrowser.h"
#include "utl/Translation.h"

HtmlFindBar::HtmlFindBar(wxWindow * parent, HtmlBrowser * browser)
    : wxPanel(parent, wxID_ANY), mBrowser(browser) {
  auto * sizer = new wxBoxSizer(wxHORIZONTAL);
  sizer->Add(new wxStaticText(this, wxID_ANY, vx3::Tr("Find bar", "Find:")), 0,
             wxALIGN_CENTER_VERTICAL | wxLEFT | wxRIGHT, 4);
  mText = new wxTextCtrl(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                         wxTE_PROCESS_ENTER);
  sizer->Add(mText, 1, wxALIGN_CENTER_VERTICAL | wxALL, 2);
  auto * previous = new wxButton(this, wxID_BACKWARD, vx3::Tr("Find bar", "&Previous"));
  auto * next = new wxButton(this, wxID_FORWARD, vx3::Tr("Find bar", "&Next"));
  auto * close = new wxButton(this, wxID_CLOSE, vx3::Tr("Find bar", "Close"));
  sizer->Add(previous, 0, wxALIGN_CENTER_VERTICAL | wxALL, 2);
  sizer->Add(next, 0, wxALIGN_CENTER_VERTICAL | wxALL, 2);
  mStatus = new wxStaticText(this, wxID_ANY, wxString());
  sizer->Add(mStatus, 0, wxALIGN_CENTER_VERTICAL | wxLEFT | wxRIGHT, 4);
  sizer->AddStretchSpacer();
  sizer->Add(close, 0, wxALIGN_CENTER_VERTICAL | wxALL, 2);
  SetSizer(sizer);
  Hide();

  mText->Bind(wxEVT_TEXT, &HtmlFindBar::OnText, this);
  mText->Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent &) { FindNext(wxGetKeyState(WXK_SHIFT)); });
  previous->Bind(wxEVT_BUTTON, [this](wxCommandEvent &) { FindNext(true); });
  next->Bind(wxEVT_BUTTON, [this](wxCommandEvent &) { FindNext(false); });
  close->Bind(wxEVT_BUTTON, [this](wxCommandEvent &) { Close(); });
  Bind(wxEVT_CHAR_HOOK, &HtmlFindBar::OnCharHook, this);
}

void HtmlFindBar::Open() {
  if (!IsShown()) {
    Show();
    GetParent()->Layout();
  }
  mText->SetFocus();
  mText->SelectAll();
}

void HtmlFindBar::Close() {
  if (!IsShown()) return;
  mBrowser->Find(wxString(), false);  // takes the highlights away
  Hide();
  GetParent()->Layout();
  mBrowser->GetWindow()->SetFocus();
}

long HtmlFindBar::FindNext(bool backwards) {
  wxString const text = mText->GetValue();
  if (text.empty()) {
    mStatus->SetLabel(wxString());
    mBrowser->Find(wxString(), false);
    return -1;
  }
  long const found = mBrowser->Find(text, backwards);
  // WebKit's find answers 0 for no match, wx's other browsers wxNOT_FOUND.
  mStatus->SetLabel(found <= 0 ? vx3::Tr("Find bar", "Not found") : wxString());
  Layout();
  return found <= 0 ? -1 : found;
}

wxString HtmlFindBar::GetStatusText() const { return mStatus->GetLabel(); }

void HtmlFindBar::OnText(wxCommandEvent &) { FindNext(false); }

void HtmlFindBar::OnCharHook(wxKeyEvent & event) {
  if (event.GetKeyCode() == WXK_ESCAPE)
    Close();
  else
    event.Skip();
}
