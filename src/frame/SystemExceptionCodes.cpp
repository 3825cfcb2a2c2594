#include "frame/SystemExceptionCodes.h"

#include <csignal>

namespace {

struct CodeText {
  unsigned int code;
  char const * text;
};

constexpr unsigned int kGuardPage = 0x80000001;
constexpr unsigned int kMisalignment = 0x80000002;
constexpr unsigned int kBreakpoint = 0x80000003;
constexpr unsigned int kSingleStep = 0x80000004;
constexpr unsigned int kAccessViolation = 0xC0000005;
constexpr unsigned int kInPageError = 0xC0000006;
constexpr unsigned int kIllegalInstruction = 0xC000001D;
constexpr unsigned int kArrayBounds = 0xC000008C;
constexpr unsigned int kFloatDivideByZero = 0xC000008E;
constexpr unsigned int kFloatInexact = 0xC000008F;
constexpr unsigned int kFloatInvalid = 0xC0000090;
constexpr unsigned int kFloatOverflow = 0xC0000091;
constexpr unsigned int kFloatUnderflow = 0xC0000093;
constexpr unsigned int kIntDivideByZero = 0xC0000094;
constexpr unsigned int kIntOverflow = 0xC0000095;
constexpr unsigned int kPrivilegedInstruction = 0xC0000096;

constexpr CodeText kTexts[] = {
    {kGuardPage, "Guard page exception."},
    {kMisalignment, "Data type memory misalignment."},
    {kBreakpoint, "Breakpoint encountered."},
    {kSingleStep, "Single step exception."},
    {kAccessViolation, "Memory access violation."},
    {kInPageError,
     "The thread tried to access a page that was not present, and the system was unable to "
     "load the page."},
    {0xC0000008, "Invalid handle exception."},
    {kIllegalInstruction, "The thread tried to execute an invalid instruction."},
    {0xC0000025,
     "The thread attempted to continue execution after a noncontinuable exception occurred."},
    {0xC0000026,
     "An exception handler returned an invalid disposition to the exception dispatcher."},
    {kArrayBounds, "Array bounds exceeded."},
    {0xC000008D, "One of the operands in a floating point operation is denormal."},
    {kFloatDivideByZero, "Division by zero."},
    {kFloatInexact,
     "The result of a floating point operation cannot be represented exactly as a decimal "
     "fraction."},
    {kFloatInvalid, "Unknown floating point exception."},
    {kFloatOverflow,
     "The exponent of a floating point operation is greater than the magnitude allowed by the "
     "corresponding type."},
    {0xC0000092,
     "The stack overflowed or underflowed as the result of a floating point operation."},
    {kFloatUnderflow,
     "The exponent of a floating point operation is less than the magnitude allowed by the "
     "corresponding type."},
    {kIntDivideByZero,
     "The thread attempted to divide an integer value by an integer divisor of zero."},
    {kIntOverflow,
     "The result of an integer operation caused a carry out of the most significant bit of the "
     "result."},
    {kPrivilegedInstruction,
     "The thread attempted to execute an instruction whose operation is not allowed in the "
     "current machine mode."},
    {0xC00000FD, "The thread used up its stack."},
};

std::optional<unsigned int> FloatingPointCode(int signalCode) {
  switch (signalCode) {
    case FPE_INTDIV: return kIntDivideByZero;
    case FPE_INTOVF: return kIntOverflow;
    case FPE_FLTDIV: return kFloatDivideByZero;
    case FPE_FLTOVF: return kFloatOverflow;
    case FPE_FLTUND: return kFloatUnderflow;
    case FPE_FLTRES: return kFloatInexact;
    case FPE_FLTSUB: return kArrayBounds;
    default: return kFloatInvalid;  // FPE_FLTINV and anything newer
  }
}

}  // namespace

char const * SystemExceptionText(unsigned int code) {
  for (CodeText const & entry : kTexts)
    if (entry.code == code) return entry.text;
  return "Unknown exception.";
}

std::optional<unsigned int> SystemExceptionCodeOfSignal(int signal, int signalCode) {
  switch (signal) {
    case SIGSEGV:
      // Unmapped and forbidden addresses are one access violation on Windows.
      return kAccessViolation;
    case SIGBUS: return signalCode == BUS_ADRALN ? kMisalignment : kInPageError;
    case SIGFPE: return FloatingPointCode(signalCode);
    case SIGILL:
      return signalCode == ILL_PRVOPC || signalCode == ILL_PRVREG ? kPrivilegedInstruction
                                                                  : kIllegalInstruction;
    case SIGTRAP: return signalCode == TRAP_TRACE ? kSingleStep : kBreakpoint;
    default: return std::nullopt;
  }
}
