#include "DetailsCommands.h"

#include <memory>
#include <string>
#include <vector>

#include <wx/frame.h>
#include <wx/menu.h>

#include "SampleCommands.h"
#include "dialogs/DetailsDialog.h"
#include "dialogs/InfoDialog.h"
#include "dialogs/ScrollMessageBox.h"
#include "platform/WinUser.h"
#include "utl/Translation.h"

using vx3::Tr;

wchar_t const kSampleDetailsKey[] = L"SampleImportDetails";
wchar_t const kSampleInfoKey[] = L"SampleReleaseNotes";

namespace {

std::wstring W(wxString const & text) { return text.ToStdWstring(); }

std::wstring ImportDetails() {
  std::wstring details;
  for (int run = 1; run <= 40; ++run)
    details += W(wxString::Format(Tr("Run %d: the reference sample is missing."), run)) + L"\n";
  return details;
}

void ShowImportFailure(bool open) {
  std::wstring const text = W(Tr("40 runs could not be imported."));
  std::wstring const caption = W(Tr("Import"));
  DetailsDialog(text.c_str(), ImportDetails().c_str(), caption.c_str(),
                DetailsDialogClass::kIconExclamation, open);
}

wxString AnswerName(int answer) {
  switch (answer) {
    case IDOK: return Tr("Answer", "OK");
    case IDCANCEL: return Tr("Answer", "Cancel");
    case IDYES: return Tr("Answer", "Yes");
    case IDNO: return Tr("Answer", "No");
    default: return wxString::Format("%d", answer);
  }
}

}  // namespace

