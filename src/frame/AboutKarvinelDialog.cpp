#include "frame/AboutKarvinelDialog.h"

#include <algorithm>
#include <atomic>
#include <set>

#include <wx/filesys.h>
#include <wx/fs_mem.h>
#include <wx/html/htmlwin.h>
#include <wx/image.h>
#include <wx/imagpng.h>
#include <wx/sizer.h>

#include "controls/GUIUtilities.h"
#include "frame/AboutMarkupHtml.h"
#include "frame/AboutMarkupReader.h"
#include "platform/ResourceModule.h"
#include "platform/WinUser.h"
#include "settings/LaunchURL.h"
#include "utl/Exception.h"
#include "utl/Log.h"
#include "utl/Translation.h"
#include "utl/Utf.h"

namespace {

// The library's page about the maker (a text resource).
constexpr unsigned int kDefaultMarkupResource = 13359;
constexpr char kLogClass[] = "AboutKarvinelDialog";
// The page's height grows with its content up to this.
constexpr int kMaxPageHeight = 560;

void EnsureMemoryFileSystem() {
  static bool const added = [] {
    wxFileSystem::AddHandler(new wxMemoryFSHandler);
    if (wxImage::FindHandler(wxBITMAP_TYPE_PNG) == nullptr) wxImage::AddHandler(new wxPNGHandler);
    return true;
  }();
  (void)added;
}

bool StartsWithNoCase(std::string const & text, char const * prefix) {
  size_t const length = std::char_traits<char>::length(prefix);
  if (text.size() < length) return false;
  return std::equal(prefix, prefix + length, text.begin(), [](char p, char c) {
    return p == (c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c);
  });
}

// A positive icon or resource number, or 0.
int ReadNumber(std::string const & text) {
  if (text.empty() || text.size() > 6 || text.find_first_not_of("0123456789") != std::string::npos)
    return 0;
  return std::stoi(text);
}

}  // namespace

std::string DefaultCompanyMarkup() { return GUIUtilities::ReadResource(kDefaultMarkupResource); }

AboutKarvinelDialog::AboutKarvinelDialog(wxWindow * parent) : VxDialog(kTemplate, parent) {}

AboutKarvinelDialog::~AboutKarvinelDialog() { ReleasePictures(); }

void AboutKarvinelDialog::SetMarkupText(wchar_t const * markup, VxImageManager const * images) {
  mMarkup = markup != nullptr ? vx3::WideToUtf8(markup) : std::string();
  mImages.reset();
  if (images != nullptr) mImages = *images;
}

bool AboutKarvinelDialog::OnHyperlinkClick(std::string const & url) {
  if (StartsWithNoCase(url, "http://") || StartsWithNoCase(url, "https://") ||
      StartsWithNoCase(url, "mailto:")) {
    LaunchURL(vx3::Utf8ToWide(url).c_str(), false);
    return true;
  }
  Log::WriteMessage(kLogClass, "OnHyperlinkClick",
                    "refused to open the link \"" + url.substr(0, 200) + "\" of the about page",
                    Log::Notice, false);
  return false;
}

// The in-memory address of the picture `source` names; empty when it names
// none this dialog may show.
std::string AboutKarvinelDialog::PictureAddress(std::string const & source) {
  int number = ReadNumber(source);
  bool const fromResource = number == 0 && StartsWithNoCase(source, "res://#");
  if (fromResource) number = ReadNumber(source.substr(7));
  wxBitmap picture;
  if (number > 0 && mImages && mImages->HasIcon(number)) {
    picture = mImages->GetBitmap(number);
  } else if (number > 0 && fromResource) {
    picture = LoadResourceBitmap(static_cast<unsigned>(number));
  }
  if (!picture.IsOk()) {
    Log::WriteMessage(
        kLogClass, "PictureAddress",
        "the about page names the picture \"" + source.substr(0, 200) + "\", which is not there",
        Log::Notice, false);
    return std::string();
  }
  EnsureMemoryFileSystem();
  static std::atomic<unsigned> counter{0};
  std::string const name = "talvo-about-" + std::to_string(++counter) + ".png";
  wxMemoryFSHandler::AddFile(name, picture, wxBITMAP_TYPE_PNG);
  mPictureFiles.push_back(name);
  return "memory:" + name;
}

void AboutKarvinelDialog::ReleasePictures() {
  for (std::string const & name : mPictureFiles) wxMemoryFSHandler::RemoveFile(name);
  mPictureFiles.clear();
}

bool AboutKarvinelDialog::OnInitDialog() {
  bool const result = VxDialog::OnInitDialog();
  SetTitle(vx3::Tr("About company", "About Us"));
  wxWindow * place = GetDlgItem(kPageId);
  if (place == nullptr) return result;

  ReleasePictures();
  std::string const source = mMarkup.empty() ? DefaultCompanyMarkup() : mMarkup;
  try {
    AboutMarkup const markup = ReadAboutMarkup(source, "(about page)");
    // Once a process: the page is opened again and again with the same markup.
    static std::set<std::string> logged;
    for (std::string const & problem : markup.problems)
      if (logged.insert(problem).second)
        Log::WriteMessage(kLogClass, "OnInitDialog", "about page: " + problem, Log::Notice, false);
    mPageHtml = RenderAboutMarkupHtml(
        markup, [this](std::string const & picture) { return PictureAddress(picture); });
  } catch (Exception const & e) {
    Log::WriteMessage(kLogClass, "OnInitDialog", e.Why(), Log::Error, false);
    mPageHtml = "<html><body><p>" +
                EscapeAboutHtml(vx3::Tr("The page cannot be shown.").utf8_string()) + "</p><p>" +
                EscapeAboutHtml(e.Why()) + "</p></body></html>";
  }

  auto * page = new wxHtmlWindow(place, wxID_ANY, wxDefaultPosition, place->GetClientSize(),
                                 wxHW_SCROLLBAR_AUTO | wxBORDER_NONE);
  page->SetPage(wxString::FromUTF8(mPageHtml));
  // Links never load into the window: only the click handler decides.
  page->Bind(wxEVT_HTML_LINK_CLICKED, [this](wxHtmlLinkEvent & event) {
    OnHyperlinkClick(event.GetLinkInfo().GetHref().utf8_string());
  });
  auto * sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(page, 1, wxEXPAND);
  place->SetSizer(sizer);

  // The window takes the page's height, within bounds.
  if (wxHtmlContainerCell * cell = page->GetInternalRepresentation()) {
    int const wanted = std::clamp(cell->GetHeight() + 8, 60, kMaxPageHeight);
    int const change = wanted - place->GetSize().GetHeight();
    if (change != 0) {
      wxSize const size = GetSize();
      SetSize(size.GetWidth(), size.GetHeight() + change);
      place->SetSize(place->GetSize().GetWidth(), wanted);
      if (wxWindow * ok = GetDlgItem(IDOK))
        ok->Move(ok->GetPosition().x, ok->GetPosition().y + change);
    }
  }
  AddAnchor(kPageId, TOP_LEFT, BOTTOM_RIGHT);
  AddAnchor(IDOK, BOTTOM_RIGHT);
  if (wxWindow * ok = GetDlgItem(IDOK)) ok->SetFocus();
  return result;
}
