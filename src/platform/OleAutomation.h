#pragma once
// The OLE automation vocabulary: VARIANT and its type codes, BSTR, DECIMAL,
// CY, DATE and SAFEARRAY, with the 64-bit Windows layout and values, and the
// handful of automation functions that code exchanging values with
// automation clients needs. wchar_t is UTF-32 here, so a BSTR holds code
// points and its length prefix counts 4 bytes a character.
//
// Interface pointers (IUnknown, IDispatch, IRecordInfo) are opaque: nothing
// here calls them, so VariantClear leaves them alone.

#include "platform/WinHResult.h"
#include "platform/WinTypes.h"

#include <cstdint>

using VARTYPE = uint16_t;
using VARIANT_BOOL = int16_t;
using SCODE = LONG;
using SHORT = int16_t;
using USHORT = uint16_t;
using CHAR = char;
using INT = int32_t;
using LONGLONG = int64_t;
using ULONGLONG = uint64_t;
using FLOAT = float;
using DOUBLE = double;
using PVOID = void *;

// A point in time as a day number: days since 1899-12-30 00:00, the
// fraction being the time of day (of the day's absolute value below zero).
using DATE = double;

// A length-prefixed wide string; null is the empty string.
using BSTR = wchar_t *;

constexpr VARIANT_BOOL VARIANT_TRUE = -1;
constexpr VARIANT_BOOL VARIANT_FALSE = 0;

enum VARENUM : VARTYPE {
  VT_EMPTY = 0,
  VT_NULL = 1,
  VT_I2 = 2,
  VT_I4 = 3,
  VT_R4 = 4,
  VT_R8 = 5,
  VT_CY = 6,
  VT_DATE = 7,
  VT_BSTR = 8,
  VT_DISPATCH = 9,
  VT_ERROR = 10,
  VT_BOOL = 11,
  VT_VARIANT = 12,
  VT_UNKNOWN = 13,
  VT_DECIMAL = 14,
  VT_I1 = 16,
  VT_UI1 = 17,
  VT_UI2 = 18,
  VT_UI4 = 19,
  VT_I8 = 20,
  VT_UI8 = 21,
  VT_INT = 22,
  VT_UINT = 23,
  VT_VOID = 24,
  VT_HRESULT = 25,
  VT_PTR = 26,
  VT_SAFEARRAY = 27,
  VT_CARRAY = 28,
  VT_USERDEFINED = 29,
  VT_LPSTR = 30,
  VT_LPWSTR = 31,
  VT_RECORD = 36,
  VT_INT_PTR = 37,
  VT_UINT_PTR = 38,
  VT_FILETIME = 64,
  VT_BLOB = 65,
  VT_STREAM = 66,
  VT_STORAGE = 67,
  VT_STREAMED_OBJECT = 68,
  VT_STORED_OBJECT = 69,
  VT_BLOB_OBJECT = 70,
  VT_CF = 71,
  VT_CLSID = 72,
  VT_VERSIONED_STREAM = 73,
  VT_BSTR_BLOB = 0x0FFF,
  VT_VECTOR = 0x1000,
  VT_ARRAY = 0x2000,
  VT_BYREF = 0x4000,
  VT_RESERVED = 0x8000,
  VT_ILLEGAL = 0xFFFF,
  VT_ILLEGALMASKED = 0x0FFF,
  VT_TYPEMASK = 0x0FFF
};

// Automation failures, with their Windows values.
constexpr HRESULT DISP_E_TYPEMISMATCH = static_cast<HRESULT>(0x80020005u);
constexpr HRESULT DISP_E_BADVARTYPE = static_cast<HRESULT>(0x80020008u);
constexpr HRESULT DISP_E_OVERFLOW = static_cast<HRESULT>(0x8002000Au);
constexpr HRESULT DISP_E_BADINDEX = static_cast<HRESULT>(0x8002000Bu);
constexpr HRESULT DISP_E_ARRAYISLOCKED = static_cast<HRESULT>(0x8002000Du);

// Currency: a 64-bit integer scaled by 10,000.
union CY {
  struct {
    ULONG Lo;
    LONG Hi;
  };
  LONGLONG int64;
};

// A 96-bit unsigned integer, a power-of-ten scale (0 to 28) and a sign.
struct DECIMAL {
  USHORT wReserved;
  union {
    struct {
      BYTE scale;
      BYTE sign;
    };
    USHORT signscale;
  };
  ULONG Hi32;
  union {
    struct {
      ULONG Lo32;
      ULONG Mid32;
    };
    ULONGLONG Lo64;
  };
};
constexpr BYTE DECIMAL_NEG = 0x80;

struct SAFEARRAYBOUND {
  ULONG cElements;
  LONG lLbound;
};

// The bounds lie in reverse order: rgsabound[0] is the last dimension of
// the array, rgsabound[cDims - 1] the first. Elements are laid out with the
// first dimension's index running fastest.
struct SAFEARRAY {
  USHORT cDims;
  USHORT fFeatures;
  ULONG cbElements;
  ULONG cLocks;
  PVOID pvData;
  SAFEARRAYBOUND rgsabound[1];
};

