// VxVariant: element layout of two-dimensional arrays, type judgement,
// reads and writes by element type through references and nested
// variants, and the neutral answers to arrays and references that do not
// hold what they claim. Arrays are filled and checked through their raw
// memory, not through VxVariant itself.

#include "settings/VxVariant.h"

#include "utl/Exception.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>
#include <vector>

namespace {

// A variant owning its array; clears it at the end like an automation
// receiver would.
struct OwnedVariant {
  VARIANT v;
  explicit OwnedVariant(VARTYPE vt = VT_EMPTY) {
    VariantInit(&v);
    v.vt = vt;
  }
  OwnedVariant(VARTYPE elementType, std::vector<SAFEARRAYBOUND> const & bounds) {
    VariantInit(&v);
    v.vt = static_cast<VARTYPE>(VT_ARRAY | elementType);
    v.parray = SafeArrayCreate(elementType, static_cast<UINT>(bounds.size()), bounds.data());
  }
  ~OwnedVariant() { VariantClear(&v); }
  OwnedVariant(OwnedVariant const &) = delete;
  OwnedVariant & operator=(OwnedVariant const &) = delete;

  template <typename T>
  T * Data() {
    return static_cast<T *>(v.parray->pvData);
  }
};

// A VxVariant that made its own variant; the test clears the array.
struct MadeVariant {
  VxVariant variant;
  MadeVariant(unsigned type, int rows, int columns, bool asVariants)
      : variant(type, rows, columns, asVariants) {}
  ~MadeVariant() { VariantClear(variant.GetVariant()); }
  MadeVariant(MadeVariant const &) = delete;
  MadeVariant & operator=(MadeVariant const &) = delete;

  template <typename T>
  T * Data() {
    return static_cast<T *>(variant.GetVariant()->parray->pvData);
  }
};

}  // namespace

TEST(VxVariant, MadeArraysLieColumnsTimesRowPlusColumn) {
  MadeVariant doubles(VT_R8, 3, 4, false);
  VARIANT const * v = doubles.variant.GetVariant();
  ASSERT_EQ(v->vt, VT_ARRAY | VT_R8);
  ASSERT_NE(v->parray, nullptr);
  EXPECT_EQ(v->parray->rgsabound[0].cElements, 3u) << "rows";
  EXPECT_EQ(v->parray->rgsabound[1].cElements, 4u) << "columns";
  for (int row = 0; row < 3; ++row)
    for (int column = 0; column < 4; ++column)
      doubles.variant.SetDoubleValue(row * 10 + column, row, column);
  for (int row = 0; row < 3; ++row)
    for (int column = 0; column < 4; ++column) {
      EXPECT_EQ(doubles.Data<double>()[4 * row + column], row * 10 + column);
      EXPECT_EQ(doubles.variant.GetDoubleValue(row, column), row * 10 + column);
    }
  EXPECT_EQ(doubles.variant.GetDoubleValue(4 * 2 + 1), 21.0) << "flat index";

  // SetRow writes down the column `row`, one value a row.
  float const values[] = {1.5F, 2.5F, 3.5F, 99.0F};
  doubles.variant.SetRow(1, values, 4);
  for (int k = 0; k < 3; ++k) EXPECT_EQ(doubles.Data<double>()[1 + 4 * k], values[k]);
  EXPECT_EQ(doubles.Data<double>()[0], 0.0) << "the rest stays";
  EXPECT_EQ(doubles.Data<double>()[2], 2.0);

  MadeVariant floats(VT_R4, 2, 3, false);
  floats.variant.SetRow(2, values, 2);
  EXPECT_EQ(floats.Data<float>()[2], 1.5F);
  EXPECT_EQ(floats.Data<float>()[5], 2.5F);
  floats.variant.SetDoubleValue(1e300, 0, 0);
  EXPECT_TRUE(std::isinf(floats.Data<float>()[0])) << "narrowed as IEEE does";
}

