#include "frame/VxAppCustomization.h"

#include <wx/app.h>
#include <wx/image.h>
#include <wx/log.h>
#include <wx/mstream.h>

#include "frame/AppConfigPackage.h"
#include "utl/Exception.h"
#include "utl/FileProblemNotice.h"
#include "utl/Paths.h"
#include "utl/VxSystemInfo.h"

namespace {

// Pictures larger than this are refused before libpng allocates them: a
// small file can declare an enormous picture.
constexpr uint32_t kMaxPictureSide = 8192;
constexpr uint64_t kMaxPicturePixels = uint64_t(32) << 20;

uint32_t BigEndian32(std::string const & bytes, size_t at) {
  return uint32_t(static_cast<unsigned char>(bytes[at])) << 24 |
         uint32_t(static_cast<unsigned char>(bytes[at + 1])) << 16 |
         uint32_t(static_cast<unsigned char>(bytes[at + 2])) << 8 |
         uint32_t(static_cast<unsigned char>(bytes[at + 3]));
}

[[noreturn]] void RefusePicture(std::string const & package, std::string const & entry) {
  throw Exception(
      ExceptionMessage::translate("The picture {2} of the customization package {1} is no "
                                  "readable PNG picture of a sensible size.") %
      package % entry);
}

wxBitmap DecodePng(std::string const & bytes, std::string const & package,
                   std::string const & entry) {
  // Signature, then the IHDR chunk: its width and height at bytes 16 and 20.
  static char const kSignature[] = "\x89PNG\r\n\x1a\n";
  if (bytes.size() < 24 || bytes.compare(0, 8, kSignature, 8) != 0 ||
      bytes.compare(12, 4, "IHDR") != 0)
    RefusePicture(package, entry);
  uint32_t const width = BigEndian32(bytes, 16);
  uint32_t const height = BigEndian32(bytes, 20);
  if (width == 0 || height == 0 || width > kMaxPictureSide || height > kMaxPictureSide ||
      uint64_t(width) * height > kMaxPicturePixels)
    RefusePicture(package, entry);

  if (wxImage::FindHandler(wxBITMAP_TYPE_PNG) == nullptr) wxImage::AddHandler(new wxPNGHandler);
  wxLogNull const quiet;  // the decoder's complaints become our Exception
  wxMemoryInputStream stream(bytes.data(), bytes.size());
  wxImage image;
  if (!image.LoadFile(stream, wxBITMAP_TYPE_PNG) || !image.IsOk()) RefusePicture(package, entry);
  return wxBitmap(image);
}

VxAppCustomization * gInstance = nullptr;

}  // namespace

VxAppCustomization * VxAppCustomization::Instance() {
  if (gInstance == nullptr) gInstance = new VxAppCustomization(VxGetExecutableDirectory());
  return gInstance;
}

std::unique_ptr<VxAppCustomization> VxAppCustomization::ReadFromFolder(std::string const & folder) {
  return std::unique_ptr<VxAppCustomization>(new VxAppCustomization(folder));
}

VxAppCustomization::VxAppCustomization(std::string const & folder) {
  std::string const path = AppConfigPackage::FindPackage(folder);
  if (path.empty()) return;
  try {
    Apply(path);
  } catch (Exception const & refusal) {
    // Nothing of a refused package is used (Apply changes nothing before it
    // has checked everything); the user learns why once, the log always.
    RemoveAll();
    mReplacements.clear();
    mSplash = wxBitmap();
    vx3::ReportFileProblem(
        "VxAppCustomization", "VxAppCustomization", path,
        ExceptionMessage::translate("The customization package {1} is not used: {2}") % path %
            refusal.Why());
  }
}

void VxAppCustomization::Apply(std::string const & path) {
  auto package = std::make_unique<AppConfigPackage>(path);

  // Everything is checked before anything changes: a package refused
  // half-way renames nothing.
  std::string const name = package->ReadAppName();
  std::string const supportPage = package->ReadSupportPage();
  if (package->HasEntry("splash.png"))
    mSplash = DecodePng(package->ReadFile("splash.png"), path, "splash.png");
  int number = 1;
  for (std::string const & entry : package->IconEntryNames())
    AddIcon(number++, DecodePng(package->ReadFile(entry.c_str()), path, entry));
  mReplacements = package->IconReplacements();
  if (!name.empty()) {
    VxSystemInfo::SetApplication(name,
                                 VxSystemInfo::GetApplicationVersion(VxSystemInfo::VersionFull));
    if (wxTheApp != nullptr) wxTheApp->SetAppName(wxString::FromUTF8(name));
  }
  if (!supportPage.empty()) VxSystemInfo::SetSupportPage(supportPage);
  mPackagePath = path;
  mPackage = std::move(package);
}

VxAppCustomization::~VxAppCustomization() = default;

std::string VxAppCustomization::ReadFile(char const * entry) const {
  return mPackage ? mPackage->ReadFile(entry) : std::string();
}

std::string VxAppCustomization::MarkupSource(char const * entry) const {
  std::string const text = ReadFile(entry);
  return text.empty() ? text : AppConfigPackage::ApplyReplacements(text, mReplacements);
}

std::string VxAppCustomization::GetAboutDialogMarkupSource() const {
  return MarkupSource("about_us.xaml");
}

std::string VxAppCustomization::GetBackstageAboutMarkupSource() const {
  return MarkupSource("help_backstage_page.xaml");
}

VxImageManager * VxAppCustomization::GetImageManagerCopy() const {
  return new VxImageManager(*this);
}
