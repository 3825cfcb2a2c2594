#pragma once
// Processor and system exception codes as Windows numbers them, their texts,
// and where a POSIX signal lands among them, so that a crash report names a
// failure in the same words on every platform.

#include <optional>

// The English message id of `code`; "Unknown exception." for a code outside
// the table.
char const * SystemExceptionText(unsigned int code);

// The code of a fatal signal as its handler sees it (signal number and the
// siginfo's si_code); none for a signal that is no processor exception.
std::optional<unsigned int> SystemExceptionCodeOfSignal(int signal, int signalCode);