TEST(VxVariant, ArraysOfVariantsAreWrittenByEachElementsType) {
  MadeVariant made(VT_R4, 2, 2, true);
  VARIANT const * v = made.variant.GetVariant();
  EXPECT_EQ(v->vt, 8204);
  auto * elements = made.Data<VARIANT>();
  for (int i = 0; i < 4; ++i) EXPECT_EQ(elements[i].vt, VT_R4) << i;
  EXPECT_EQ(made.variant.GetDataType(), VxVariant::real);

  // Elements of other kinds: by reference, nested, a string.
  double target = 0;
  VARIANT inner;
  VariantInit(&inner);
  inner.vt = VT_BYREF | VT_R8;
  inner.pdblVal = &target;
  elements[1].vt = VT_BYREF | VT_VARIANT;
  elements[1].pvarVal = &inner;
  elements[2].vt = VT_R8;
  elements[3].vt = VT_BSTR;
  elements[3].bstrVal = nullptr;

  float const column[] = {7.0F, 8.0F};
  made.variant.SetRow(0, column, 2);  // elements 0 and 2
  made.variant.SetRow(1, column, 2);  // elements 1 and 3
  EXPECT_EQ(elements[0].fltVal, 7.0F);
  EXPECT_EQ(elements[2].dblVal, 8.0);
  EXPECT_EQ(target, 7.0) << "through the reference";
  EXPECT_EQ(elements[3].vt, VT_BSTR) << "a string element is left alone";
  EXPECT_EQ(made.variant.GetDoubleValue(1), 7.0);
  EXPECT_EQ(made.variant.GetDoubleValue(3), VxVariant::NoNumber);
  made.variant.SetDoubleValue(-4.25, 0, 1);
  EXPECT_EQ(target, -4.25);
  made.variant.SetRow(0, column, 0);
  EXPECT_EQ(elements[0].fltVal, 7.0F);
}

TEST(VxVariant, SetRowRefusesOtherElementTypes) {
  VARTYPE const refused[] = {VT_BSTR, VT_I4, VT_DECIMAL, VT_EMPTY};
  for (VARTYPE type : refused) {
    MadeVariant made(type, 2, 2, false);
    float const values[] = {1.0F};
    try {
      made.variant.SetRow(0, values, 1);
      ADD_FAILURE() << "no exception for type " << type;
    } catch (Exception & e) {
      EXPECT_EQ(e.Why(std::locale::classic()), "Unknown type in VxVariant::SetRow") << type;
    }
  }
}

TEST(VxVariant, DataTypeByMaskedTypeAndFirstElement) {
  struct Case {
    VARTYPE vt;
    VxVariant::DataType expected;
  };
  Case const scalars[] = {
      {VT_I2, VxVariant::integral},
      {VT_BOOL, VxVariant::integral},
      {VT_UI8, VxVariant::integral},
      {VT_UINT, VxVariant::integral},
      {VT_BYREF | VT_I4, VxVariant::integral},
      {VT_R4, VxVariant::real},
      {VT_DECIMAL, VxVariant::real},
      {VT_BYREF | VT_R8, VxVariant::real},
      {VT_BSTR, VxVariant::string},
      {VT_DATE, VxVariant::other},
      {VT_CY, VxVariant::other},
      {VT_EMPTY, VxVariant::other},
      {VT_VARIANT, VxVariant::other},
      {VT_VECTOR | VT_I4, VxVariant::other},
      {0x0FFE, VxVariant::other},
  };
  for (Case const & c : scalars) {
    VARIANT v;
    VariantInit(&v);
    v.vt = c.vt;
    v.llVal = 0;
    EXPECT_EQ(VxVariant(&v).GetDataType(), c.expected) << c.vt;
  }

  VARIANT referenced;
  VariantInit(&referenced);
  referenced.vt = VT_BSTR;
  referenced.bstrVal = nullptr;
  VARIANT reference;
  reference.vt = VT_BYREF | VT_VARIANT;
  reference.pvarVal = &referenced;
  EXPECT_EQ(VxVariant(&reference).GetDataType(), VxVariant::string);
  reference.pvarVal = nullptr;
  EXPECT_EQ(VxVariant(&reference).GetDataType(), VxVariant::other);

  // An array of variants is judged by its first element alone.
  OwnedVariant mixed(VT_VARIANT, {{3, 0}});
  mixed.Data<VARIANT>()[0].vt = VT_I4;
  mixed.Data<VARIANT>()[1].vt = VT_R8;
  mixed.Data<VARIANT>()[2].vt = VT_R8;
  EXPECT_EQ(VxVariant(&mixed.v).GetDataType(), VxVariant::integral);
  VARIANT byReference;
  byReference.vt = VT_BYREF | VT_ARRAY | VT_VARIANT;
  byReference.pparray = &mixed.v.parray;
  EXPECT_EQ(VxVariant(&byReference).GetDataType(), VxVariant::integral);
  mixed.Data<VARIANT>()[0].vt = VT_BYREF | VT_BSTR;
  EXPECT_EQ(VxVariant(&byReference).GetDataType(), VxVariant::string) << "masked";

  OwnedVariant none(VT_VARIANT, {{0, 0}});
  EXPECT_EQ(VxVariant(&none.v).GetDataType(), VxVariant::other);
  OwnedVariant strings(VT_BSTR, {{2, 0}, {2, 0}});
  EXPECT_EQ(VxVariant(&strings.v).GetDataType(), VxVariant::string);
}

