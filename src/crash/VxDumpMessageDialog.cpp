#include "crash/VxDumpMessageDialog.h"

#include <gio/gio.h>

#include <wx/artprov.h>
#include <wx/button.h>
#include <wx/clipbrd.h>
#include <wx/dcclient.h>
#include <wx/hyperlink.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>

#include "controls/VxSendMail.h"
#include "crash/CrashReportText.h"
#include "dialogs/VxMessageBox.h"
#include "platform/WinUser.h"
#include "settings/LaunchURL.h"
#include "utl/Translation.h"
#include "utl/VxSystemInfo.h"

namespace {

constexpr int kMargin = 12;
constexpr int kIconSize = 32;
constexpr int kButtonHeight = 30;
constexpr int kButtonGap = 8;

bool ShowItemInFileManager(std::string const & path) {
  GError * error = nullptr;
  GDBusConnection * bus = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, &error);
  if (bus == nullptr) {
    g_clear_error(&error);
    return false;
  }
  gchar * uri = g_filename_to_uri(path.c_str(), nullptr, nullptr);
  bool shown = false;
  if (uri != nullptr) {
    gchar const * uris[] = {uri, nullptr};
    GVariant * reply = g_dbus_connection_call_sync(
        bus, "org.freedesktop.FileManager1", "/org/freedesktop/FileManager1",
        "org.freedesktop.FileManager1", "ShowItems", g_variant_new("(^ass)", uris, ""), nullptr,
        G_DBUS_CALL_FLAGS_NONE, 5000, nullptr, &error);
    shown = reply != nullptr;
    if (reply != nullptr) g_variant_unref(reply);
    g_clear_error(&error);
    g_free(uri);
  }
  g_object_unref(bus);
  return shown;
}

VxDumpMessageDialog::FolderOpener gFolderOpener = &ShowItemInFileManager;

wxString FromUtf8(std::string const & text) { return wxString::FromUTF8(text.c_str()); }

}  // namespace

bool CopyToClipboard(std::string const & text) {
  if (wxTheClipboard == nullptr || !wxTheClipboard->Open()) return false;
  bool const copied = wxTheClipboard->SetData(new wxTextDataObject(FromUtf8(text)));
  // X11 drops what a program offered once it exits: hand it to the
  // clipboard manager, as this helper ends right after.
  if (copied) wxTheClipboard->Flush();
  wxTheClipboard->Close();
  return copied;
}

VxDumpMessageDialog::FolderOpener VxDumpMessageDialog::SetFolderOpener(FolderOpener opener) {
  FolderOpener const previous = gFolderOpener;
  gFolderOpener = opener != nullptr ? opener : &ShowItemInFileManager;
  return previous;
}

VxDumpMessageDialog::VxDumpMessageDialog(std::string path, wxWindow * parent)
    : VxDialog(kTemplate, parent, static_cast<unsigned int>(-1)), mPath(std::move(path)) {}

bool VxDumpMessageDialog::OnInitDialog() {
  bool const result = VxDialog::OnInitDialog();
  SetTitle(FromUtf8(VxSystemInfo::GetApplicationName()));
  Layout460();
  return result;
}

