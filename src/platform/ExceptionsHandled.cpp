#include "platform/ExceptionsHandled.h"

namespace {
int gDefaultExceptionsHandled = kHandleAllExceptions;
}

void SetDefaultExceptionsHandled(int mask) { gDefaultExceptionsHandled = mask; }

int GetDefaultExceptionsHandled() { return gDefaultExceptionsHandled; }