TEST(VxVariant, SizesComeFromTheWrappedArray) {
  MadeVariant made(VT_I4, 3, 4, false);
  VxVariant wrapped(made.variant.GetVariant());
  EXPECT_EQ(wrapped.GetDimensions(), 2);
  EXPECT_EQ(wrapped.Size(0), 12);
  EXPECT_EQ(wrapped.Size(1), 3);
  EXPECT_EQ(wrapped.Size(2), 4);
  EXPECT_EQ(wrapped.Size(3), 0);
  // The making constructor keeps no array: its sizes are a scalar's.
  EXPECT_EQ(made.variant.GetDimensions(), 0);
  EXPECT_EQ(made.variant.Size(0), 1);

  VARIANT byReference;
  byReference.vt = VT_BYREF | VT_ARRAY | VT_I4;
  byReference.pparray = &made.variant.GetVariant()->parray;
  EXPECT_EQ(VxVariant(&byReference).Size(0), 12);

  OwnedVariant vector(VT_R8, {{5, 1}});
  EXPECT_EQ(VxVariant(&vector.v).GetDimensions(), 1);
  EXPECT_EQ(VxVariant(&vector.v).Size(1), 5);

  VARIANT scalar;
  VariantInit(&scalar);
  scalar.vt = VT_R8;
  VxVariant single(&scalar);
  EXPECT_EQ(single.GetDimensions(), 0);
  EXPECT_EQ(single.Size(0), 1);
  EXPECT_EQ(single.Size(1), 1);
  EXPECT_EQ(single.Size(2), 0);
}

