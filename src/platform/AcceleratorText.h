#pragma once
// Accelerator tables as their resources write them: one line a key
// combination and the command it sends, "Ctrl+F 57636"; blank lines and
// lines starting with # are skipped. Modifiers are Ctrl, Shift and Alt,
// keys a letter, a digit, F1..F24 or a named key (Del, Ins, Home, End,
// PgUp, PgDn, Left, Right, Up, Down, Enter, Esc, Tab, Space, Back).

#include <string>
#include <string_view>
#include <vector>

struct AcceleratorLine {
  int flags;    // wxACCEL_CTRL, wxACCEL_SHIFT, wxACCEL_ALT
  int keyCode;  // upper-case letters and digits as themselves, else WXK_*
  unsigned command;
};

// Reads the whole table into `lines`. On a line it cannot take it stops,
// keeps the lines before it and puts the line number and the reason into
// `error`.
bool ParseAcceleratorText(std::string_view text, std::vector<AcceleratorLine> & lines,
                          std::string & error);

// The command of the first line matching the pressed key, or 0. Letters
// match in either case; a modifier that is down must be in the line.
unsigned FindAccelerator(std::vector<AcceleratorLine> const & lines, int flags, int keyCode);
