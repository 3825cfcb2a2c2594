#include "crash/VxDumpMessageDialog.h"

#include <gio/gio.h>

#include <wx/artprov.h>
#include <wx/button.h>
#include <wx/clipbrd.h>
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
  int y = margin + std::max(icon, instruction->GetSize().y) + margin;

  std::string const content = crash_report::Content(VxSystemInfo::GetApplicationName(), mPath,
                                                    crash_report::SupportAddress());
  for (crash_report::Run const & run : crash_report::SplitLinks(content)) {
    wxWindow * piece = nullptr;
    if (run.target.empty()) {
      std::string text = run.text;
      while (!text.empty() && text.front() == '\n') {  // paragraph breaks become space
        text.erase(0, 1);
        y += margin / 2;
      }
      if (text.empty()) continue;
      auto * label = new wxStaticText(this, wxID_ANY, FromUtf8(text), wxPoint(textLeft, y));
      label->Wrap(textWidth);
      piece = label;
    } else {
      auto * link =
          new wxHyperlinkCtrl(this, wxID_ANY, FromUtf8(run.text), FromUtf8(run.target),
                              wxPoint(textLeft, y), wxDefaultSize, wxHL_ALIGN_LEFT | wxNO_BORDER);
      link->SetMaxSize(wxSize(textWidth, -1));
      link->SetSize(std::min(link->GetBestSize().x, textWidth), -1);
      piece = link;
    }
    y += piece->GetSize().y + 2;
  }
  y += margin;

  std::vector<std::pair<int, wxString>> buttons;
  if (!mPath.empty()) {
    buttons = {{kSendButton, vx3::Tr("Send error report")},
               {kDontSendButton, vx3::Tr("Don't send")}};
  } else {
    buttons = {{IDCLOSE, vx3::Tr("Close")}};
  }
  int x = width - margin;
  for (auto it = buttons.rbegin(); it != buttons.rend(); ++it) {
    auto * button = new wxButton(this, it->first, it->second);
    int const buttonWidth = std::max(button->GetBestSize().x, FromDIP(80));
    x -= buttonWidth;
    button->SetSize(x, y, buttonWidth, FromDIP(kButtonHeight));
    x -= FromDIP(kButtonGap);
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