TEST(VxVariant, IntegralReadsExtendByTypeAndWritesKeepTheElementSize) {
  struct Case {
    VARTYPE type;
    int64_t stored;  // the element's bytes, little-endian
    int read;
    int written;         // SetIntegralValue(written)...
    int64_t storedBack;  // ...leaves these bytes
  };
  Case const cases[] = {
      {VT_I1, 0xFF, -1, 300, 44},
      {VT_UI1, 0xFF, 255, -1, 0xFF},
      {VT_I2, 0x8000, -32768, 70000, 70000 - 65536},
      {VT_UI2, 0xFFFF, 65535, 65536 + 5, 5},
      {VT_I4, 0xFFFFFFFF, -1, -7, 0xFFFFFFF9},
      {VT_UI4, 0xFFFFFFFF, -1, 9, 9},
      {VT_INT, 123456, 123456, -2, 0xFFFFFFFE},
      {VT_UINT, 0x80000000, static_cast<int>(0x80000000u), 1, 1},
      {VT_I8, 0x100000005, 5, -2, -2},
      {VT_UI8, 0x7FFFFFFF00000009, 9, -1, -1},
      {VT_BOOL, 0x0002, 1, 5, 0xFFFF},
      {VT_BOOL, 0, 0, 0, 0},
      {VT_R8, 0x4014000000000000, 0, 3, 0x4014000000000000},  // 5.0, no conversion
      {VT_BSTR, 0, 0, 3, 0},
  };
  for (Case const & c : cases) {
    OwnedVariant array(c.type, {{2, 0}});
    std::size_t const size = array.v.parray->cbElements;
    std::memcpy(static_cast<char *>(array.v.parray->pvData) + size, &c.stored, size);
    VxVariant variant(&array.v);
    EXPECT_EQ(variant.GetIntegralValue(1), c.read) << c.type;
    variant.SetIntegralValue(c.written, 1);
    uint64_t back = 0;
    std::memcpy(&back, static_cast<char *>(array.v.parray->pvData) + size, size);
    uint64_t const mask = size == 8 ? ~uint64_t{0} : (uint64_t{1} << (8 * size)) - 1;
    EXPECT_EQ(back, static_cast<uint64_t>(c.storedBack) & mask) << c.type;
    EXPECT_EQ(array.Data<char>()[0], 0) << "neighbour untouched, type " << c.type;
  }
}

TEST(VxVariant, SingleValueReadsFollowReferences) {
  double number = 2.5;
  float single = 0.25F;
  int16_t shortNumber = -3;
  BSTR text = SysAllocString(L"Zone \U0001F600");
  DECIMAL decimal{};
  decimal.Lo64 = 12345;
  decimal.scale = 2;
  decimal.sign = DECIMAL_NEG;

  VARIANT r8;
  VariantInit(&r8);
  r8.vt = VT_R8;
  r8.dblVal = number;
  VARIANT r8Ref{};
  r8Ref.vt = VT_BYREF | VT_R8;
  r8Ref.pdblVal = &number;
  VARIANT r4Ref{};
  r4Ref.vt = VT_BYREF | VT_R4;
  r4Ref.pfltVal = &single;
  VARIANT dec{};
  dec.decVal = decimal;
  dec.vt = VT_DECIMAL;
  VARIANT decRef{};
  decRef.vt = VT_BYREF | VT_DECIMAL;
  decRef.pdecVal = &decimal;
  VARIANT i2Ref{};
  i2Ref.vt = VT_BYREF | VT_I2;
  i2Ref.piVal = &shortNumber;
  VARIANT str{};
  str.vt = VT_BSTR;
  str.bstrVal = text;
  VARIANT strRef{};
  strRef.vt = VT_BYREF | VT_BSTR;
  strRef.pbstrVal = &text;
  VARIANT nullRef{};
  nullRef.vt = VT_BYREF | VT_R8;
  nullRef.pdblVal = nullptr;
  VARIANT badDecimal{};
  badDecimal.decVal.scale = 29;
  badDecimal.vt = VT_DECIMAL;

  struct Case {
    char const * name;
    VARIANT * v;
    int integral;
    double real;
    wchar_t const * text;
  };
  Case const cases[] = {
      {"R8", &r8, 0, 2.5, L""},
      {"R8 by reference", &r8Ref, 0, 2.5, L""},
      {"R4 by reference", &r4Ref, 0, 0.25, L""},
      {"decimal", &dec, 0, -123.45, L""},
      {"decimal by reference", &decRef, 0, -123.45, L""},
      {"decimal of scale 29", &badDecimal, 0, VxVariant::NoNumber, L""},
      {"I2 by reference", &i2Ref, -3, VxVariant::NoNumber, L""},
      {"string", &str, 0, VxVariant::NoNumber, L"Zone \U0001F600"},
      {"string by reference", &strRef, 0, VxVariant::NoNumber, L"Zone \U0001F600"},
      {"null reference", &nullRef, 0, VxVariant::NoNumber, L""},
  };
  for (Case const & c : cases) {
    VxVariant direct(c.v);
    EXPECT_EQ(direct.GetIntegralValue(7), c.integral) << c.name;
    EXPECT_DOUBLE_EQ(direct.GetDoubleValue(7), c.real) << c.name;
    EXPECT_EQ(direct.GetStringValue(7), wxString(c.text)) << c.name;
    // The same through two variant references.
    VARIANT once{};
    once.vt = VT_BYREF | VT_VARIANT;
    once.pvarVal = c.v;
    VARIANT twice{};
    twice.vt = VT_BYREF | VT_VARIANT;
    twice.pvarVal = &once;
    VxVariant followed(&twice);
    EXPECT_EQ(followed.GetIntegralValue(0), c.integral) << c.name;
    EXPECT_DOUBLE_EQ(followed.GetDoubleValue(0, 0), c.real) << c.name;
    EXPECT_EQ(followed.GetStringValue(0, 0), wxString(c.text)) << c.name;
  }
  SysFreeString(text);
}