void VxDumpMessageDialog::Layout460() {
  int const width = FromDIP(kWidth);
  int const margin = FromDIP(kMargin);
  int const icon = FromDIP(kIconSize);
  int const textLeft = margin * 2 + icon;
  int const textWidth = width - textLeft - margin;
  new wxStaticBitmap(this, wxID_ANY, wxArtProvider::GetBitmap(wxART_ERROR, wxART_MESSAGE_BOX),
                     wxPoint(margin, margin), wxSize(icon, icon));
  auto * instruction = new wxStaticText(this, wxID_ANY, vx3::Tr("Unexpected error occurred"),
                                        wxPoint(textLeft, margin));
  wxFont bigger = instruction->GetFont().Bold();
  bigger.SetPointSize(bigger.GetPointSize() + 2);
  instruction->SetFont(bigger);
  instruction->SetSize(instruction->GetTextExtent(instruction->GetLabel()));
  int y = margin + std::max(icon, instruction->GetSize().y) + margin;

  // The content flows as text does: a link or a short text goes on the line
  // where the text before it ended, when it fits there.
  int const right = textLeft + textWidth;
  int x = textLeft;
  int lineHeight = 0;
  auto const newLine = [&] {
    y += lineHeight;
    x = textLeft;
    lineHeight = 0;
  };
  std::string const content = crash_report::Content(VxSystemInfo::GetApplicationName(), mPath,
                                                    crash_report::SupportAddress());
  for (crash_report::Run const & run : crash_report::SplitLinks(content)) {
    if (run.target.empty()) {
      wxString text = FromUtf8(run.text);
      // What is left of the line after a link ("." say) goes on beside it.
      wxString const head = text.BeforeFirst('\n');
      if (x > textLeft && !head.empty()) {
        wxSize const extent = GetTextExtent(head);
        if (x + extent.x <= right) {
          new wxStaticText(this, wxID_ANY, head, wxPoint(x, y), extent);
          x += extent.x;
          lineHeight = std::max(lineHeight, extent.y);
          text = text.Mid(head.size());
        }
      }
      for (bool first = true; text.StartsWith("\n"); first = false) {
        text.erase(0, 1);
        if (first)
          newLine();
        else
          y += margin / 2;  // a paragraph's space
      }
      if (text.empty()) continue;
      if (x > textLeft) newLine();
      auto * label = new wxStaticText(this, wxID_ANY, text, wxPoint(textLeft, y));
      label->Wrap(textWidth);
      label->SetSize(textLeft, y, textWidth, label->GetBestSize().y);
      // Where its last line ends, the next piece may go on.
      wxString const last = label->GetLabel().AfterLast('\n');
      wxSize const lastExtent = label->GetTextExtent(last);
      y += label->GetSize().y - lastExtent.y;
      x = textLeft + lastExtent.x;
      lineHeight = lastExtent.y;
    } else {
      // A long path is shortened in its middle, leaving room for the full
      // stop after it; its tip shows it whole. The generic control: GTK's
      // link button shows underscores doubled.
      auto * link = new wxGenericHyperlinkCtrl(this, wxID_ANY, wxString(), FromUtf8(run.target),
                                               wxDefaultPosition, wxDefaultSize,
                                               wxHL_ALIGN_LEFT | wxNO_BORDER);
      wxString const label =
          wxControl::Ellipsize(FromUtf8(run.text), wxClientDC(link), wxELLIPSIZE_MIDDLE,
                               textWidth - link->GetTextExtent(". ").x, wxELLIPSIZE_FLAGS_NONE);
      link->SetLabel(label);
      wxSize const best = link->GetBestSize();
      if (x > textLeft && x + best.x > right) newLine();
      link->SetSize(x, y, std::min(best.x, textWidth), best.y);
      link->SetToolTip(FromUtf8(run.text));
      x += link->GetSize().x;
      lineHeight = std::max(lineHeight, best.y);
    }
  }
  newLine();
  y += margin;

  std::vector<std::pair<int, wxString>> buttons;
  if (!mPath.empty()) {
    buttons = {{kSendButton, vx3::Tr("Send error report")},
               {kDontSendButton, vx3::Tr("Don't send")}};
  } else {
    buttons = {{IDCLOSE, vx3::Tr("Close")}};
  }
  int buttonRight = width - margin;
  for (auto it = buttons.rbegin(); it != buttons.rend(); ++it) {
    auto * button = new wxButton(this, it->first, it->second);
    int const buttonWidth = std::max(button->GetBestSize().x, FromDIP(80));
    buttonRight -= buttonWidth;
    button->SetSize(buttonRight, y, buttonWidth, FromDIP(kButtonHeight));
    buttonRight -= FromDIP(kButtonGap);
    if (it + 1 == buttons.rend()) button->SetDefault();
  }
  SetClientSize(width, y + FromDIP(kButtonHeight) + margin);
  Bind(wxEVT_HYPERLINK, &VxDumpMessageDialog::OnLink, this);
  Bind(wxEVT_BUTTON, &VxDumpMessageDialog::OnAnyButton, this);
}

void VxDumpMessageDialog::OnLink(wxHyperlinkEvent & event) {
  OnHyperlinkClicked(event.GetURL().utf8_string());
}

void VxDumpMessageDialog::OnAnyButton(wxCommandEvent & event) {
  int const id = event.GetId();
  if (id != kSendButton && id != kDontSendButton) {
    event.Skip();
    return;
  }
  if (OnButtonClicked(id)) EndDialog(id);
}

void VxDumpMessageDialog::OnHyperlinkClicked(std::string const & target) {
  std::string const mailto = "mailto:";
  if (target.compare(0, mailto.size(), mailto) == 0) {
    if (CopyToClipboard(target.substr(mailto.size())))
      VxMessageBox(vx3::Tr("Email address copied to clipboard.").wc_str(), MB_ICONINFORMATION);
    else
      VxMessageBox(vx3::Tr("Email address could not be copied to clipboard.").wc_str(), MB_OK);
    return;
  }
  if (gFolderOpener(target)) return;
  if (CopyToClipboard(target))
    VxMessageBox(vx3::Tr("File path copied to clipboard.").wc_str(), MB_ICONINFORMATION);
  else
    VxMessageBox(vx3::Tr("File path could not be copied to clipboard.").wc_str(), MB_OK);
}

bool VxDumpMessageDialog::OnButtonClicked(int id) {
  if (id == kSendButton) {
    std::string const address = crash_report::SupportAddress();
    std::string const subject =
        crash_report::Subject(VxSystemInfo::GetApplicationName(),
                              VxSystemInfo::GetApplicationVersion(VxSystemInfo::VersionDisplay));
    std::string const body = crash_report::Body();
    VxSendMail mail;
    mail.AddTo(address);
    mail.SetSubject(subject);
    mail.SetBody(body);
    if (!mPath.empty()) mail.AddAttachment(mPath);
    if (!mail.Send()) {
      std::string const url = crash_report::MailtoUrl(address, subject, body, mPath);
      LaunchURL(FromUtf8(url).wc_str(), true);
    }
  }
  return id == kSendButton || id == kDontSendButton;
}
