#pragma once
// The page of the internal-error dialog: the program has hit a failure and
// the user decides to restart it, to end it, or to ignore the failure and
// carry on. ShowModal returns ID_WIZFINISH (restart or exit, as the restart
// box says) or IDCANCEL (ignore).

#include <string>

#include <wx/dialog.h>

class wxButton;
class wxCheckBox;

class HandleExceptionPage : public wxDialog {
public:
  static constexpr int kFinishId = 12325;  // ID_WIZFINISH
  static constexpr int kIgnoreId = 2;      // IDCANCEL
  static constexpr int kRestartBoxId = 13040;
  static constexpr int kMoreInformationId = 13026;
  static constexpr int kDetailsId = 13068;
  static constexpr int kSupportLinkId = 13083;

  explicit HandleExceptionPage(wxWindow * parent);

  // What the "more information" command shows.
  void SetDetailText(std::string const & text) { mDetailText = text; }
  std::string const & GetDetailText() const { return mDetailText; }
  bool GetRestart() const;

private:
  void UpdateFinishLabel();
  void OnMoreInformation();

  std::string mDetailText;
  wxCheckBox * mRestart = nullptr;
  wxButton * mFinish = nullptr;
};