TEST(VxVariant, ReferenceChainsEndAtTheCap) {
  double number = 6.0;
  std::vector<VARIANT> chain(VxVariant::MaxReferenceDepth + 2);
  chain.back().vt = VT_BYREF | VT_R8;
  chain.back().pdblVal = &number;
  for (std::size_t i = 0; i + 1 < chain.size(); ++i) {
    chain[i].vt = VT_BYREF | VT_VARIANT;
    chain[i].pvarVal = &chain[i + 1];
  }
  // 64 references followed reach the number; 65 do not.
  EXPECT_EQ(VxVariant(&chain[1]).GetDoubleValue(0), 6.0);
  EXPECT_EQ(VxVariant(&chain[0]).GetDoubleValue(0), VxVariant::NoNumber);

  VARIANT loop{};
  loop.vt = VT_BYREF | VT_VARIANT;
  loop.pvarVal = &loop;
  VxVariant looped(&loop);
  EXPECT_EQ(looped.GetDoubleValue(0), VxVariant::NoNumber);
  EXPECT_EQ(looped.GetIntegralValue(0), 0);
  EXPECT_EQ(looped.GetStringValue(0), wxString());
  EXPECT_EQ(looped.GetDataType(), VxVariant::other);

  // A loop inside an array of variants: writes stop too.
  OwnedVariant array(VT_VARIANT, {{1, 0}});
  VARIANT & element = array.Data<VARIANT>()[0];
  element.vt = VT_BYREF | VT_VARIANT;
  element.pvarVal = &element;
  VxVariant wrapped(&array.v);
  wrapped.SetDoubleValue(1.0, 0);
  wrapped.SetIntegralValue(1, 0);
  EXPECT_EQ(wrapped.GetDoubleValue(0), VxVariant::NoNumber);
  element.vt = VT_EMPTY;
}

