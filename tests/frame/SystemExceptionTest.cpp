// System exceptions as the family's failures: the translator's texts, where
// POSIX signals land among the Windows codes, and the texts of error codes.
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <memory>
#include <string>

#include "frame/SystemExceptionCodes.h"
#include "frame/VxSystemException.h"
#include "platform/CException.h"
#include "platform/CExceptionHelper.h"
#include "platform/WinError.h"

namespace {

std::string TranslatedText(unsigned int code) {
  try {
    VxSETranslator(code, nullptr);
  } catch (Exception const & e) {  // a VxSystemException is caught as Exception
    return e.Why();
  }
  return "(nothing thrown)";
}

TEST(VxSETranslator, ThrowsOneLineWithTheCodesTextAndClonesKeepIt) {
  struct {
    unsigned int code;
    char const * text;
  } const cases[] = {
      {0xC0000005, "A system exception occurred: Memory access violation."},
      {0xC0000007, "A system exception occurred: Unknown exception."},
  };
  for (auto const & c : cases) EXPECT_EQ(TranslatedText(c.code), c.text) << std::hex << c.code;
  try {
    VxSETranslator(0xC000008E, nullptr);
  } catch (Exception const & e) {  // a clone keeps the type and the text
    std::unique_ptr<Exception> copy(e.Clone());
    EXPECT_NE(dynamic_cast<VxSystemException *>(copy.get()), nullptr);
    EXPECT_EQ(copy->Why(), "A system exception occurred: Division by zero.");
  }
}

TEST(SystemExceptionCodeOfSignal, MapsSignalsToTheCodesOfTheSameFailure) {
  struct {
    int signal, signalCode;
    unsigned int code;
  } const cases[] = {
      {SIGSEGV, SEGV_MAPERR, 0xC0000005}, {SIGSEGV, SEGV_ACCERR, 0xC0000005},
      {SIGFPE, FPE_INTDIV, 0xC0000094},   {SIGFPE, FPE_INTOVF, 0xC0000095},
      {SIGFPE, FPE_FLTDIV, 0xC000008E},   {SIGFPE, FPE_FLTOVF, 0xC0000091},
      {SIGFPE, FPE_FLTUND, 0xC0000093},   {SIGFPE, FPE_FLTRES, 0xC000008F},
      {SIGFPE, FPE_FLTINV, 0xC0000090},   {SIGILL, ILL_ILLOPC, 0xC000001D},
      {SIGILL, ILL_PRVOPC, 0xC0000096},   {SIGBUS, BUS_ADRALN, 0x80000002},
      {SIGBUS, BUS_ADRERR, 0xC0000006},   {SIGTRAP, TRAP_BRKPT, 0x80000003},
      {SIGTRAP, TRAP_TRACE, 0x80000004},
  };
  for (auto const & c : cases) {
    auto code = SystemExceptionCodeOfSignal(c.signal, c.signalCode);
    ASSERT_TRUE(code) << c.signal << "/" << c.signalCode;
    EXPECT_EQ(*code, c.code) << c.signal << "/" << c.signalCode;
    EXPECT_STRNE(SystemExceptionText(*code), "Unknown exception.");
  }
  EXPECT_FALSE(SystemExceptionCodeOfSignal(SIGTERM, 0));
  EXPECT_FALSE(SystemExceptionCodeOfSignal(SIGINT, 0));
}

TEST(CExceptionHelper, ErrorTextOfEveryLibraryCodeAndOfUnknownOnes) {
  for (LONG code : {ERROR_SUCCESS,
                    ERROR_FILE_NOT_FOUND,
                    ERROR_ACCESS_DENIED,
                    ERROR_INVALID_HANDLE,
                    ERROR_NOT_ENOUGH_MEMORY,
                    ERROR_BAD_FORMAT,
                    ERROR_INVALID_PARAMETER,
                    ERROR_BAD_PATHNAME,
                    ERROR_MOD_NOT_FOUND,
                    ERROR_PROC_NOT_FOUND,
                    ERROR_BUSY,
                    ERROR_MORE_DATA,
                    ERROR_NO_MORE_ITEMS,
                    ERROR_NOACCESS,
                    ERROR_BADDB,
                    ERROR_BADKEY,
                    ERROR_CANTOPEN,
                    ERROR_CANTREAD,
                    ERROR_CANTWRITE,
                    ERROR_REGISTRY_IO_FAILED,
                    ERROR_KEY_DELETED,
                    ERROR_NO_SYSTEM_RESOURCES,
                    ERROR_UNSUPPORTED_TYPE}) {
    std::string const text = CExceptionHelper::GetErrorText(code);
    std::string const suffix = ". (" + std::to_string(code) + ")";
    EXPECT_EQ(text.find("Unknown error."), std::string::npos) << text;
    ASSERT_GT(text.size(), suffix.size());
    EXPECT_EQ(text.substr(text.size() - suffix.size()), suffix) << text;
  }
  EXPECT_EQ(CExceptionHelper::GetErrorText(5), "Access is denied. (5)");
  EXPECT_EQ(CExceptionHelper::GetErrorText(12345), "Unknown error. (12345)");
  EXPECT_EQ(CExceptionHelper::GetErrorText(0xFFFFFFFFul), "Unknown error. (4294967295)");
}

class TextException : public CException {
public:
  explicit TextException(std::wstring text) : mText(std::move(text)) {}
  bool GetErrorMessage(wchar_t * buffer, std::size_t size) const override {
    if (mText.empty()) return false;
    mText.copy(buffer, size - 1);
    buffer[std::min(size - 1, mText.size())] = L'\0';
    return true;
  }

private:
  std::wstring mText;
};

TEST(CExceptionHelper, ErrorMessageTrimsTheEndAndNamesAnEmptyOne) {
  TextException withSpace(L"Datei ist gesperrt.\r\n\t ");
  EXPECT_EQ(CExceptionHelper::GetErrorMessage(&withSpace), "Datei ist gesperrt.");
  TextException nonAscii(L"  Größe \u2260 0");
  EXPECT_EQ(CExceptionHelper::GetErrorMessage(&nonAscii),
            "  Gr\xC3\xB6\xC3\x9F"
            "e \xE2\x89\xA0 0");
  TextException empty(L"");
  EXPECT_EQ(CExceptionHelper::GetErrorMessage(&empty), "Unknown error.");
  TextException tooLong(std::wstring(1000, L'x'));
  EXPECT_EQ(CExceptionHelper::GetErrorMessage(&tooLong).size(), 255u);
}

}  // namespace
