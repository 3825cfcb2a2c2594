#pragma once
// Whether a 32-bit process runs on a 64-bit kernel.

#include <string>

// Always false in this library's 64-bit builds. A 32-bit build asks the
// kernel's machine name (uname), which a 64-bit kernel reports for its
// 32-bit processes too, unless the process was started under a 32-bit
// personality (setarch linux32), which says false.
bool VxIsWow64();

// The rule behind it: a process of `pointerBits` on a kernel whose machine
// name is `kernelMachine` ("x86_64", "aarch64", "i686"...).
bool VxIsWow64For(unsigned pointerBits, std::string const & kernelMachine);