TEST(VxVariant, ArraysThatDoNotHoldWhatTheyClaimGiveNeutralResults) {
  OwnedVariant nullArray(VT_ARRAY | VT_R8);
  nullArray.v.parray = nullptr;
  OwnedVariant threeDimensions(VT_R8, {{2, 0}, {2, 0}, {2, 0}});
  OwnedVariant wrongSize(VT_I2, {{4, 0}, {4, 0}});
  wrongSize.v.vt = VT_ARRAY | VT_R8;  // 2-byte elements read as doubles
  OwnedVariant unknown(VT_I4, {{2, 0}, {2, 0}});
  unknown.v.vt = VT_ARRAY | 0x0FFE;
  OwnedVariant numbersAsStrings(VT_I8, {{2, 0}, {2, 0}});
  numbersAsStrings.Data<int64_t>()[0] = 0x1234;  // would be a wild pointer
  numbersAsStrings.v.vt = VT_ARRAY | VT_BSTR;
  OwnedVariant stringsAsVariants(VT_BSTR, {{3, 0}, {1, 0}});  // 24 bytes, as one VARIANT
  stringsAsVariants.v.vt = VT_ARRAY | VT_VARIANT;
  stringsAsVariants.v.parray->cbElements = sizeof(VARIANT);
  VARIANT nullReference{};
  nullReference.vt = VT_BYREF | VT_ARRAY | VT_R8;
  nullReference.pparray = nullptr;

  struct Case {
    char const * name;
    VARIANT * v;
  };
  Case const cases[] = {{"null array", &nullArray.v},
                        {"three dimensions", &threeDimensions.v},
                        {"elements of another size", &wrongSize.v},
                        {"unknown element type", &unknown.v},
                        {"numbers claimed as strings", &numbersAsStrings.v},
                        {"strings claimed as variants", &stringsAsVariants.v},
                        {"null array reference", &nullReference}};
  float const values[] = {1, 2, 3};
  for (Case const & c : cases) {
    VxVariant variant(c.v);
    EXPECT_EQ(variant.GetDoubleValue(0), VxVariant::NoNumber) << c.name;
    EXPECT_EQ(variant.GetDoubleValue(0, 0), VxVariant::NoNumber) << c.name;
    EXPECT_EQ(variant.GetIntegralValue(0), 0) << c.name;
    EXPECT_EQ(variant.GetStringValue(0, 0), wxString()) << c.name;
    variant.SetDoubleValue(5, 0);
    variant.SetIntegralValue(5, 0, 0);
    if ((c.v->vt & VT_TYPEMASK) == VT_R8) variant.SetRow(0, values, 3);
  }
  EXPECT_EQ(threeDimensions.Data<double>()[0], 0.0);
  EXPECT_EQ(wrongSize.Data<int16_t>()[0], 0);
  EXPECT_EQ(unknown.Data<int32_t>()[0], 0);
  stringsAsVariants.v.parray->cbElements = sizeof(BSTR);
  unknown.v.vt = VT_ARRAY | VT_I4;  // so that it can be cleared
}

TEST(VxVariant, IndexesOutsideTheArrayReadAndWriteNothing) {
  OwnedVariant guard(VT_R8, {{16, 0}});  // memory beside the array under test
  MadeVariant made(VT_R8, 2, 3, false);
  for (int i = 0; i < 6; ++i) made.Data<double>()[i] = i + 1;
  VxVariant & variant = made.variant;
  int const flat[] = {-1, 6, 1 << 30, -(1 << 30)};
  for (int index : flat) {
    EXPECT_EQ(variant.GetDoubleValue(index), VxVariant::NoNumber) << index;
    EXPECT_EQ(variant.GetIntegralValue(index), 0) << index;
    variant.SetDoubleValue(-5, index);
    variant.SetIntegralValue(-5, index);
  }
  // A column past the last is not the next row's first element.
  int const cells[][2] = {{0, 3}, {2, 0}, {-1, 1}, {1, -1}, {1 << 20, 1 << 20}};
  for (auto const & cell : cells) {
    EXPECT_EQ(variant.GetDoubleValue(cell[0], cell[1]), VxVariant::NoNumber) << cell[0];
    variant.SetDoubleValue(-5, cell[0], cell[1]);
    variant.SetIntegralValue(-5, cell[0], cell[1]);
  }
  float const column[] = {-5, -5, -5, -5};
  variant.SetRow(3, column, 4);
  variant.SetRow(-1, column, 4);
  variant.SetRow(2, column, 4);  // two rows: the last two values are dropped
  double const expected[] = {1, 2, -5, 4, 5, -5};
  for (int i = 0; i < 6; ++i) EXPECT_EQ(made.Data<double>()[i], expected[i]) << i;
  EXPECT_EQ(variant.GetDoubleValue(1, 2), -5.0);
}

