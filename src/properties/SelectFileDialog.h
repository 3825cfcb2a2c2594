#pragma once
// A file dialog of the save kind, so the file need not exist, titled
// "Select File", whose accept button reads "Select". Only OFN_HIDEREADONLY
// is set: choosing an existing file raises no overwrite question.

#include "dialogs/CFileDialog.h"

class SelectFileDialog : public CFileDialog {
public:
  SelectFileDialog(wchar_t const * fileName, wxWindow * parent);
};
