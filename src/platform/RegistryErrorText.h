#pragma once
// What a Win32 code of the registry functions means, in the words Windows
// uses: an English message id, translated where it is shown.

#include "platform/WinTypes.h"

namespace registry {

// Null for a code the registry functions do not return.
char const * ErrorText(LONG code);

}  // namespace registry