enum : USHORT {
  FADF_AUTO = 0x0001,
  FADF_STATIC = 0x0002,
  FADF_EMBEDDED = 0x0004,
  FADF_FIXEDSIZE = 0x0010,
  FADF_RECORD = 0x0020,
  FADF_HAVEIID = 0x0040,
  FADF_HAVEVARTYPE = 0x0080,
  FADF_BSTR = 0x0100,
  FADF_UNKNOWN = 0x0200,
  FADF_DISPATCH = 0x0400,
  FADF_VARIANT = 0x0800
};

struct IUnknown;
struct IDispatch;
struct IRecordInfo;
struct VARIANT;

// The value lies 8 bytes in, after the type and three reserved words; a
// DECIMAL overlays the whole 16 bytes, its wReserved being the type.
struct VARIANT {
  union {
    struct {
      VARTYPE vt;
      WORD wReserved1;
      WORD wReserved2;
      WORD wReserved3;
      union {
        LONGLONG llVal;
        LONG lVal;
        BYTE bVal;
        SHORT iVal;
        FLOAT fltVal;
        DOUBLE dblVal;
        VARIANT_BOOL boolVal;
        SCODE scode;
        CY cyVal;
        DATE date;
        BSTR bstrVal;
        IUnknown * punkVal;
        IDispatch * pdispVal;
        SAFEARRAY * parray;
        BYTE * pbVal;
        SHORT * piVal;
        LONG * plVal;
        LONGLONG * pllVal;
        FLOAT * pfltVal;
        DOUBLE * pdblVal;
        VARIANT_BOOL * pboolVal;
        SCODE * pscode;
        CY * pcyVal;
        DATE * pdate;
        BSTR * pbstrVal;
        IUnknown ** ppunkVal;
        IDispatch ** ppdispVal;
        SAFEARRAY ** pparray;
        VARIANT * pvarVal;
        PVOID byref;
        CHAR cVal;
        USHORT uiVal;
        ULONG ulVal;
        ULONGLONG ullVal;
        INT intVal;
        UINT uintVal;
        DECIMAL * pdecVal;
        CHAR * pcVal;
        USHORT * puiVal;
        ULONG * pulVal;
        ULONGLONG * pullVal;
        INT * pintVal;
        UINT * puintVal;
        struct {
          PVOID pvRecord;
          IRecordInfo * pRecInfo;
        };
      };
    };
    DECIMAL decVal;
  };
};
using VARIANTARG = VARIANT;
using LPVARIANT = VARIANT *;

// The layout of the 64-bit Windows headers (checked against them).
static_assert(sizeof(VARIANT) == 24, "VARIANT is 24 bytes on 64 bits");
static_assert(sizeof(SAFEARRAY) == 32 && sizeof(SAFEARRAYBOUND) == 8, "SAFEARRAY layout");
static_assert(sizeof(DECIMAL) == 16 && sizeof(CY) == 8, "DECIMAL and CY layout");

// Strings. Allocation failure gives null.
BSTR SysAllocString(wchar_t const * text);
BSTR SysAllocStringLen(wchar_t const * text, UINT length);
void SysFreeString(BSTR text);
UINT SysStringLen(BSTR text);
UINT SysStringByteLen(BSTR text);

// Arrays. Bounds are given first dimension first, as Windows takes them.
SAFEARRAY * SafeArrayCreate(VARTYPE vt, UINT dimensions, SAFEARRAYBOUND const * bounds);
SAFEARRAY * SafeArrayCreateVector(VARTYPE vt, LONG lowerBound, ULONG elements);
HRESULT SafeArrayDestroy(SAFEARRAY * array);
HRESULT SafeArrayCopy(SAFEARRAY const * array, SAFEARRAY ** copy);
UINT SafeArrayGetDim(SAFEARRAY const * array);
UINT SafeArrayGetElemsize(SAFEARRAY const * array);
HRESULT SafeArrayGetVartype(SAFEARRAY const * array, VARTYPE * vt);
// dimension counts from 1, the first dimension.
HRESULT SafeArrayGetLBound(SAFEARRAY const * array, UINT dimension, LONG * bound);
HRESULT SafeArrayGetUBound(SAFEARRAY const * array, UINT dimension, LONG * bound);
HRESULT SafeArrayLock(SAFEARRAY * array);
HRESULT SafeArrayUnlock(SAFEARRAY * array);
HRESULT SafeArrayAccessData(SAFEARRAY * array, void ** data);
HRESULT SafeArrayUnaccessData(SAFEARRAY * array);
// indexes: one a dimension, first dimension first. A BSTR is passed as the
// string itself, every other type through a pointer to it; strings and
// variants are copied.
HRESULT SafeArrayGetElement(SAFEARRAY * array, LONG const * indexes, void * value);
HRESULT SafeArrayPutElement(SAFEARRAY * array, LONG const * indexes, void * value);

// Variants.
void VariantInit(VARIANT * v);
HRESULT VariantClear(VARIANT * v);
HRESULT VariantCopy(VARIANT * destination, VARIANT const * source);

// A decimal as the nearest double; E_INVALIDARG for a scale above 28 or a
// sign other than 0 and DECIMAL_NEG.
HRESULT VarR8FromDec(DECIMAL const * value, double * result);
