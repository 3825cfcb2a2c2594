#pragma once
// The dialog ExecuteWithProgress waits in (template 13365): the bar (13366)
// and, with a cancel function, the Cancel button (13048). It ends only when
// the worker, done, has set may-close and posted WM_CLOSE.

#include <condition_variable>
#include <mutex>
#include <string>

#include <boost/function.hpp>

#include "dialogs/VxDialog.h"

class IndeterminateProgressCtrl;
class WindowMessageEvent;

// Set once, waited for once: the dialog is up.
class ReadySignal {
public:
  void Set();
  void Wait();

private:
  std::mutex mMutex;
  std::condition_variable mCondition;
  bool mSet = false;
};

class ProgressDialog : public VxDialog {
public:
  static constexpr unsigned kTemplate = 13365;
  static constexpr int kBar = 13366;
  static constexpr int kCancelButton = 13048;

  // `title` (already converted) empty: the template's caption stays.
  ProgressDialog(std::wstring title, ReadySignal * ready, boost::function<void()> const * cancel,
                 wxWindow * parent);

  // Set by the worker before it posts WM_CLOSE.
  void SetMayClose() { mMayClose = true; }
  IndeterminateProgressCtrl * GetBar() const { return mBar; }

protected:
  bool OnInitDialog() override;
  void OnOK() override {}  // Enter does nothing
  void OnCancel() override;

private:
  void OnWindowMessage(WindowMessageEvent & event);

  IndeterminateProgressCtrl * mBar = nullptr;
  std::wstring mTitle;
  ReadySignal * mReady;
  boost::function<void()> const * mCancel;
  bool mMayClose = false;
};
