#pragma once
// Prints what a window shows, under a footer line and a title, once for
// every copy the user asks for in the print dialog.

class wxWindow;

// Nothing happens when the window shows nothing or the user cancels; a
// device that fails stops the printing silently. `title` and `document`
// (the job's name) are UTF-8.
void PrintWindow(wxWindow const * window, char const * title, char const * document);
