#include "settings/VxVariant.h"

#include "utl/Exception.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

namespace {

// The array and by-reference bits off, as every type is judged.
constexpr unsigned typeMask = 0x9FFF;

VARTYPE BaseType(VARTYPE vt) { return static_cast<VARTYPE>(vt & typeMask); }

// Bytes an element of the array types read and written here takes; 0 for
// the types the arrays here do not hold.
ULONG ElementSize(VARTYPE t) {
  switch (t) {
    case VT_I1:
    case VT_UI1: return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL: return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4: return 4;
    case VT_I8:
    case VT_UI8:
    case VT_R8: return 8;
    case VT_BSTR: return sizeof(BSTR);
    case VT_VARIANT: return sizeof(VARIANT);
    default: return 0;
  }
}

// The array the variant holds, through the reference when it is one.
SAFEARRAY * ArrayOf(VARIANT const * v) {
  if (v == nullptr || (v->vt & VT_ARRAY) == 0) return nullptr;
  if ((v->vt & VT_BYREF) != 0) return v->pparray == nullptr ? nullptr : *v->pparray;
  return v->parray;
}

std::size_t ElementCount(SAFEARRAY const * array) {
  std::size_t count = 1;
  for (USHORT i = 0; i < array->cDims; ++i) {
    std::size_t const n = array->rgsabound[i].cElements;
    if (n != 0 && count > std::numeric_limits<std::size_t>::max() / n) return 0;
    count *= n;
  }
  return count;
}

// The array's element at a flat index, or null unless the array has one or
// two dimensions, elements of type t's size, and that element.
void * ElementAt(SAFEARRAY const * array, VARTYPE t, int64_t index) {
  if (array == nullptr || array->pvData == nullptr || array->cDims < 1 || array->cDims > 2)
    return nullptr;
  ULONG const size = ElementSize(t);
  // Strings and variants hold pointers: their arrays must say they hold
  // them, as every array made for them does; a size alone would let eight
  // bytes of a number pass for a string.
  USHORT const holds = t == VT_BSTR ? FADF_BSTR : t == VT_VARIANT ? FADF_VARIANT : 0;
  // One or two 32-bit counts: their product cannot overflow 64 bits.
  uint64_t const count = uint64_t{array->rgsabound[0].cElements} *
                         (array->cDims == 2 ? array->rgsabound[1].cElements : 1U);
  if (size == 0 || array->cbElements != size || (array->fFeatures & holds) != holds || index < 0 ||
      static_cast<uint64_t>(index) >= count)
    return nullptr;
  return static_cast<char *>(array->pvData) + static_cast<std::size_t>(index) * size;
}

// rows and columns of a two-dimensional array (bounds stored last
// dimension first: rgsabound[0] the rows, rgsabound[1] the columns).
int64_t Rows(SAFEARRAY const * array) { return array->rgsabound[0].cElements; }
int64_t Columns(SAFEARRAY const * array) { return array->rgsabound[1].cElements; }

// columns * row + column, or -1 outside a two-dimensional array.
int64_t FlatIndex(SAFEARRAY const * array, int row, int column) {
  if (array == nullptr || array->cDims != 2 || row < 0 || column < 0 || row >= Rows(array) ||
      column >= Columns(array))
    return -1;
  return Columns(array) * row + column;
}

template <typename T>
T Load(void const * data) {
  T value;
  std::memcpy(&value, data, sizeof value);
  return value;
}

template <typename T>
void Store(void * data, T value) {
  std::memcpy(data, &value, sizeof value);
}

// Where a single variant's value lies, or null for a null reference.
void const * ValueOf(VARIANT const * v) {
  if ((v->vt & VT_BYREF) != 0) return v->byref;
  return BaseType(v->vt) == VT_DECIMAL ? static_cast<void const *>(&v->decVal)
                                       : static_cast<void const *>(&v->llVal);
}

void * ValueOf(VARIANT * v) { return const_cast<void *>(ValueOf(static_cast<VARIANT const *>(v))); }

// A variant's own value may be read at this depth: it exists, is no array,
// and lies within the reference cap. A bare VT_VARIANT is no value.
bool Readable(VARIANT const * v, int depth) {
  return v != nullptr && depth <= VxVariant::MaxReferenceDepth && (v->vt & VT_ARRAY) == 0 &&
         (BaseType(v->vt) != VT_VARIANT || (v->vt & VT_BYREF) != 0) && ValueOf(v) != nullptr;
}

int IntegralOf(VARIANT const * v, int depth);
double DoubleOf(VARIANT const * v, int depth);
wxString StringOf(VARIANT const * v, int depth);

int IntegralAt(void const * data, VARTYPE t, int depth) {
  switch (t) {
    case VT_I1: return Load<int8_t>(data);
    case VT_UI1: return Load<uint8_t>(data);
    case VT_I2: return Load<int16_t>(data);
    case VT_UI2: return Load<uint16_t>(data);
    case VT_I4:
    case VT_INT: return Load<int32_t>(data);
    case VT_UI4:
    case VT_UINT: return static_cast<int32_t>(Load<uint32_t>(data));
    case VT_I8:
    case VT_UI8: return static_cast<int32_t>(static_cast<uint32_t>(Load<uint64_t>(data)));
    case VT_BOOL: return Load<int16_t>(data) != 0 ? 1 : 0;
    case VT_VARIANT: return IntegralOf(static_cast<VARIANT const *>(data), depth + 1);
    default: return 0;
  }
}

double DoubleAt(void const * data, VARTYPE t, int depth) {
  switch (t) {
    case VT_R4: return Load<float>(data);
    case VT_R8: return Load<double>(data);
    case VT_VARIANT: {
      // The common element, a plain double, without the general walk.
      auto const * v = static_cast<VARIANT const *>(data);
      return v->vt == VT_R8 ? v->dblVal : DoubleOf(v, depth + 1);
    }
    default: return VxVariant::NoNumber;
  }
}

wxString StringAt(void const * data, VARTYPE t, int depth) {
  if (t == VT_BSTR) {
    BSTR const text = Load<BSTR>(data);
    return text == nullptr ? wxString() : wxString(text, SysStringLen(text));
  }
  if (t == VT_VARIANT) return StringOf(static_cast<VARIANT const *>(data), depth + 1);
  return {};
}

int IntegralOf(VARIANT const * v, int depth) {
  return Readable(v, depth) ? IntegralAt(ValueOf(v), BaseType(v->vt), depth) : 0;
}

double DoubleOf(VARIANT const * v, int depth) {
  if (!Readable(v, depth)) return VxVariant::NoNumber;
  if (BaseType(v->vt) == VT_DECIMAL) {
    double number = 0;
    return SUCCEEDED(VarR8FromDec(static_cast<DECIMAL const *>(ValueOf(v)), &number))
               ? number
               : VxVariant::NoNumber;
  }
  return DoubleAt(ValueOf(v), BaseType(v->vt), depth);
}

wxString StringOf(VARIANT const * v, int depth) {
  return Readable(v, depth) ? StringAt(ValueOf(v), BaseType(v->vt), depth) : wxString();
}

// IEEE narrowing, spelt out: a finite double beyond float's range becomes
// an infinity instead of a conversion C++ leaves undefined.
float NarrowToFloat(double value) {
  if (std::isfinite(value) && std::fabs(value) > std::numeric_limits<float>::max())
    return value > 0 ? std::numeric_limits<float>::infinity()
                     : -std::numeric_limits<float>::infinity();
  return static_cast<float>(value);
}

void WriteDoubleTo(VARIANT * v, double value, int depth);
void WriteIntegralTo(VARIANT * v, int value, int depth);

void WriteDoubleAt(void * data, VARTYPE t, double value, int depth) {
  switch (t) {
    case VT_R4: Store(data, NarrowToFloat(value)); break;
    case VT_R8: Store(data, value); break;
    case VT_VARIANT: WriteDoubleTo(static_cast<VARIANT *>(data), value, depth + 1); break;
    default: break;
  }
}

void WriteIntegralAt(void * data, VARTYPE t, int value, int depth) {
  switch (t) {
    case VT_I1:
    case VT_UI1: Store(data, static_cast<uint8_t>(value)); break;
    case VT_I2:
    case VT_UI2: Store(data, static_cast<uint16_t>(value)); break;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT: Store(data, static_cast<int32_t>(value)); break;
    case VT_I8:
    case VT_UI8: Store(data, static_cast<int64_t>(value)); break;
    case VT_BOOL: Store(data, value != 0 ? VARIANT_TRUE : VARIANT_FALSE); break;
    case VT_VARIANT: WriteIntegralTo(static_cast<VARIANT *>(data), value, depth + 1); break;
    default: break;
  }
}

// A variant element takes a double as VT_R4 or VT_R8, by value or by
// reference, or through a referenced variant.
void WriteDoubleTo(VARIANT * v, double value, int depth) {
  if (!Readable(v, depth)) return;
  VARTYPE const t = BaseType(v->vt);
  if (t == VT_R4 || t == VT_R8 || t == VT_VARIANT) WriteDoubleAt(ValueOf(v), t, value, depth);
}

void WriteIntegralTo(VARIANT * v, int value, int depth) {
  if (Readable(v, depth)) WriteIntegralAt(ValueOf(v), BaseType(v->vt), value, depth);
}

SAFEARRAY * MakeArray(VARTYPE elementType, int rows, int columns) {
  SAFEARRAYBOUND const bounds[2] = {{static_cast<ULONG>(std::max(columns, 0)), 0},
                                    {static_cast<ULONG>(std::max(rows, 0)), 0}};
  return SafeArrayCreate(elementType, 2, bounds);
}

VxVariant::DataType KindOf(VARTYPE t) {
  switch (t) {
    case VT_I2:
    case VT_I4:
    case VT_BOOL:
    case VT_I1:
    case VT_UI1:
    case VT_UI2:
    case VT_UI4:
    case VT_I8:
    case VT_UI8:
    case VT_INT:
    case VT_UINT: return VxVariant::integral;
    case VT_R4:
    case VT_R8:
    case VT_DECIMAL: return VxVariant::real;
    case VT_BSTR: return VxVariant::string;
    default: return VxVariant::other;
  }
}

// The type of an array of variants: its first element's.
VARTYPE FirstElementType(SAFEARRAY const * array) {
  auto const * first = static_cast<VARIANT const *>(ElementAt(array, VT_VARIANT, 0));
  return first == nullptr ? VARTYPE{VT_EMPTY} : first->vt;
}

}  // namespace

