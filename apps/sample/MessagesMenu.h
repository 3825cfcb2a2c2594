#pragma once
// The sample's "Messages" menu: every kind of the library's message box, the
// "don't show again" memory and a command that forgets it, and a failure
// inside a dialog's handler that ends in the internal-error dialog. The
// answer of each box is shown in the frame's status bar.

class wxFrame;
class wxMenu;

// The menu; its commands are bound on `frame`.
wxMenu * CreateMessagesMenu(wxFrame & frame);

// The key under which the sample's don't-show-again message keeps its answer.
extern wchar_t const kSampleDontShowAgainKey[];
