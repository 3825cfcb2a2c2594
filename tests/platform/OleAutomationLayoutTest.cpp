// The automation types must match the 64-bit Windows headers byte for byte:
// variants and arrays cross to automation clients as they lie in memory.
// The numbers below are what x86_64-w64-mingw32-g++ 12 gave for the same
// members from its oaidl.h, wtypes.h and sqltypes.h.

#include "platform/OleAutomation.h"
#include "platform/SqlTypes.h"

#include <gtest/gtest.h>

#include <cstddef>

// offsetof on these standard-layout unions of structs is what the headers
// of Windows use too.
static_assert(offsetof(VARIANT, vt) == 0 && offsetof(VARIANT, wReserved1) == 2 &&
                  offsetof(VARIANT, wReserved2) == 4 && offsetof(VARIANT, wReserved3) == 6,
              "VARIANT header");
static_assert(offsetof(VARIANT, llVal) == 8 && offsetof(VARIANT, dblVal) == 8 &&
                  offsetof(VARIANT, bstrVal) == 8 && offsetof(VARIANT, parray) == 8 &&
                  offsetof(VARIANT, pvarVal) == 8,
              "VARIANT value");
static_assert(offsetof(VARIANT, decVal) == 0 && offsetof(VARIANT, pvRecord) == 8 &&
                  offsetof(VARIANT, pRecInfo) == 16,
              "VARIANT decimal and record");
static_assert(offsetof(SAFEARRAY, cDims) == 0 && offsetof(SAFEARRAY, fFeatures) == 2 &&
                  offsetof(SAFEARRAY, cbElements) == 4 && offsetof(SAFEARRAY, cLocks) == 8 &&
                  offsetof(SAFEARRAY, pvData) == 16 && offsetof(SAFEARRAY, rgsabound) == 24,
              "SAFEARRAY");
static_assert(offsetof(SAFEARRAYBOUND, cElements) == 0 && offsetof(SAFEARRAYBOUND, lLbound) == 4,
              "SAFEARRAYBOUND");
static_assert(offsetof(DECIMAL, wReserved) == 0 && offsetof(DECIMAL, scale) == 2 &&
                  offsetof(DECIMAL, sign) == 3 && offsetof(DECIMAL, signscale) == 2 &&
                  offsetof(DECIMAL, Hi32) == 4 && offsetof(DECIMAL, Lo32) == 8 &&
                  offsetof(DECIMAL, Mid32) == 12 && offsetof(DECIMAL, Lo64) == 8,
              "DECIMAL");
static_assert(offsetof(CY, Lo) == 0 && offsetof(CY, Hi) == 4 && offsetof(CY, int64) == 0, "CY");
static_assert(sizeof(TIMESTAMP_STRUCT) == 16 && offsetof(TIMESTAMP_STRUCT, year) == 0 &&
                  offsetof(TIMESTAMP_STRUCT, month) == 2 && offsetof(TIMESTAMP_STRUCT, day) == 4 &&
                  offsetof(TIMESTAMP_STRUCT, hour) == 6 &&
                  offsetof(TIMESTAMP_STRUCT, minute) == 8 &&
                  offsetof(TIMESTAMP_STRUCT, second) == 10 &&
                  offsetof(TIMESTAMP_STRUCT, fraction) == 12,
              "TIMESTAMP_STRUCT");
static_assert(sizeof(VARTYPE) == 2 && sizeof(DATE) == 8 && sizeof(VARIANT_BOOL) == 2,
              "scalar widths");