void AppendDetailsCommands(wxMenu & menu, wxFrame & frame) {
  menu.AppendSeparator();
  menu.Append(kDetailsOpenCommand, Tr("Menu command", "Details &open"));
  menu.Append(kDetailsClosedCommand, Tr("Menu command", "Details c&losed"));
  menu.Append(kDetailsDontShowCommand, Tr("Menu command", "Details, don't show &again"));
  menu.Append(kInfoPlainCommand, Tr("Menu command", "Information, &plain text (Yes, No)"));
  menu.Append(kInfoHtmlCommand, Tr("Menu command", "Information, &HTML"));
  menu.Append(kInfoRtfCommand, Tr("Menu command", "Information, &rich text"));
  menu.Append(kScrollBoxCommand, Tr("Menu command", "Scroll &box"));
  menu.AppendCheckItem(kMuteDetailsCommand, Tr("Menu command", "&Mute details dialogs"));

  auto on = [&frame](int command, auto action) {
    frame.Bind(
        wxEVT_MENU, [&frame, action](wxCommandEvent & e) { action(frame, e); }, command);
  };
  on(kDetailsOpenCommand, [](wxFrame &, wxCommandEvent &) { ShowImportFailure(true); });
  on(kDetailsClosedCommand, [](wxFrame &, wxCommandEvent &) { ShowImportFailure(false); });
  on(kDetailsDontShowCommand, [](wxFrame & f, wxCommandEvent &) {
    std::wstring const text = W(Tr("The instrument clock is 3 minutes behind."));
    std::wstring const details = W(Tr("Times of the runs are taken from the computer."));
    std::wstring const caption = W(Tr("Instrument"));
    DetailsDialogDontShowAgain(text.c_str(), details.c_str(), caption.c_str(), kSampleDetailsKey,
                               DetailsDialogClass::kIconAsterisk, false);
    f.SetStatusText(Tr("Forget the stored answers to see the clock message again."));
  });
  on(kInfoPlainCommand, [](wxFrame & f, wxCommandEvent &) {
    std::wstring const title = W(Tr("Release notes"));
    std::wstring const text =
        W(Tr("Version 6.3\n\n- Runs sort by their numbers.\n- The time grid takes 15-second "
             "steps.\n\nShow these notes at the next start?"));
    InfoDialog dialog(title.c_str(), &f);
    dialog.SetText(text.c_str(), InfoDialog::PlainText);
    dialog.SetButtons(InfoDialog::Yes | InfoDialog::No, InfoDialog::Yes);
    dialog.EnableDontShowAgain(kSampleInfoKey);
    bool const shows = InfoDialog::WillShow(kSampleInfoKey);
    int const answer = dialog.DoModal();
    f.SetStatusText(wxString::Format(
        shows ? Tr("The notes were answered: %s.") : Tr("Not shown: the remembered answer is %s."),
        AnswerName(answer)));
  });
  on(kInfoHtmlCommand, [](wxFrame & f, wxCommandEvent &) {
    std::wstring const title = W(Tr("Calibration"));
    std::wstring const page =
        W(Tr("<h1>Calibration</h1><p>The reference <b>R-12</b> is due on 2026-05-01.</p>"
             "<table><tr><th>Instrument</th><th>Due</th></tr><tr><td>Balance 2</td>"
             "<td>2026-05-01</td></tr><tr><td>pH meter</td><td>2026-06-12</td></tr></table>"));
    InfoDialog dialog(title.c_str(), &f);
    dialog.SetText(page.c_str(), InfoDialog::Html);
    dialog.SetButtons(InfoDialog::OK | InfoDialog::Cancel, InfoDialog::OK);
    dialog.SetDefaultSize(InfoDialog::Small);
    f.SetStatusText(
        wxString::Format(Tr("The page was answered: %s."), AnswerName(dialog.DoModal())));
  });
  on(kInfoRtfCommand, [](wxFrame & f, wxCommandEvent &) {
    std::wstring const title = W(Tr("Method"));
    // Rich text as the family's method files carry it: the words are
    // translated, the markup is not.
    std::wstring const page =
        L"{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}{\\f1 Courier New;}}"
        L"{\\colortbl;\\red192\\green0\\blue0;}\\f0\\fs28\\b " +
        W(Tr("Method M-7")) + L"\\b0\\fs20\\par " + W(Tr("Column oven:")) +
        L" \\f1 40 \\'b0C\\f0\\par\\cf1 " + W(Tr("Replace the guard column after 500 runs.")) +
        L"\\cf0\\par}";
    InfoDialog dialog(title.c_str(), &f);
    dialog.SetText(page.c_str(), InfoDialog::RichText);
    dialog.SetDefaultSize(InfoDialog::Small);
    f.SetStatusText(
        wxString::Format(Tr("The method was answered: %s."), AnswerName(dialog.DoModal())));
  });
  on(kScrollBoxCommand, [](wxFrame & f, wxCommandEvent &) {
    std::wstring text = W(Tr("These files were not archived:")) + L"\n";
    for (int run = 1; run <= 60; ++run)
      text += W(wxString::Format(Tr("Run %03d.raw: the disk is full."), run)) + L"\n";
    text += W(Tr("Archive them again?"));
    std::wstring const caption = W(Tr("Archive"));
    int const answer = VxScrollMessageBox(text.c_str(), MB_YESNO, caption.c_str());
    f.SetStatusText(
        wxString::Format(Tr("The archive question was answered: %s."), AnswerName(answer)));
  });
  // What the muted dialogs would have shown, listed once the switch goes off.
  auto caught = std::make_shared<std::vector<wxString>>();
  on(kMuteDetailsCommand, [caught](wxFrame & f, wxCommandEvent &) {
    MuteDetailsDialog & mute = MuteDetailsDialog::Instance();
    if (!mute.IsMuted()) {
      caught->clear();
      mute.connect([caught](wchar_t const * text, wchar_t const *, wchar_t const *) {
        caught->push_back(text != nullptr ? text : L"");
      });
      mute.Mute(true);
      f.SetStatusText(Tr("Details dialogs are muted."));
      return;
    }
    mute.Mute(false);
    mute.disconnect_all_slots();
    wxString list;
    for (wxString const & text : *caught) list += (list.empty() ? "" : "; ") + text;
    f.SetStatusText(wxString::Format(Tr("Muted %zu details dialog(s): %s"), caught->size(), list));
  });
}
