#include "dialogs/CustomMessageBoxDlg.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <tuple>
#include <utility>

#include <gtk/gtk.h>
#include <unicode/uchar.h>

#include <wx/app.h>
#include <wx/artprov.h>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/dcmemory.h>
#include <wx/display.h>
#include <wx/settings.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "dialogs/LimitLineLength.h"
#include "platform/RunningApplication.h"
#include "platform/WinUser.h"
#include "utl/Translation.h"
#include "utl/VxSystemInfo.h"

namespace {

// Texts are measured for the box's size wrapped at this many characters.
constexpr size_t kCharactersPerLine = 140;

wxString ApplicationName() {
  wxString name = wxString::FromUTF8(VxSystemInfo::GetApplicationName());
  if (name.empty() && wxTheApp != nullptr) name = wxTheApp->GetAppDisplayName();
  return name;
}

// The text for the scrolling view: the measuring wrap's lines, with a line
// that has no break opportunity cut every `limit` characters. GTK's text
// view shapes a paragraph whole, which takes minutes for one of 100,000
// characters; short paragraphs keep it lazy. A combining mark or anything
// after a zero-width joiner stays with the character before it.
std::wstring ShortParagraphs(std::wstring const & wrapped, size_t limit) {
  std::wstring out;
  out.reserve(wrapped.size() + wrapped.size() / limit);
  size_t onLine = 0;
  wchar_t previous = 0;
  for (wchar_t const c : wrapped) {
    auto const code = static_cast<UChar32>(c);
    bool const extends = u_hasBinaryProperty(code, UCHAR_GRAPHEME_EXTEND) || previous == 0x200D;
    if (c == L'\n') {
      onLine = 0;
    } else if (!extends && ++onLine > limit) {
      out += L'\n';
      onLine = 1;
    }
    out += c;
    previous = c;
  }
  return out;
}

// `text` with every value that is no Unicode character (a lone surrogate,
// beyond U+10FFFF) shown as U+FFFD: wx cannot hand those to GTK.
wxString Displayable(wxString const & text) {
  wxString shown(text);
  for (auto it = shown.begin(); it != shown.end(); ++it) {
    auto const code = static_cast<uint32_t>(wxUniChar(*it).GetValue());
    if (code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) *it = wxUniChar(0xFFFD);
  }
  return shown;
}

wxArtID IconArt(unsigned int type) {
  switch (type & MB_ICONMASK) {
    case MB_ICONHAND: return wxART_ERROR;
    case MB_ICONQUESTION: return wxART_QUESTION;
    case MB_ICONASTERISK: return wxART_INFORMATION;
    default: return wxART_WARNING;  // no icon bits included
  }
}

// The font the text is drawn in. A control without a font of its own asks
// GTK for its class's default by building a label each time, the dearest
// step of the layout; that default is kept while the system's GUI font (which
// wx follows) stays the same.
wxFont TextFont(wxWindow const & text) {
  struct OwnFont : wxWindowBase {
    static wxFont const & Of(wxWindowBase const & window) { return window.*(&OwnFont::m_font); }
  };
  if (OwnFont::Of(text).IsOk() || text.GetWindowVariant() != wxWINDOW_VARIANT_NORMAL)
    return text.GetFont();
  // Never freed: no font may outlive the toolkit at exit.
  static auto * const kept = new std::pair<wxFont, wxFont>;  // system font, text's default
  wxFont const system = wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT);
  if (!kept->second.IsOk() || kept->first != system) *kept = {system, text.GetFont()};
  return kept->second;
}

// wxSize has no order of its own.
struct LessArtKey {
  bool operator()(std::pair<wxArtID, wxSize> const & a,
                  std::pair<wxArtID, wxSize> const & b) const {
    return std::make_tuple(a.first, a.second.x, a.second.y) <
           std::make_tuple(b.first, b.second.x, b.second.y);
  }
};

}  // namespace

CustomMessageBoxDlg::CustomMessageBoxDlg(unsigned int type, unsigned int helpTopic,
                                         wxWindow * parent)
    : VxDialog(kTemplateId, parent, helpTopic),
      mCaption(ApplicationName()),
      mCheckText(vx3::Tr("&Don't show this message again")),
      mType(type),
      mHelpTopic(helpTopic) {
  Bind(wxEVT_BUTTON, &CustomMessageBoxDlg::OnAnswer, this, IDYES);
  Bind(wxEVT_BUTTON, &CustomMessageBoxDlg::OnAnswer, this, IDNO);
}

