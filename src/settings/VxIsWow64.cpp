#include "settings/VxIsWow64.h"

#include <sys/utsname.h>

#include <algorithm>
#include <iterator>

bool VxIsWow64For(unsigned pointerBits, std::string const & kernelMachine) {
  static char const * const kernels64[] = {"x86_64",  "aarch64",    "arm64",  "ppc64",
                                           "ppc64le", "s390x",      "mips64", "riscv64",
                                           "sparc64", "loongarch64"};
  return pointerBits == 32 && std::any_of(std::begin(kernels64), std::end(kernels64),
                                          [&](char const * name) { return kernelMachine == name; });
}

bool VxIsWow64() {
  if (sizeof(void *) == 8) return false;
  utsname system{};
  if (::uname(&system) != 0) return false;
  return VxIsWow64For(32, system.machine);
}
