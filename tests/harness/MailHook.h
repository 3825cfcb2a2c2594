#pragma once
// Mail tests without a mail program: xdg-email runs for real and, finding
// its hook on PATH, hands the message to it instead of starting a program.
// Files live in the binary's own TMPDIR.

#include <sys/types.h>

#include <string>

namespace gui_test {

// $TMPDIR/`name`.
std::string TempPath(char const * name);
void WriteFile(std::string const & path, std::string const & text, mode_t mode = 0644);
// The file's text; empty when there is none.
std::string ReadFile(std::string const & path);

// Writes $TMPDIR/bin/xdg-email-hook.sh, which appends the mailto address it
// is given to $TMPDIR/mailto.txt and exits with $HOOK_EXIT (0 when unset).
// $TMPDIR/bin must come first on PATH while xdg-email runs.
void WriteMailHook();

// Makes a desktop entry the default for mailto links, which xdg-email asks
// for before it looks for the hook, and waits until GIO has seen it.
bool InstallMailHandler();

}  // namespace gui_test