void CustomMessageBoxDlg::SetButtonText(unsigned int id, wxString const & text) {
  for (auto & entry : mButtonTexts) {
    if (entry.first == id) {
      entry.second = text;
      return;
    }
  }
  mButtonTexts.emplace_back(id, text);
}

int CustomMessageBoxDlg::DoModal() {
  if (AppInfoMessagesMuted() && Kind() == MB_OK) return 0;
  return VxDialog::DoModal();
}

std::vector<int> CustomMessageBoxDlg::ButtonsInUse() const {
  std::vector<int> buttons;
  switch (Kind()) {
    case MB_OKCANCEL: buttons = {IDOK, IDCANCEL}; break;
    case MB_YESNOCANCEL: buttons = {IDYES, IDNO, IDCANCEL}; break;
    case MB_YESNO: buttons = {IDYES, IDNO}; break;
    default: buttons = {IDOK}; break;
  }
  if (mHelpTopic != 0) buttons.push_back(IDHELP);
  return buttons;
}

bool CustomMessageBoxDlg::DoDataExchange(bool saveAndValidate) {
  auto * check = dynamic_cast<wxCheckBox *>(GetDlgItem(kCheckBoxId));
  if (check == nullptr) return true;
  if (saveAndValidate)
    mCheckState = check->GetValue() ? 1 : 0;
  else
    check->SetValue(mCheckState != 0);
  return true;
}

void CustomMessageBoxDlg::RelabelButtons(wxFont const & textFont) {
  for (auto const & [id, label] : mButtonTexts) {
    wxWindow * button = GetDlgItem(static_cast<int>(id));
    if (button == nullptr) continue;
    wxString const shown = Displayable(label);
    int const textWidth = LimitLineLength::GetBoundsRect(shown.wc_str(), textFont).width;
    button->SetLabel(shown);
    // A GTK button pads its label by about X(8): a label that comes within
    // that of the button's width would be cut as well as a wider one.
    if (textWidth + FromDlgX(8) > button->GetSize().x)
      button->SetSize(textWidth + FromDlgX(8), button->GetSize().y);
  }
  // No label is ever cut, whatever the theme's padding or the translation.
  // Only the buttons of the box are asked: asking GTK is the dearest step
  // of the layout, and the others stay hidden.
  for (int id : ButtonsInUse()) {
    wxWindow * button = GetDlgItem(id);
    int const needed = button->GetBestSize().x;
    if (needed > button->GetSize().x) button->SetSize(needed, button->GetSize().y);
  }
}

void CustomMessageBoxDlg::ShowIcon() {
  auto * icon = dynamic_cast<wxStaticBitmap *>(GetDlgItem(kIconId));
  if (icon == nullptr) return;
  wxSize const size = icon->GetSize();
  // The theme's icons are looked up once a process: a lookup realises a GTK
  // widget and asks the X server, which a box should not wait for.
  static std::map<std::pair<wxArtID, wxSize>, wxBitmap, LessArtKey> icons;
  auto const key = std::make_pair(IconArt(mType), size);
  auto found = icons.find(key);
  if (found == icons.end())
    found = icons.emplace(key, wxArtProvider::GetBitmap(key.first, wxART_MESSAGE_BOX, size)).first;
  icon->SetBitmap(found->second);
  icon->SetSize(size);  // the layout counts with the template's size
}

