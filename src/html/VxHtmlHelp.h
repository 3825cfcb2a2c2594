#pragma once
// The process's front to compiled help: it knows the help file and asks the
// help engine (HelpEngine.h) for topics, the contents, the index, a search
// and the pop-up help for a control of a dialog.
//
// Until a help viewer installs its engine, nothing can be shown: IsAvailable
// says so, and windows disable their Help buttons on it.

#include <string>

#include "html/ContextHelpTable.h"
#include "html/HelpEngine.h"
#include "html/HelpInfo.h"

class wxWindow;

class VxHtmlHelp {
public:
  VxHtmlHelp() = default;
  VxHtmlHelp(VxHtmlHelp const &) = delete;
  VxHtmlHelp & operator=(VxHtmlHelp const &) = delete;
  // Closes every help window this object opened.
  virtual ~VxHtmlHelp();

  // The single object, created on first use and destroyed at exit.
  static VxHtmlHelp * Instance();

  void SetHelpFile(wchar_t const * path);
  std::wstring const & GetHelpFile() const { return m_helpFile; }

  // Whether help can be shown: the engine can show topics and a help file
  // is set.
  bool IsAvailable() const;

  // The file's default topic with its contents.
  void DisplayDefaultTopic();
  // Topic number `topic` (1 or more), else the file's default topic; in the
  // help window type `window` when given.
  void DisplayTopic(int topic, wchar_t const * window = nullptr);
  void DisplayIndex();
  void Search();

  // The pop-up help of the control `info` names in `dialog`: false, and
  // nothing shown, for a request about anything but a control (a menu) or
  // with no control identifier; the caller handles those.
  bool DisplayContextHelp(wxWindow * dialog, HELPINFO const * info, wchar_t const * topic);
  // The pop-up help of `window`, a control of `dialog`, from the pop-up
  // topic file `topic` of the help file.
  void DisplayContextHelp(wxWindow * dialog, wxWindow * window, wchar_t const * topic);

protected:
  // Fills the table from the children of `dialog` in order; a null dialog
  // leaves only the ending zero pair.
  void FillContextHelpLookUpTable(wxWindow * dialog);

  ContextHelpTable const & GetContextHelpTable() const { return m_contextHelp; }

private:
  bool Call(wxWindow * window, std::wstring path, HelpCommand command, HelpValue value);

  std::wstring m_helpFile;
  bool m_engineUsed = false;
  ContextHelpTable m_contextHelp;
};
