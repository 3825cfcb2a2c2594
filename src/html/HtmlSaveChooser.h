#pragma once
// Where an HTML view asks for the file to save a page into. The family's
// file dialog lies in a layer above the views, so it installs itself here
// when the library is loaded (dialogs/HtmlSaveChooserInstall.cpp); tests
// answer the dialog through its own chooser function.

#include <functional>

#include <wx/string.h>

class wxWindow;

struct HtmlSaveRequest {
  wxWindow * parent = nullptr;
  wxString fileName;          // proposed
  wxString defaultExtension;  // "htm"
  wxString filter;            // MFC form: "Web page (*.htm)|*.htm|...|"
};

struct HtmlSaveAnswer {
  bool accepted = false;
  wxString path;
  wxString title;  // the file name without folder and extension
};

using HtmlSaveChooser = std::function<HtmlSaveAnswer(HtmlSaveRequest const &)>;

void SetHtmlSaveChooser(HtmlSaveChooser chooser);
// Not accepted when no chooser is installed.
HtmlSaveAnswer ChooseHtmlSaveFile(HtmlSaveRequest const & request);
