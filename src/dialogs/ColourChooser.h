#pragma once
// The toolkit's colour chooser (wxColourDialog, GTK's full colour
// selection) reached through a replaceable function, as the file and folder
// choosers are (dialogs/NativeChoosers.h): dialogs of the library ask
// through RunColourChooser, and a test puts its own answers in its place.

#include <functional>

#include <wx/string.h>

#include "platform/WinGdi.h"

class wxWindow;

struct ColourChooserRequest {
  wxWindow * parent = nullptr;
  COLORREF colour = 0;  // 0x00BBGGRR
  wxString title;       // empty: the toolkit's
};

struct ColourChooserAnswer {
  bool accepted = false;
  COLORREF colour = 0;
};

using ColourChooserFunction = std::function<ColourChooserAnswer(ColourChooserRequest const &)>;

ColourChooserAnswer RunColourChooser(ColourChooserRequest const & request);

// Install `function` (empty: the native one again) and return the former.
ColourChooserFunction SetColourChooserFunction(ColourChooserFunction function);

// The native chooser, modal on the GUI thread.
ColourChooserAnswer NativeColourChooser(ColourChooserRequest const & request);
