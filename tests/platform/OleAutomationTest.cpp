// Strings, arrays, variant copies and decimals of the automation stand-ins:
// ownership (deep copies, frees) and the Windows conventions callers rely
// on (bounds given first dimension first, the BSTR passed bare to
// SafeArrayPutElement).

#include "platform/OleAutomation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace {

std::wstring Text(BSTR text) { return {text, SysStringLen(text)}; }

}  // namespace

TEST(BString, KeepsLengthEmbeddedNulAndEndsInNul) {
  BSTR const text = SysAllocStringLen(L"a\0b\U0001F600", 4);
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(SysStringLen(text), 4u);
  EXPECT_EQ(SysStringByteLen(text), 4u * sizeof(wchar_t));
  EXPECT_EQ(Text(text), std::wstring(L"a\0b\U0001F600", 4));
  EXPECT_EQ(text[4], L'\0');
  SysFreeString(text);

  BSTR const plain = SysAllocString(L"Run 7");
  EXPECT_EQ(Text(plain), L"Run 7");
  SysFreeString(plain);
  // Null is the empty string everywhere.
  EXPECT_EQ(SysAllocString(nullptr), nullptr);
  EXPECT_EQ(SysStringLen(nullptr), 0u);
  SysFreeString(nullptr);
  BSTR const blank = SysAllocStringLen(nullptr, 3);
  EXPECT_EQ(Text(blank), std::wstring(3, L'\0'));
  SysFreeString(blank);
  // A length whose byte count cannot be prefixed is refused, not wrapped.
  EXPECT_EQ(SysAllocStringLen(L"x", 0x40000000u), nullptr);
}

TEST(SafeArray, BoundsAreGivenFirstDimensionFirstAndStoredReversed) {
  // 4 columns (first dimension, from 1) by 3 rows (from -1).
  SAFEARRAYBOUND const bounds[2] = {{4, 1}, {3, -1}};
  SAFEARRAY * array = SafeArrayCreate(VT_I4, 2, bounds);
  ASSERT_NE(array, nullptr);
  EXPECT_EQ(SafeArrayGetDim(array), 2u);
  EXPECT_EQ(SafeArrayGetElemsize(array), 4u);
  EXPECT_EQ(array->rgsabound[0].cElements, 3u);
  EXPECT_EQ(array->rgsabound[1].cElements, 4u);
  LONG low = 0;
  LONG high = 0;
  ASSERT_EQ(SafeArrayGetLBound(array, 1, &low), S_OK);
  ASSERT_EQ(SafeArrayGetUBound(array, 1, &high), S_OK);
  EXPECT_EQ(low, 1);
  EXPECT_EQ(high, 4);
  ASSERT_EQ(SafeArrayGetLBound(array, 2, &low), S_OK);
  ASSERT_EQ(SafeArrayGetUBound(array, 2, &high), S_OK);
  EXPECT_EQ(low, -1);
  EXPECT_EQ(high, 1);
  EXPECT_EQ(SafeArrayGetUBound(array, 3, &high), DISP_E_BADINDEX);
  EXPECT_EQ(SafeArrayGetUBound(array, 0, &high), DISP_E_BADINDEX);

  // The first index runs fastest: (column 3, row 0) is element 2 + 4 * 1.
  LONG value = 77;
  LONG const at[2] = {3, 0};
  ASSERT_EQ(SafeArrayPutElement(array, at, &value), S_OK);
  EXPECT_EQ(static_cast<LONG *>(array->pvData)[2 + 4 * 1], 77);
  LONG back = 0;
  ASSERT_EQ(SafeArrayGetElement(array, at, &back), S_OK);
  EXPECT_EQ(back, 77);

  LONG const outside[][2] = {{0, 0}, {5, 0}, {1, -2}, {1, 2}};
  for (auto const & indexes : outside) {
    EXPECT_EQ(SafeArrayPutElement(array, indexes, &value), DISP_E_BADINDEX) << indexes[0];
    EXPECT_EQ(SafeArrayGetElement(array, indexes, &back), DISP_E_BADINDEX) << indexes[0];
  }

  VARTYPE vt = VT_EMPTY;
  ASSERT_EQ(SafeArrayGetVartype(array, &vt), S_OK);
  EXPECT_EQ(vt, VT_I4);
  EXPECT_EQ(SafeArrayDestroy(array), S_OK);
}