TEST(VxVariant, SetDataTypeMakesANewArrayAndLeavesTheOldContent) {
  BSTR const old = SysAllocString(L"kept");
  VARIANT v;
  VariantInit(&v);
  v.vt = VT_BSTR;
  v.bstrVal = old;
  VxVariant variant(&v);
  ASSERT_TRUE(variant.SetDataType(VT_I4, 2, 5));
  EXPECT_EQ(v.vt, VT_ARRAY | VT_I4);
  ASSERT_NE(v.parray, nullptr);
  EXPECT_EQ(VxVariant(&v).Size(1), 2);
  EXPECT_EQ(VxVariant(&v).Size(2), 5);
  variant.SetIntegralValue(9, 1, 4);
  EXPECT_EQ(static_cast<int32_t *>(v.parray->pvData)[9], 9);
  // The old string is still the caller's to free (AddressSanitizer would
  // see a second free here).
  EXPECT_EQ(SysStringLen(old), 4u);
  SysFreeString(old);

  SAFEARRAY * previous = v.parray;
  ASSERT_TRUE(variant.SetDataType(VT_BSTR, 3));
  EXPECT_EQ(v.vt, VT_ARRAY | VT_BSTR);
  EXPECT_EQ(SafeArrayGetDim(v.parray), 1u);
  EXPECT_EQ(VxVariant(&v).Size(0), 3);
  EXPECT_EQ(variant.GetStringValue(2), wxString());
  EXPECT_EQ(SafeArrayDestroy(previous), S_OK);
  EXPECT_EQ(VariantClear(&v), S_OK);

  VxVariant none(nullptr);
  EXPECT_FALSE(none.SetDataType(VT_R8, 1, 1));
  EXPECT_FALSE(none.SetDataType(VT_R8, 1));
  EXPECT_EQ(none.GetDoubleValue(0), VxVariant::NoNumber);
  EXPECT_EQ(none.GetDataType(), VxVariant::other);
}

TEST(VxVariant, StringArraysReadTheirElements) {
  OwnedVariant strings(VT_BSTR, {{2, 0}, {2, 0}});
  strings.Data<BSTR>()[3] = SysAllocStringLen(L"a\0b", 3);
  VxVariant variant(&strings.v);
  EXPECT_EQ(variant.GetStringValue(1, 1), wxString(L"a\0b", 3));
  EXPECT_EQ(variant.GetStringValue(0), wxString());
  EXPECT_EQ(variant.GetDoubleValue(3), VxVariant::NoNumber);
  EXPECT_EQ(variant.GetIntegralValue(3), 0);
}

TEST(VxVariant, IntegralsInArraysOfVariantsGoByEachElementsType) {
  MadeVariant made(VT_I4, 1, 5, true);
  auto * elements = made.Data<VARIANT>();
  int16_t referenced = 0;
  elements[1].vt = VT_BYREF | VT_I2;
  elements[1].piVal = &referenced;
  elements[2].vt = VT_BOOL;
  elements[3].vt = VT_R8;
  elements[3].dblVal = 1.25;
  elements[4].vt = VT_UI1;
  for (int column = 0; column < 5; ++column)
    made.variant.SetIntegralValue(-70000 + column, 0, column);
  EXPECT_EQ(elements[0].lVal, -70000);
  EXPECT_EQ(referenced, static_cast<int16_t>(-69999)) << "16 bits through the reference";
  EXPECT_EQ(elements[2].boolVal, VARIANT_TRUE);
  EXPECT_EQ(elements[3].dblVal, 1.25) << "a double element takes no integer";
  EXPECT_EQ(elements[4].bVal, static_cast<uint8_t>(-69996));

  EXPECT_EQ(made.variant.GetIntegralValue(0), -70000);
  EXPECT_EQ(made.variant.GetIntegralValue(1), static_cast<int16_t>(-69999));
  EXPECT_EQ(made.variant.GetIntegralValue(2), 1);
  EXPECT_EQ(made.variant.GetIntegralValue(3), 0);
  EXPECT_EQ(made.variant.GetDoubleValue(3), 1.25);
  EXPECT_EQ(made.variant.GetDoubleValue(0), VxVariant::NoNumber) << "no conversion";

  // An array of decimals holds no number for the array read.
  OwnedVariant decimals(VT_DECIMAL, {{1, 0}});
  decimals.Data<DECIMAL>()[0].Lo64 = 5;
  EXPECT_EQ(VxVariant(&decimals.v).GetDataType(), VxVariant::real);
  EXPECT_EQ(VxVariant(&decimals.v).GetDoubleValue(0), VxVariant::NoNumber);
}
