#pragma once
// Asks for a model class, which may be new, or for an existing batch phase.
// Template 16003: an editable list for classes (16000) or a drop-down for
// phases (16001).

#include <wx/string.h>

#include <vector>

#include "dialogs/VxDialog.h"

class SelectNewClassDialog : public VxDialog {
public:
  enum Control : int { kClasses = 16000, kPhases = 16001, kPrompt = 16002, kNote = 16004 };

  SelectNewClassDialog(std::vector<wxString> const & names, bool phases, wxWindow * parent);

  // The class or phase chosen or typed.
  wxString GetSelected() const { return mSelected; }

  // A name for a new class: the lowest whole number above every name that
  // reads as one ("1" when none does).
  static wxString DefaultClassName(std::vector<wxString> const & names);

protected:
  bool OnInitDialog() override;
  void OnOK() override;

private:
  std::vector<wxString> mNames;
  bool mPhases;
  wxString mSelected;
};