TEST(SafeArray, RefusesWhatCannotBeAnArray) {
  SAFEARRAYBOUND const bound{2, 0};
  EXPECT_EQ(SafeArrayCreate(VT_I4, 0, &bound), nullptr);
  EXPECT_EQ(SafeArrayCreate(VT_EMPTY, 1, &bound), nullptr);
  EXPECT_EQ(SafeArrayCreate(VT_ARRAY | VT_I4, 1, &bound), nullptr);
  // No variant can hold these, so no variant could free such an array.
  EXPECT_EQ(SafeArrayCreate(VT_INT_PTR, 1, &bound), nullptr);
  EXPECT_EQ(SafeArrayCreate(VT_RECORD, 1, &bound), nullptr);
  EXPECT_EQ(SafeArrayCreate(VT_I4, 1, nullptr), nullptr);
  // More elements than memory can hold.
  SAFEARRAYBOUND const huge[3] = {{0xFFFFFFFFu, 0}, {0xFFFFFFFFu, 0}, {0xFFFFFFFFu, 0}};
  EXPECT_EQ(SafeArrayCreate(VT_VARIANT, 3, huge), nullptr);
  SAFEARRAY * empty = SafeArrayCreateVector(VT_R8, 0, 0);
  ASSERT_NE(empty, nullptr);
  EXPECT_EQ(empty->pvData, nullptr);
  EXPECT_EQ(SafeArrayDestroy(empty), S_OK);
}

TEST(SafeArray, StringsAndVariantsAreCopiedInAndOutAndFreedWithTheArray) {
  SAFEARRAY * strings = SafeArrayCreateVector(VT_BSTR, 0, 2);
  BSTR const mine = SysAllocString(L"mine");
  LONG const first = 0;
  ASSERT_EQ(SafeArrayPutElement(strings, &first, mine), S_OK);
  SysFreeString(mine);  // the array holds its own copy
  BSTR out = nullptr;
  ASSERT_EQ(SafeArrayGetElement(strings, &first, &out), S_OK);
  EXPECT_EQ(Text(out), L"mine");
  EXPECT_NE(out, static_cast<BSTR *>(strings->pvData)[0]);
  SysFreeString(out);

  SAFEARRAY * copy = nullptr;
  ASSERT_EQ(SafeArrayCopy(strings, &copy), S_OK);
  static_cast<BSTR *>(copy->pvData)[0][0] = L'M';
  EXPECT_EQ(Text(static_cast<BSTR *>(strings->pvData)[0]), L"mine");
  EXPECT_EQ(Text(static_cast<BSTR *>(copy->pvData)[0]), L"Mine");
  EXPECT_EQ(SafeArrayDestroy(copy), S_OK);

  // A locked array stays.
  void * data = nullptr;
  ASSERT_EQ(SafeArrayAccessData(strings, &data), S_OK);
  EXPECT_EQ(data, strings->pvData);
  EXPECT_EQ(SafeArrayDestroy(strings), DISP_E_ARRAYISLOCKED);
  ASSERT_EQ(SafeArrayUnaccessData(strings), S_OK);
  EXPECT_EQ(SafeArrayUnaccessData(strings), E_FAIL);

  // A variant holding the string array: clearing frees array and strings.
  SAFEARRAY * variants = SafeArrayCreateVector(VT_VARIANT, 0, 1);
  VARIANT element;
  VariantInit(&element);
  element.vt = VT_ARRAY | VT_BSTR;
  element.parray = strings;
  ASSERT_EQ(SafeArrayPutElement(variants, &first, &element), S_OK);
  VARIANT holder;
  VariantInit(&holder);
  holder.vt = VT_ARRAY | VT_VARIANT;
  holder.parray = variants;
  VARIANT twin;
  VariantInit(&twin);
  ASSERT_EQ(VariantCopy(&twin, &holder), S_OK);
  EXPECT_NE(twin.parray, holder.parray);
  EXPECT_EQ(VariantClear(&holder), S_OK);
  EXPECT_EQ(holder.vt, VT_EMPTY);
  // The deep copy outlives the original (AddressSanitizer watches this).
  auto const * inner = static_cast<VARIANT *>(twin.parray->pvData);
  EXPECT_EQ(Text(static_cast<BSTR *>(inner->parray->pvData)[0]), L"mine");
  EXPECT_EQ(VariantClear(&twin), S_OK);
  EXPECT_EQ(VariantClear(&element), S_OK);
}

