// Variants built from bytes: a small pool of arrays (any element type, 0 to
// 3 dimensions, possibly claimed as another type), variants of any vt whose
// references point at pool objects of the kind their type names (so that
// chains and loops form), and strings. VxVariant reads, writes and sizes
// them at indexes from the bytes; AddressSanitizer watches that nothing is
// touched outside the pool, and the results stay within their ranges.
#include <cstdint>
#include <cstring>
#include <vector>

#include "platform/OleAutomation.h"
#include "settings/VxVariant.h"
#include "utl/Exception.h"

namespace {

void Check(bool condition) {
  if (!condition) __builtin_trap();
}

class Bytes {
public:
  Bytes(uint8_t const * data, size_t size) : mData(data), mSize(size) {}
  uint8_t Byte() { return mPosition < mSize ? mData[mPosition++] : 0; }
  uint16_t Word() { return static_cast<uint16_t>(Byte() | (Byte() << 8)); }
  int Index() { return static_cast<int8_t>(Byte()); }

private:
  uint8_t const * mData;
  size_t mSize;
  size_t mPosition = 0;
};

constexpr int poolArrays = 4;
constexpr int poolVariants = 8;
constexpr int poolStrings = 4;

VARTYPE const elementTypes[] = {VT_I1,   VT_UI1,  VT_I2,      VT_UI2,     VT_I4,   VT_UI4,
                                VT_INT,  VT_UINT, VT_I8,      VT_UI8,     VT_R4,   VT_R8,
                                VT_BOOL, VT_BSTR, VT_VARIANT, VT_DECIMAL, VT_DATE, VT_CY};

struct Pool {
  SAFEARRAY * arrays[poolArrays] = {};
  VARIANT variants[poolVariants] = {};
  BSTR strings[poolStrings] = {};
  alignas(16) unsigned char raw[2][32] = {};

  // Points a variant's value at a pool object of the kind its type names.
  void Aim(VARIANT & v, Bytes & bytes) {
    uint8_t const choice = bytes.Byte();
    auto const base = static_cast<VARTYPE>(v.vt & VT_TYPEMASK);
    bool const reference = (v.vt & VT_BYREF) != 0;
    bool const array = (v.vt & VT_ARRAY) != 0;
    bool const none = choice % 8 == 7;
    if (array) {
      SAFEARRAY *& slot = arrays[choice % poolArrays];
      if (reference)
        v.pparray = none ? nullptr : &slot;
      else
        v.parray = none ? nullptr : slot;
    } else if (reference && base == VT_VARIANT) {
      v.pvarVal = none ? nullptr : &variants[choice % poolVariants];
    } else if (base == VT_BSTR) {
      if (reference)
        v.pbstrVal = none ? nullptr : &strings[choice % poolStrings];
      else
        v.bstrVal = none ? nullptr : strings[choice % poolStrings];
    } else if (reference) {
      v.byref = none ? nullptr : raw[choice % 2];
    } else {
      for (int i = 0; i < 8; ++i) reinterpret_cast<unsigned char *>(&v.llVal)[i] = bytes.Byte();
    }
  }

  void Build(Bytes & bytes) {
    for (auto & text : strings) {
      wchar_t characters[4];
      uint8_t const length = bytes.Byte() % 5;
      for (uint8_t i = 0; i < length; ++i)
        characters[i] = static_cast<wchar_t>(bytes.Word() | (bytes.Byte() << 16));
      text = length == 0 ? nullptr : SysAllocStringLen(characters, length);
    }
    for (auto & block : raw)
      for (auto & byte : block) byte = bytes.Byte();
    for (auto & array : arrays) {
      VARTYPE const type = elementTypes[bytes.Byte() % std::size(elementTypes)];
      UINT const dimensions = bytes.Byte() % 4;
      SAFEARRAYBOUND bounds[3];
      for (auto & bound : bounds) bound = {bytes.Byte() % 6u, static_cast<LONG>(bytes.Index())};
      array = SafeArrayCreate(type, dimensions, bounds);
    }
    for (auto & v : variants) {
      v.vt = bytes.Word();
      Aim(v, bytes);
    }
    // The variant elements, once every pool object exists.
    for (auto * array : arrays) {
      VARTYPE type = VT_EMPTY;
      if (array == nullptr || FAILED(SafeArrayGetVartype(array, &type)) || array->pvData == nullptr)
        continue;
      size_t count = 1;
      for (USHORT d = 0; d < array->cDims; ++d) count *= array->rgsabound[d].cElements;
      if (type == VT_VARIANT) {
        for (size_t i = 0; i < count; ++i) {
          auto & v = static_cast<VARIANT *>(array->pvData)[i];
          v.vt = bytes.Word();
          Aim(v, bytes);
        }
      } else if (type == VT_BSTR) {
        for (size_t i = 0; i < count; ++i)
          static_cast<BSTR *>(array->pvData)[i] = strings[bytes.Byte() % poolStrings];
      } else {
        unsigned char * data = static_cast<unsigned char *>(array->pvData);
        for (size_t i = 0; i < count * array->cbElements; ++i) data[i] = bytes.Byte();
      }
    }
  }

  // Everything but the strings is shared: empty the arrays before they go.
  ~Pool() {
    for (auto * array : arrays) {
      VARTYPE type = VT_EMPTY;
      if (array != nullptr && array->pvData != nullptr &&
          SUCCEEDED(SafeArrayGetVartype(array, &type)) && (type == VT_VARIANT || type == VT_BSTR)) {
        size_t count = 1;
        for (USHORT d = 0; d < array->cDims; ++d) count *= array->rgsabound[d].cElements;
        std::memset(array->pvData, 0, count * array->cbElements);
      }
      SafeArrayDestroy(array);
    }
    for (auto text : strings) SysFreeString(text);
  }
};

void Exercise(VxVariant & variant, Bytes & bytes) {
  int const kind = variant.GetDataType();
  Check(kind >= VxVariant::integral && kind <= VxVariant::other);
  Check(variant.GetDimensions() >= 0 && variant.GetDimensions() <= 3);
  for (int d = -1; d < 5; ++d) Check(variant.Size(d) >= 0);
  for (int round = 0; round < 4; ++round) {
    int const a = bytes.Index();
    int const b = bytes.Index();
    variant.GetIntegralValue(a);
    variant.GetDoubleValue(a);
    variant.GetDoubleValue(a, b);
    variant.GetStringValue(a);
    variant.GetStringValue(a, b);
    switch (bytes.Byte() % 5) {
      case 0: variant.SetIntegralValue(a * b, a); break;
      case 1: variant.SetIntegralValue(a, a, b); break;
      case 2: variant.SetDoubleValue(a * 0.5, a); break;
      case 3: variant.SetDoubleValue(1e300 * b, a, b); break;
      default: {
        float const values[4] = {1.5F, -2.0F, 3.0F, 1e30F};
        try {
          variant.SetRow(a, values, bytes.Byte() % 5);
        } catch (Exception const &) {}
      }
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  Bytes bytes(data, size);
  {
    Pool pool;
    pool.Build(bytes);
    VxVariant wrapped(&pool.variants[bytes.Byte() % poolVariants]);
    Exercise(wrapped, bytes);
  }
  // A variant of its own, of any type and shape.
  VxVariant made(bytes.Word(), bytes.Byte() % 9, bytes.Byte() % 9, (bytes.Byte() & 1) != 0);
  Exercise(made, bytes);
  VariantClear(made.GetVariant());
  return 0;
}
