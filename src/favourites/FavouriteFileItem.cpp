#include "favourites/FavouriteFileItem.h"

#include <sys/stat.h>

#include <string>

#include <wx/app.h>

#include "favourites/DocumentFileOpener.h"
#include "favourites/FavouriteBuilder.h"
#include "platform/MessageBoxes.h"
#include "utl/ConfigurationSection.h"
#include "utl/Translation.h"

namespace {

// The file system's own bytes: a name that is no valid UTF-8 came in as
// wide text through the file name conversion and goes back the same way.
// Empty when the path is empty or cannot be spelt.
std::string FileSystemBytes(wxString const & path) {
  if (path.empty()) return {};
  wxCharBuffer const bytes = path.fn_str();
  if (bytes.data() == nullptr) return {};
  return {bytes.data(), bytes.length()};
}

}  // namespace

bool FavouriteFileExists(char const * fileSystemPath) {
  if (fileSystemPath == nullptr || *fileSystemPath == '\0') return false;
  struct stat status {};
  if (::stat(fileSystemPath, &status) != 0) return false;
  return S_ISREG(status.st_mode);
}

bool FavouriteFileExists(wxString const & path) {
  return FavouriteFileExists(FileSystemBytes(path).c_str());
}

FavouriteFileItem::FavouriteFileItem(wchar_t const * name, wchar_t const * path) {
  SetName(name);
  SetPath(path != nullptr ? path : L"");
}

void FavouriteFileItem::SetPath(wxString const & path) {
  mPath = path;
  mFileSystemPath.clear();
  mFileSystemPathKnown = false;
}

std::string const & FavouriteFileItem::FileSystemPath() const {
  if (!mFileSystemPathKnown) {
    mFileSystemPath = FileSystemBytes(mPath);
    mFileSystemPathKnown = true;
  }
  return mFileSystemPath;
}

FavouriteFileItem::FavouriteFileItem() { FavouriteBuilder::Instance()->Add(kType, this); }

void FavouriteFileItem::Save(ConfigurationSection * section) const {
  FavouriteItem::Save(section);
  section->WriteKey("File", mPath.wc_str());
}

void FavouriteFileItem::Load(ConfigurationSection const * section) {
  FavouriteItem::Load(section);
  std::wstring path;
  if (section->ReadKey("File", path)) SetPath(path);
}

FavouriteItem * FavouriteFileItem::Copy() const { return new FavouriteFileItem(*this); }

wxString FavouriteFileItem::GetType() const {
  // Asked for every row drawn or loaded: converted once.
  static wxString const type = wxString::FromAscii(kType);
  return type;
}

bool FavouriteFileItem::IsGlobal() const { return true; }

bool FavouriteFileItem::Enable() { return FavouriteFileExists(FileSystemPath().c_str()); }

wxWindow * FavouriteFileItem::Open() {
  if (!FavouriteFileExists(FileSystemPath().c_str())) {
    AfxMessageBox(vx3::Tr("The file has been moved or removed."), MB_OK | MB_ICONEXCLAMATION);
    return nullptr;
  }
  if (auto * const app = dynamic_cast<DocumentFileOpener *>(wxTheApp))
    app->OpenDocumentFile(mPath.wc_str());
  return nullptr;
}

wxString FavouriteFileItem::GetToolTipText() const { return mPath; }