wxSize CustomMessageBoxDlg::SizeText(wxString const & shown, wxFont const & font,
                                     wxRect const & workArea) {
  wxWindow * text = GetDlgItem(kTextId);
  std::wstring const & whole = shown.ToStdWstring();
  std::wstring wrapped = LimitLineLength::ByCharacters(whole, kCharactersPerLine);
  wxRect bounds = LimitLineLength::GetBoundsRect(wrapped.c_str(), font);

  // The room the screen's work area leaves for the text beside everything
  // else, as OnInitDialog adds it up. The frame is the window manager's;
  // before the first window of the process has shown, GTK does not know it
  // yet: a title bar is reckoned.
  wxWindow * icon = GetDlgItem(kIconId);
  int const buttonHeight = GetDlgItem(IDOK)->GetSize().y;
  int const otherWidth = FromDlgX(10) + 2 * mMarginX + icon->GetSize().x;
  int otherHeight = (mShowCheckBox ? FromDlgY(6) : FromDlgY(8)) + 2 * mMarginY + buttonHeight;
  if (mShowCheckBox) otherHeight += FromDlgY(4) + buttonHeight;
  wxSize frame = GetSize() - GetClientSize();
  frame.y = std::max(frame.y, 2 * FromDlgY(8));  // two lines: 8 units a line
  wxSize const screen = workArea.GetSize();
  wxSize const room(screen.x - frame.x - otherWidth, screen.y - frame.y - otherHeight);

  // Lines of wide characters (CJK, pictographs) may be too wide for the
  // screen at 140 characters: they wrap at the room's width instead.
  if (bounds.width > room.x && room.x > 0) {
    wxBitmap bitmap(1, 1);
    wxMemoryDC dc(bitmap);
    dc.SetFont(font);
    wrapped = LimitLineLength::ByPixels(whole, dc, static_cast<size_t>(room.x));
    bounds = LimitLineLength::GetBoundsRect(wrapped.c_str(), font);
  }
  wxSize size(bounds.width, bounds.height);
  if (size.x <= room.x && size.y <= room.y) {
    static_cast<wxStaticText *>(text)->SetLabelText(shown);
    text->SetSize(size);
    return size;
  }

  // Still too large (a very long text, a line with no break opportunity):
  // a read-only text view that scrolls. A label as tall as many screens
  // would be laid out whole by GTK and could exceed what an X window can be;
  // a text view lays out only what it shows and lets the user select and
  // copy the text. It shows the lines the text was measured in
  // (ShortParagraphs), and takes no more than three quarters of the screen's
  // height, so that the box does not hide the application it speaks for.
  std::wstring const lines = ShortParagraphs(wrapped, kCharactersPerLine);
  bounds = LimitLineLength::GetBoundsRect(lines.c_str(), font);
  int const margin = FromDlgX(2);
  int const scrollBar = wxSystemSettings::GetMetric(wxSYS_VSCROLL_X, this);
  int const maxHeight = std::min(room.y, screen.y * 3 / 4 - frame.y - otherHeight);
  size.x = std::max(std::min(bounds.width + 2 * margin + scrollBar, room.x), FromDlgX(100));
  size.y = std::max(std::min(bounds.height, maxHeight), 3 * FromDlgY(8));
  wxPoint const position = text->GetPosition();
  text->Destroy();
  auto * view = new wxTextCtrl(this, kTextId, lines, position, size,
                               wxTE_MULTILINE | wxTE_READONLY | wxTE_BESTWRAP);
  view->MoveAfterInTabOrder(icon);
  // GTK's overlay scroll bars show only under the pointer: a person must see
  // at once that there is more text. The text keeps off the view's border.
  if (GTK_IS_SCROLLED_WINDOW(view->GetHandle())) {
    GtkScrolledWindow * scrolled = GTK_SCROLLED_WINDOW(view->GetHandle());
    gtk_scrolled_window_set_overlay_scrolling(scrolled, FALSE);
    gtk_scrolled_window_set_policy(scrolled, GTK_POLICY_NEVER, GTK_POLICY_AUTOMATIC);
    GtkWidget * textView = gtk_bin_get_child(GTK_BIN(scrolled));
    if (GTK_IS_TEXT_VIEW(textView)) {
      gtk_text_view_set_left_margin(GTK_TEXT_VIEW(textView), margin);
      gtk_text_view_set_right_margin(GTK_TEXT_VIEW(textView), margin);
    }
  }
  return size;
}

void CustomMessageBoxDlg::CentreIn(wxRect const & workArea) {
  // As wxTopLevelWindow::Centre does: on a parent that is on that display,
  // else on the work area; moved back onto the work area if it would start
  // off it.
  wxRect around = workArea;
  if (wxWindow * parent = GetParent()) {
    wxRect const parentRect = parent->GetScreenRect();
    if (parentRect.Intersects(workArea)) around = parentRect;
  }
  wxRect rect = GetRect().CentreIn(around, wxBOTH);
  if (!workArea.Contains(rect.GetTopLeft()))
    rect.Offset(workArea.GetRightBottom() - rect.GetBottomRight());
  if (!workArea.Contains(rect.GetTopLeft())) rect.SetPosition(workArea.GetPosition());
  Move(rect.GetPosition());
}

void CustomMessageBoxDlg::PlaceButtons(int rowWidth, int clientWidth, int rowY) {
  wxWindow * marker = GetDlgItem(kRowMarkerId);
  marker->Move(std::max(1, (clientWidth - rowWidth) / 2 - 2 * mGapX), rowY);
  wxWindow * previous = marker;
  for (int id : ButtonsInUse()) {
    wxWindow * button = GetDlgItem(id);
    button->Move(previous->GetRect().GetRight() + 1 + mGapX, rowY);
    previous = button;
  }
  std::vector<int> const used = ButtonsInUse();
  for (int id : {IDOK, IDCANCEL, IDYES, IDNO, IDHELP})
    GetDlgItem(id)->Show(std::find(used.begin(), used.end(), id) != used.end());
}

