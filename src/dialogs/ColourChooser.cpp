#include "dialogs/ColourChooser.h"

#include <utility>

#include <wx/colordlg.h>

namespace {

ColourChooserFunction & Function() {
  static ColourChooserFunction function;
  return function;
}

}  // namespace

ColourChooserAnswer RunColourChooser(ColourChooserRequest const & request) {
  ColourChooserFunction const function = Function();  // may replace itself
  return function ? function(request) : NativeColourChooser(request);
}

ColourChooserFunction SetColourChooserFunction(ColourChooserFunction function) {
  return std::exchange(Function(), std::move(function));
}

ColourChooserAnswer NativeColourChooser(ColourChooserRequest const & request) {
  wxColourData data;
  data.SetChooseFull(true);  // GTK shows its full selection, with the custom colours open
  wxColour start;
  start.SetRGB(request.colour & 0xFFFFFFu);
  data.SetColour(start);
  wxColourDialog dialog(request.parent, &data);
  if (!request.title.empty()) dialog.SetTitle(request.title);
  ColourChooserAnswer answer;
  if (dialog.ShowModal() != wxID_OK) return answer;
  answer.accepted = true;
  answer.colour = dialog.GetColourData().GetColour().GetRGB() & 0xFFFFFFu;
  return answer;
}