VxVariant::VxVariant(VARIANT * v) : mVariant(v), mArray(ArrayOf(v)) {}

VxVariant::VxVariant(unsigned int type, int rows, int columns, bool asVariants)
    : mVariant(nullptr), mOwned(std::make_unique<VARIANT>()) {
  mVariant = mOwned.get();
  VariantInit(mVariant);
  auto const vt = static_cast<VARTYPE>(type);
  SAFEARRAY * array = MakeArray(asVariants ? VARTYPE{VT_VARIANT} : vt, rows, columns);
  if (asVariants && array != nullptr) {
    auto * elements = static_cast<VARIANT *>(array->pvData);
    std::size_t const count = ElementCount(array);
    for (std::size_t i = 0; i < count; ++i) elements[i].vt = vt;
  }
  mVariant->vt = asVariants ? VARTYPE{VT_ARRAY | VT_VARIANT} : static_cast<VARTYPE>(vt | VT_ARRAY);
  mVariant->parray = array;
}

VxVariant::~VxVariant() = default;

bool VxVariant::SetDataType(unsigned int type, int rows, int columns) {
  if (mVariant == nullptr) return false;
  VariantInit(mVariant);
  auto const vt = static_cast<VARTYPE>(type);
  mVariant->parray = MakeArray(vt, rows, columns);
  mVariant->vt = static_cast<VARTYPE>(vt | VT_ARRAY);
  return true;
}