bool CustomMessageBoxDlg::OnInitDialog() {
  VxDialog::OnInitDialog();
  SetTitle(Displayable(mCaption));
  wxWindow * text = GetDlgItem(kTextId);
  wxWindow * icon = GetDlgItem(kIconId);
  auto * check = dynamic_cast<wxCheckBox *>(GetDlgItem(kCheckBoxId));
  wxFont const textFont = TextFont(*text);
  RelabelButtons(textFont);
  check->Show(mShowCheckBox != 0);

  mGapX = FromDlgX(4);
  mMarginX = FromDlgX(6);
  mMarginY = FromDlgY(6);
  ShowIcon();
  check->SetLabel(Displayable(mCheckText));

  // The icon stands in the corner at the margins, the text X(10) to its
  // right, where the widths below count them (the template's places are for
  // one font only).
  icon->Move(mMarginX, mMarginY);
  text->Move(mMarginX + icon->GetSize().x + FromDlgX(10), mMarginY);
  // The work area of the parent's display (this window's without one),
  // asked once: the text's room and the centring both need it, and each
  // asking waits for the X server.
  int display = wxDisplay::GetFromWindow(GetParent() != nullptr ? GetParent() : this);
  if (display == wxNOT_FOUND) display = 0;
  wxRect const workArea = wxDisplay(static_cast<unsigned>(display)).GetClientArea();
  wxSize const textSize = SizeText(Displayable(mText), textFont, workArea);

  int const buttonHeight = GetDlgItem(IDOK)->GetSize().y;
  wxSize const iconSize = icon->GetSize();
  std::vector<int> const buttons = ButtonsInUse();
  int rowWidth = 0;
  for (int id : buttons) rowWidth += GetDlgItem(id)->GetSize().x;
  rowWidth += (static_cast<int>(buttons.size()) - 1) * mGapX;

  int const contentWidth = FromDlgX(10) + textSize.x + 2 * mMarginX + iconSize.x;
  int height = (mShowCheckBox ? FromDlgY(6) : FromDlgY(8)) + 2 * mMarginY + buttonHeight +
               std::max(iconSize.y, textSize.y);
  int width = std::max(contentWidth, 2 * mMarginX + rowWidth);
  if (mShowCheckBox) {
    int const checkX = iconSize.x + FromDlgX(10) + mMarginX;
    check->SetSize(checkX, std::max(iconSize.y, FromDlgY(4) + textSize.y) + 2 * mMarginY,
                   check->GetBestSize().x, check->GetBestSize().y);
    height += FromDlgY(4) + buttonHeight;
    // A short text must not cut the check box's label off.
    width = std::max(width, checkX + check->GetSize().x + mMarginX);
  }

  SetClientSize(width, height);
  SetMinTrackSize(ClientToWindowSize(wxSize(width, height)));
  CentreIn(workArea);

  PlaceButtons(rowWidth, width, height - mMarginY - buttonHeight);

  if (Kind() == MB_YESNOCANCEL || Kind() == MB_YESNO) {
    auto * yes = static_cast<wxButton *>(GetDlgItem(IDYES));
    yes->SetDefault();
  }
  if (Kind() == MB_YESNO) {
    // A Yes/No box has to be answered: no close box.
    SetWindowStyleFlag(GetWindowStyleFlag() & ~wxCLOSE_BOX);
    gtk_window_set_deletable(GTK_WINDOW(GetHandle()), FALSE);
  }
  // The default button has the focus, so that Enter and Space answer.
  if (auto * button = dynamic_cast<wxButton *>(GetDefaultItem())) button->SetFocus();

  AddAnchor(kTextId, TOP_LEFT, BOTTOM_RIGHT);
  AddAnchor(kCheckBoxId, BOTTOM_LEFT);
  for (int id : {IDOK, IDCANCEL, IDYES, IDNO, IDHELP}) AddAnchor(id, BOTTOM_CENTER);
  return true;
}

void CustomMessageBoxDlg::OnCancel() {
  // Reached by the close box and the window manager's close command, which
  // a Yes/No box does not offer.
  if (Kind() == MB_YESNO) return;
  VxDialog::OnCancel();
}

bool CustomMessageBoxDlg::PreTranslateMessage(wxKeyEvent & event) {
  int const key = event.GetKeyCode();
  if (key != WXK_ESCAPE && key != WXK_CANCEL) return false;
  if (Kind() != MB_YESNO) EndDialog(IDCANCEL);
  return true;
}

void CustomMessageBoxDlg::OnAnswer(wxCommandEvent & event) {
  UpdateData(true);
  EndDialog(event.GetId());
}