TEST(OleAutomationLayout, TypeCodesHaveTheWindowsValues) {
  struct Code {
    char const * name;
    unsigned ours;
    unsigned windows;
  };
  Code const codes[] = {
      {"VT_EMPTY", VT_EMPTY, 0},
      {"VT_NULL", VT_NULL, 1},
      {"VT_I2", VT_I2, 2},
      {"VT_I4", VT_I4, 3},
      {"VT_R4", VT_R4, 4},
      {"VT_R8", VT_R8, 5},
      {"VT_CY", VT_CY, 6},
      {"VT_DATE", VT_DATE, 7},
      {"VT_BSTR", VT_BSTR, 8},
      {"VT_DISPATCH", VT_DISPATCH, 9},
      {"VT_ERROR", VT_ERROR, 10},
      {"VT_BOOL", VT_BOOL, 11},
      {"VT_VARIANT", VT_VARIANT, 12},
      {"VT_UNKNOWN", VT_UNKNOWN, 13},
      {"VT_DECIMAL", VT_DECIMAL, 14},
      {"VT_I1", VT_I1, 16},
      {"VT_UI1", VT_UI1, 17},
      {"VT_UI2", VT_UI2, 18},
      {"VT_UI4", VT_UI4, 19},
      {"VT_I8", VT_I8, 20},
      {"VT_UI8", VT_UI8, 21},
      {"VT_INT", VT_INT, 22},
      {"VT_UINT", VT_UINT, 23},
      {"VT_VOID", VT_VOID, 24},
      {"VT_HRESULT", VT_HRESULT, 25},
      {"VT_PTR", VT_PTR, 26},
      {"VT_SAFEARRAY", VT_SAFEARRAY, 27},
      {"VT_CARRAY", VT_CARRAY, 28},
      {"VT_USERDEFINED", VT_USERDEFINED, 29},
      {"VT_LPSTR", VT_LPSTR, 30},
      {"VT_LPWSTR", VT_LPWSTR, 31},
      {"VT_RECORD", VT_RECORD, 36},
      {"VT_INT_PTR", VT_INT_PTR, 37},
      {"VT_UINT_PTR", VT_UINT_PTR, 38},
      {"VT_FILETIME", VT_FILETIME, 64},
      {"VT_BLOB", VT_BLOB, 65},
      {"VT_STREAM", VT_STREAM, 66},
      {"VT_STORAGE", VT_STORAGE, 67},
      {"VT_STREAMED_OBJECT", VT_STREAMED_OBJECT, 68},
      {"VT_STORED_OBJECT", VT_STORED_OBJECT, 69},
      {"VT_BLOB_OBJECT", VT_BLOB_OBJECT, 70},
      {"VT_CF", VT_CF, 71},
      {"VT_CLSID", VT_CLSID, 72},
      {"VT_VERSIONED_STREAM", VT_VERSIONED_STREAM, 73},
      {"VT_BSTR_BLOB", VT_BSTR_BLOB, 4095},
      {"VT_VECTOR", VT_VECTOR, 4096},
      {"VT_ARRAY", VT_ARRAY, 8192},
      {"VT_BYREF", VT_BYREF, 16384},
      {"VT_RESERVED", VT_RESERVED, 32768},
      {"VT_ILLEGAL", VT_ILLEGAL, 65535},
      {"VT_TYPEMASK", VT_TYPEMASK, 4095},
      {"FADF_AUTO", FADF_AUTO, 1},
      {"FADF_STATIC", FADF_STATIC, 2},
      {"FADF_EMBEDDED", FADF_EMBEDDED, 4},
      {"FADF_FIXEDSIZE", FADF_FIXEDSIZE, 16},
      {"FADF_RECORD", FADF_RECORD, 32},
      {"FADF_HAVEIID", FADF_HAVEIID, 64},
      {"FADF_HAVEVARTYPE", FADF_HAVEVARTYPE, 128},
      {"FADF_BSTR", FADF_BSTR, 256},
      {"FADF_UNKNOWN", FADF_UNKNOWN, 512},
      {"FADF_DISPATCH", FADF_DISPATCH, 1024},
      {"FADF_VARIANT", FADF_VARIANT, 2048},
      {"DECIMAL_NEG", DECIMAL_NEG, 128},
      {"VARIANT_TRUE", static_cast<uint16_t>(VARIANT_TRUE), 65535},
      {"DISP_E_TYPEMISMATCH", static_cast<unsigned>(DISP_E_TYPEMISMATCH), 0x80020005u},
      {"DISP_E_BADVARTYPE", static_cast<unsigned>(DISP_E_BADVARTYPE), 0x80020008u},
      {"DISP_E_OVERFLOW", static_cast<unsigned>(DISP_E_OVERFLOW), 0x8002000Au},
      {"DISP_E_BADINDEX", static_cast<unsigned>(DISP_E_BADINDEX), 0x8002000Bu},
      {"DISP_E_ARRAYISLOCKED", static_cast<unsigned>(DISP_E_ARRAYISLOCKED), 0x8002000Du},
  };
  for (Code const & code : codes) EXPECT_EQ(code.ours, code.windows) << code.name;
}