bool VxVariant::SetDataType(unsigned int type, int size) {
  if (mVariant == nullptr) return false;
  VariantInit(mVariant);
  auto const vt = static_cast<VARTYPE>(type);
  mVariant->parray = SafeArrayCreateVector(vt, 0, static_cast<ULONG>(std::max(size, 0)));
  mVariant->vt = static_cast<VARTYPE>(vt | VT_ARRAY);
  return true;
}

VxVariant::DataType VxVariant::GetDataType() const {
  if (mVariant == nullptr) return other;
  VARTYPE const vt = mVariant->vt;
  VARTYPE t = BaseType(vt);
  if (t == VT_VARIANT) {
    bool const isArray = (vt & VT_ARRAY) != 0;
    bool const isReference = (vt & VT_BYREF) != 0;
    if (isArray)
      t = BaseType(FirstElementType(ArrayOf(mVariant)));
    else if (isReference)
      t = mVariant->pvarVal == nullptr ? VARTYPE{VT_EMPTY} : BaseType(mVariant->pvarVal->vt);
    else
      return other;
  }
  return KindOf(t);
}

int VxVariant::GetDimensions() const { return mArray == nullptr ? 0 : mArray->cDims; }

int VxVariant::Size(int dimension) const {
  if (mArray == nullptr) return dimension < 2 ? 1 : 0;
  if (dimension == 0) {
    uint64_t count = 1;
    for (USHORT i = 0; i < mArray->cDims && count != 0; ++i)
      count = std::min<uint64_t>(count * mArray->rgsabound[i].cElements,
                                 std::numeric_limits<int>::max());
    return static_cast<int>(count);
  }
  if (dimension < 0 || dimension > mArray->cDims) return 0;
  return static_cast<int>(std::min<uint64_t>(mArray->rgsabound[dimension - 1].cElements,
                                             std::numeric_limits<int>::max()));
}

