#pragma once
// Asks the user how a date in the data is written, when the application
// could not tell by itself: a heading, a sample of the date text, a combo
// with the format (the user's recent formats among its choices) and a
// collapsible explanation of the format language. Template 13120.
//
// The dialog does not validate: VxTimeUtl::GetUserFormatString runs it until
// the format given is valid. OK puts the format first in the recent formats
// (RecentDateFormats.h); with it first already, nothing is written.

#include <string>

#include <wx/string.h>

#include "dialogs/VxDialog.h"

class wxUpdateUIEvent;

class SpecifyDateFormat : public VxDialog {
public:
  static constexpr unsigned int kTemplate = 13120;
  static constexpr int kFormatComboId = 13395;
  static constexpr int kDetailsButtonId = 13401;
  static constexpr int kSampleLabelId = 13402;
  static constexpr int kSampleId = 13403;
  static constexpr int kFormatLabelId = 13404;
  static constexpr int kDetailsId = 13405;
  static constexpr int kHeadingId = 13406;
  // The space left between the dialog's bottom and the closed explanation.
  static constexpr int kShortGap = 2;

  // The texts in UTF-8. An empty heading keeps the template's; an empty
  // format proposes the user's regional date and time format.
  SpecifyDateFormat(std::string const & heading, std::string const & sample,
                    std::string const & format, wxWindow * parent = nullptr);
  SpecifyDateFormat(std::wstring const & heading, std::wstring const & sample,
                    std::wstring const & format, wxWindow * parent = nullptr);

  // No sample to show: the sample and its label stay empty.
  void SetNoDate();

  // The format given (after OK), else the one proposed.
  wxString GetDateFormatW() const { return mFormat; }

  // The explanation of the format language: one line an item, each
  // translated on its own.
  static wxString GetFormatDetails();

protected:
  bool OnInitDialog() override;
  void OnOK() override;

private:
  void FillFormats();
  void FitSampleToHint();
  // Opens the explanation when it is closed, closes it when it is open.
  void DetailsButton();
  void OnUpdateOkButton(wxUpdateUIEvent & event);

  wxString mHeading;
  wxString mSample;
  wxString mFormat;
  bool mDetailsHidden = false;
  // Client sizes: the window manager's frame is known late on X11, and the
  // frame does not change by opening the explanation.
  wxSize mFullClient;
  wxSize mShortClient;
};
