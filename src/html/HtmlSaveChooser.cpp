#include "html/HtmlSaveChooser.h"

namespace {

HtmlSaveChooser & Current() {
  static HtmlSaveChooser chooser;
  return chooser;
}

}  // namespace

void SetHtmlSaveChooser(HtmlSaveChooser chooser) { Current() = std::move(chooser); }

HtmlSaveAnswer ChooseHtmlSaveFile(HtmlSaveRequest const & request) {
  return Current() ? Current()(request) : HtmlSaveAnswer();
}
