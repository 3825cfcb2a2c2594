#pragma once
// The crash report a user sees after a crash (run by talvo-crash-report,
// never in the crashed process): "Unexpected error occurred", what happened,
// the dump file as a link that shows it in the file manager, and the support
// address as a link that copies it. With a dump, "Send error report" (101)
// hands the dump to the mail program (a mailto: link when that fails) and
// "Don't send" (8) closes; without one, Close (the common button 32, which
// answers 8) is all.

#include <string>

#include "dialogs/VxDialog.h"

class wxHyperlinkEvent;

class VxDumpMessageDialog : public VxDialog {
public:
  static constexpr unsigned kTemplate = 13430;
  static constexpr int kSendButton = 101;
  static constexpr int kDontSendButton = 8;  // IDCLOSE
  static constexpr int kCloseButtonFlag = 32;
  static constexpr int kWidth = 460;

  // `path` is UTF-8, empty when no dump was written.
  explicit VxDumpMessageDialog(std::string path, wxWindow * parent = nullptr);

  std::string const & GetPath() const { return mPath; }

  // The actions behind the links and the buttons; true when the dialog closes.
  virtual void OnHyperlinkClicked(std::string const & target);
  virtual bool OnButtonClicked(int id);

  // Shows the file in the file manager (org.freedesktop.FileManager1); the
  // dialog copies the path instead when this fails. Tests replace it.
  using FolderOpener = bool (*)(std::string const & path);
  static FolderOpener SetFolderOpener(FolderOpener opener);

protected:
  bool OnInitDialog() override;

private:
  void Layout460();
  void OnLink(wxHyperlinkEvent & event);
  void OnAnyButton(wxCommandEvent & event);

  std::string mPath;
};

// Copies `text` to the clipboard, flushed so that it outlives this process.
bool CopyToClipboard(std::string const & text);
