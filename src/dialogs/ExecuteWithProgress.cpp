#include "dialogs/ExecuteWithProgress.h"

#include <boost/locale/encoding_utf.hpp>

#include <exception>
#include <string>
#include <thread>

#include "dialogs/ProgressDialog.h"
#include "platform/AlternateSignalStack.h"
#include "platform/PostedWindowMessages.h"

namespace {

std::wstring Caption(char const * title) {
  if (title == nullptr) return {};
  // Before any thread exists: a title that is no UTF-8 leaves nothing running.
  return boost::locale::conv::utf_to_utf<wchar_t>(title, boost::locale::conv::stop);
}

void Execute(boost::function<void()> const & work, boost::function<void()> const * cancel,
             char const * title, wxWindow * parent) {
  std::wstring const caption = Caption(title);
  ReadySignal ready;
  std::exception_ptr failure;
  ProgressDialog dialog(caption, &ready, cancel, parent);
  std::thread worker([&work, &ready, &failure, &dialog] {
    AlternateSignalStack const signalStack;  // a crash here is still reported
    try {
      work();  // an empty function throws boost::bad_function_call
    } catch (...) {
      failure = std::current_exception();
    }
    // The dialog may not be up yet; its close must not go to a window that
    // does not exist.
    ready.Wait();
    dialog.SetMayClose();
    PostWindowMessage(&dialog, WM_CLOSE);
  });
  // A dialog that could not be built never said it was up: the worker must
  // not wait for it.
  if (dialog.DoModal() == -1) ready.Set();
  worker.join();
  if (failure) std::rethrow_exception(failure);
}

}  // namespace

void ExecuteWithProgress(boost::function<void()> const & work, char const * title,
                         wxWindow * parent) {
  Execute(work, nullptr, title, parent);
}

void ExecuteWithProgress(boost::function<void()> const & work,
                         boost::function<void()> const & cancel, char const * title,
                         wxWindow * parent) {
  Execute(work, &cancel, title, parent);
}
