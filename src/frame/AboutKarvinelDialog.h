#pragma once
// The maker's page: about markup (AboutMarkupReader.h) shown in an HTML
// window, titled "About Us".
//
// Pictures of the markup are named by the number of an icon of the image
// manager (a packaged "file://<name>.png" has been replaced by its number
// before the markup gets here), as "res://#<n>" (the icon <n>, else the
// bitmap resource <n>), and nothing else: a "file://" name left unreplaced
// or any other address shows no picture and is logged. The markup comes
// from a package, so a link opens only with http, https or mailto, passed
// to the launcher as it is; any other link is refused and logged. Markup
// that cannot be read shows the reason in the window instead.

#include <optional>
#include <string>
#include <vector>

#include "dialogs/VxDialog.h"
#include "frame/VxImageManager.h"

class wxHtmlWindow;

class AboutKarvinelDialog : public VxDialog {
public:
  static constexpr unsigned int kTemplate = 13357;
  static constexpr int kPageId = 13355;

  explicit AboutKarvinelDialog(wxWindow * parent);
  ~AboutKarvinelDialog() override;

  // The markup to show and the icons it names (copied; null: none). Without
  // markup the dialog shows the library's own page about the maker.
  void SetMarkupText(wchar_t const * markup, VxImageManager const * images);

  // Opens `url` if its scheme may be opened; false when it was refused.
  bool OnHyperlinkClick(std::string const & url);

  // The page as last rendered (for the log and for tests).
  std::string const & GetPageHtml() const { return mPageHtml; }

protected:
  bool OnInitDialog() override;

private:
  std::string PictureAddress(std::string const & source);
  void ReleasePictures();

  std::string mMarkup;
  std::optional<VxImageManager> mImages;
  std::vector<std::string> mPictureFiles;
  std::string mPageHtml;
};

// The library's page about the maker, shown when no markup is given.
std::string DefaultCompanyMarkup();
