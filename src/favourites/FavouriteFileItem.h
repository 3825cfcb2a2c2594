#pragma once
// A favourite document: opened by the application like a file from its
// recent-files list.

#include <string>

#include "favourites/FavouriteItem.h"

class FavouriteFileItem : public FavouriteItem {
public:
  FavouriteFileItem(wchar_t const * name, wchar_t const * path);

  void Save(ConfigurationSection * section) const override;
  void Load(ConfigurationSection const * section) override;
  FavouriteItem * Copy() const override;
  wxString GetType() const override;
  bool IsGlobal() const override;
  // Whether the file is there (see FavouriteFileExists).
  bool Enable() override;
  // "The file has been moved or removed." when it is gone, else the
  // application's OpenDocumentFile; always null.
  wxWindow * Open() override;
  wxString GetToolTipText() const override;

  wxString const & GetFileName() const { return mPath; }

  static constexpr char const * kType = "FileItem";

protected:
  // The prototype registered with FavouriteBuilder.
  FavouriteFileItem();

private:
  void SetPath(wxString const & path);
  std::string const & FileSystemPath() const;

  wxString mPath;
  // mPath as the file system spells it, converted once, when first asked:
  // the idle pass asks every file row at each idle moment, and the
  // conversion cost more than the stat itself; yet ten thousand favourites
  // read at a start need none of it.
  mutable std::string mFileSystemPath;
  mutable bool mFileSystemPathKnown = false;
};

// Whether `path` names a file a document can be read from. A folder, a FIFO
// or a device counts as gone: opening a FIFO would block the GUI thread
// until a writer came, and a device is no document.
bool FavouriteFileExists(wxString const & path);
// The same for a path already in the file system's bytes.
bool FavouriteFileExists(char const * fileSystemPath);
