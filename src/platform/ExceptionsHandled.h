#pragma once
// Which failures a guarded window stops at its edge (ExceptionGuarded.h):
// a bit mask, one in every guarded window, taken from a process-wide default
// when the window is built. Later changes of the default do not reach windows
// that exist already.

enum ExceptionsHandledBits : int {
  kHandleException = 1,           // Exception
  kHandleStdException = 2,        // std::exception, by reference or pointer to const
  kHandleFrameworkException = 4,  // CException *
  kHandleOtherExceptions = 8,     // anything else
  kHandleAllExceptions = 15,
};

// 15 (all) until changed. A plain int: windows live on the main thread.
void SetDefaultExceptionsHandled(int mask);
int GetDefaultExceptionsHandled();
