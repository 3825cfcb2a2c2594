#pragma once
// Runs work on a worker thread while the caller waits in a small modal
// dialog with a barber-pole bar; returns when the work is done and throws,
// on the caller's thread, what the work threw, of its own type.
//
// The dialog cannot be closed by the user: Enter, Escape and the close box
// do nothing until the work has returned. With a cancel function the dialog
// has a Cancel button, which calls the function on the caller's thread each
// time it is pressed; the function must make the work stop, and the dialog
// goes when the work returns.

#include <boost/function.hpp>

class wxWindow;

// `title` is UTF-8; null or empty keeps the dialog's own caption. A title
// that is not UTF-8 throws boost::locale::conv::conversion_error before
// anything runs. An empty `work` throws boost::bad_function_call.
void ExecuteWithProgress(boost::function<void()> const & work, char const * title,
                         wxWindow * parent);
void ExecuteWithProgress(boost::function<void()> const & work,
                         boost::function<void()> const & cancel, char const * title,
                         wxWindow * parent);