TEST(Variant, CopyAndClearByType) {
  VARIANT text;
  VariantInit(&text);
  text.vt = VT_BSTR;
  text.bstrVal = SysAllocString(L"abc");
  VARIANT copy;
  VariantInit(&copy);
  ASSERT_EQ(VariantCopy(&copy, &text), S_OK);
  EXPECT_NE(copy.bstrVal, text.bstrVal);
  EXPECT_EQ(Text(copy.bstrVal), L"abc");
  // A reference is copied as a reference and never freed.
  VARIANT reference;
  VariantInit(&reference);
  reference.vt = VT_BYREF | VT_BSTR;
  reference.pbstrVal = &text.bstrVal;
  ASSERT_EQ(VariantCopy(&copy, &reference), S_OK);  // frees copy's string first
  EXPECT_EQ(copy.pbstrVal, &text.bstrVal);
  EXPECT_EQ(VariantClear(&copy), S_OK);
  EXPECT_EQ(Text(text.bstrVal), L"abc");
  EXPECT_EQ(VariantClear(&text), S_OK);

  VARTYPE const invalid[] = {
      VT_VARIANT,        15, 0x0FFE, VT_VECTOR | VT_I4, VT_RESERVED | VT_I4, VT_ARRAY | VT_EMPTY,
      VT_BYREF | VT_NULL};
  for (VARTYPE vt : invalid) {
    VARIANT v;
    VariantInit(&v);
    v.vt = vt;
    EXPECT_EQ(VariantClear(&v), DISP_E_BADVARTYPE) << vt;
    EXPECT_EQ(v.vt, vt) << "left as it was";
    EXPECT_EQ(VariantCopy(&copy, &v), DISP_E_BADVARTYPE) << vt;
  }
}

TEST(Decimal, ToDouble) {
  struct Case {
    ULONG hi;
    ULONGLONG lo;
    BYTE scale;
    BYTE sign;
    HRESULT result;
    double value;
  };
  Case const cases[] = {
      {0, 15, 1, 0, S_OK, 1.5},
      {0, 15, 1, DECIMAL_NEG, S_OK, -1.5},
      {0, 0, 0, 0, S_OK, 0.0},
      {0, 123456789, 4, 0, S_OK, 12345.6789},
      {0, 1, 28, 0, S_OK, 1e-28},
      // The largest decimal, 2^96 - 1.
      {0xFFFFFFFFu, 0xFFFFFFFFFFFFFFFFull, 0, 0, S_OK, 79228162514264337593543950335.0},
      // 2^64 * 3 + 5 over 10^2: the high word counts.
      {3, 5, 2, 0, S_OK, (3.0 * 18446744073709551616.0 + 5.0) / 100.0},
      {0, 1, 29, 0, E_INVALIDARG, 0},
      {0, 1, 0, 0x01, E_INVALIDARG, 0},
  };
  for (Case const & c : cases) {
    DECIMAL d{};
    d.Hi32 = c.hi;
    d.Lo64 = c.lo;
    d.scale = c.scale;
    d.sign = c.sign;
    double value = 12345;
    HRESULT const hr = VarR8FromDec(&d, &value);
    EXPECT_EQ(hr, c.result) << c.lo << " scale " << int{c.scale};
    if (hr == S_OK)
      EXPECT_DOUBLE_EQ(value, c.value) << c.lo << " scale " << int{c.scale};
    else
      EXPECT_EQ(value, 12345) << "left alone on failure";
  }
  double value = 0;
  EXPECT_EQ(VarR8FromDec(nullptr, &value), E_POINTER);
}