int VxVariant::GetIntegralValue(int index) const {
  SAFEARRAY const * array = ArrayOf(mVariant);
  if (array == nullptr)
    return mVariant == nullptr || (mVariant->vt & VT_ARRAY) != 0 ? 0 : IntegralOf(mVariant, 0);
  VARTYPE const t = BaseType(mVariant->vt);
  void const * element = ElementAt(array, t, index);
  return element == nullptr ? 0 : IntegralAt(element, t, 0);
}

double VxVariant::GetDoubleValue(int index) const {
  SAFEARRAY const * array = ArrayOf(mVariant);
  if (array == nullptr)
    return mVariant == nullptr || (mVariant->vt & VT_ARRAY) != 0 ? NoNumber : DoubleOf(mVariant, 0);
  VARTYPE const t = BaseType(mVariant->vt);
  void const * element = ElementAt(array, t, index);
  return element == nullptr ? NoNumber : DoubleAt(element, t, 0);
}

double VxVariant::GetDoubleValue(int row, int column) const {
  SAFEARRAY const * array = ArrayOf(mVariant);
  if (array == nullptr) return GetDoubleValue(0);
  VARTYPE const t = BaseType(mVariant->vt);
  // The table of doubles that a client reads cell by cell, at once.
  if (t == VT_R8 && array->cDims == 2 && array->cbElements == sizeof(double) &&
      array->pvData != nullptr && static_cast<unsigned>(row) < array->rgsabound[0].cElements &&
      static_cast<unsigned>(column) < array->rgsabound[1].cElements)
    return static_cast<double const *>(
        array->pvData)[std::size_t{array->rgsabound[1].cElements} * static_cast<unsigned>(row) +
                       static_cast<unsigned>(column)];
  void const * element = ElementAt(array, t, FlatIndex(array, row, column));
  return element == nullptr ? NoNumber : DoubleAt(element, t, 0);
}

wxString VxVariant::GetStringValue(int index) const {
  SAFEARRAY const * array = ArrayOf(mVariant);
  if (array == nullptr)
    return mVariant == nullptr || (mVariant->vt & VT_ARRAY) != 0 ? wxString()
                                                                 : StringOf(mVariant, 0);
  VARTYPE const t = BaseType(mVariant->vt);
  void const * element = ElementAt(array, t, index);
  return element == nullptr ? wxString() : StringAt(element, t, 0);
}

wxString VxVariant::GetStringValue(int row, int column) const {
  SAFEARRAY const * array = ArrayOf(mVariant);
  if (array == nullptr) return GetStringValue(0);
  VARTYPE const t = BaseType(mVariant->vt);
  void const * element = ElementAt(array, t, FlatIndex(array, row, column));
  return element == nullptr ? wxString() : StringAt(element, t, 0);
}

void VxVariant::SetIntegralValue(int value, int index) {
  SAFEARRAY * array = ArrayOf(mVariant);
  if (array == nullptr) return;
  VARTYPE const t = BaseType(mVariant->vt);
  if (void * element = ElementAt(array, t, index)) WriteIntegralAt(element, t, value, 0);
}

void VxVariant::SetIntegralValue(int value, int row, int column) {
  SAFEARRAY * array = ArrayOf(mVariant);
  if (array == nullptr) return;
  VARTYPE const t = BaseType(mVariant->vt);
  if (void * element = ElementAt(array, t, FlatIndex(array, row, column)))
    WriteIntegralAt(element, t, value, 0);
}

void VxVariant::SetDoubleValue(double value, int index) {
  SAFEARRAY * array = ArrayOf(mVariant);
  if (array == nullptr) return;
  VARTYPE const t = BaseType(mVariant->vt);
  if (void * element = ElementAt(array, t, index)) WriteDoubleAt(element, t, value, 0);
}

void VxVariant::SetDoubleValue(double value, int row, int column) {
  SAFEARRAY * array = ArrayOf(mVariant);
  if (array == nullptr) return;
  VARTYPE const t = BaseType(mVariant->vt);
  if (void * element = ElementAt(array, t, FlatIndex(array, row, column)))
    WriteDoubleAt(element, t, value, 0);
}

void VxVariant::SetRow(int row, float const * values, int count) {
  VARTYPE const t = mVariant == nullptr ? VARTYPE{VT_EMPTY} : BaseType(mVariant->vt);
  if (t != VT_R4 && t != VT_R8 && t != VT_VARIANT)
    throw Exception(ExceptionMessage::translate("Unknown type in {1}") % "VxVariant::SetRow");
  SAFEARRAY * array = ArrayOf(mVariant);
  if (values == nullptr || array == nullptr || array->cDims != 2) return;
  // row is the column of the flat formula; the values run down it.
  for (int k = 0; k < count && k < Rows(array); ++k)
    if (void * element = ElementAt(array, t, FlatIndex(array, k, row)))
      WriteDoubleAt(element, t, values[k], 0);
}
