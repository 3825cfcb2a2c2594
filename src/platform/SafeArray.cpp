// SAFEARRAY: a descriptor with its bounds stored last dimension first, and
// one block of elements with the first dimension's index running fastest.
// Arrays made here keep their element type in the 4 bytes before the
// descriptor (FADF_HAVEVARTYPE), where Windows keeps it.

#include "platform/OleAutomation.h"

#include <cstdlib>
#include <cstring>
#include <limits>
#include <vector>

namespace {

// Room before the descriptor; the VARTYPE lies in its last 4 bytes.
constexpr std::size_t prefixSize = 16;

ULONG ElementSize(VARTYPE vt) {
  switch (vt) {
    case VT_I1:
    case VT_UI1: return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL: return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR: return 4;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
    case VT_BSTR:
    case VT_UNKNOWN:
    case VT_DISPATCH: return 8;
    case VT_DECIMAL: return sizeof(DECIMAL);
    case VT_VARIANT: return sizeof(VARIANT);
    default: return 0;
  }
}

USHORT FeaturesOf(VARTYPE vt) {
  switch (vt) {
    case VT_BSTR: return FADF_HAVEVARTYPE | FADF_BSTR;
    case VT_VARIANT: return FADF_HAVEVARTYPE | FADF_VARIANT;
    case VT_UNKNOWN: return FADF_HAVEVARTYPE | FADF_UNKNOWN;
    case VT_DISPATCH: return FADF_HAVEVARTYPE | FADF_DISPATCH;
    default: return FADF_HAVEVARTYPE;
  }
}

char * BlockOf(SAFEARRAY const * array) {
  return const_cast<char *>(reinterpret_cast<char const *>(array)) - prefixSize;
}

VARTYPE * StoredType(SAFEARRAY const * array) {
  return reinterpret_cast<VARTYPE *>(BlockOf(array) + prefixSize - sizeof(uint32_t));
}

// The element count, or false when it does not fit in memory.
bool ElementCount(SAFEARRAY const * array, std::size_t & count) {
  count = 1;
  for (USHORT i = 0; i < array->cDims; ++i) {
    std::size_t const n = array->rgsabound[i].cElements;
    if (n != 0 && count > std::numeric_limits<std::size_t>::max() / n) return false;
    count *= n;
  }
  return true;
}

// Frees what the elements own (strings, nested arrays), leaving zeros.
void ClearElements(SAFEARRAY * array, VARTYPE vt, std::size_t count) {
  if (array->pvData == nullptr) return;
  if (vt == VT_BSTR) {
    auto * strings = static_cast<BSTR *>(array->pvData);
    for (std::size_t i = 0; i < count; ++i) {
      SysFreeString(strings[i]);
      strings[i] = nullptr;
    }
  } else if (vt == VT_VARIANT) {
    auto * variants = static_cast<VARIANT *>(array->pvData);
    for (std::size_t i = 0; i < count; ++i) VariantClear(&variants[i]);
  }
}

// The element at the indexes, or null when one lies outside its bounds.
void * ElementAt(SAFEARRAY const * array, LONG const * indexes) {
  if (array->pvData == nullptr || indexes == nullptr) return nullptr;
  std::size_t offset = 0;
  std::size_t stride = 1;
  // indexes[0] belongs to the first dimension, stored last.
  for (USHORT d = 0; d < array->cDims; ++d) {
    SAFEARRAYBOUND const & bound = array->rgsabound[array->cDims - 1 - d];
    int64_t const position = int64_t{indexes[d]} - bound.lLbound;
    if (position < 0 || position >= int64_t{bound.cElements}) return nullptr;
    offset += static_cast<std::size_t>(position) * stride;
    stride *= bound.cElements;
  }
  return static_cast<char *>(array->pvData) + offset * array->cbElements;
}

}  // namespace

SAFEARRAY * SafeArrayCreate(VARTYPE vt, UINT dimensions, SAFEARRAYBOUND const * bounds) {
  ULONG const elementSize = ElementSize(vt);
  if (elementSize == 0 || dimensions == 0 || dimensions > 0xFFFF || bounds == nullptr)
    return nullptr;
  std::size_t const descriptorSize = sizeof(SAFEARRAY) + (dimensions - 1) * sizeof(SAFEARRAYBOUND);
  // NOLINTNEXTLINE(cppcoreguidelines-no-malloc): freed by SafeArrayDestroy, a C interface
  auto * block = static_cast<char *>(std::calloc(1, prefixSize + descriptorSize));
  if (block == nullptr) return nullptr;
  auto * array = reinterpret_cast<SAFEARRAY *>(block + prefixSize);
  array->cDims = static_cast<USHORT>(dimensions);
  array->fFeatures = FeaturesOf(vt);
  array->cbElements = elementSize;
  *StoredType(array) = vt;
  for (UINT i = 0; i < dimensions; ++i) array->rgsabound[dimensions - 1 - i] = bounds[i];
  std::size_t count = 0;
  if (!ElementCount(array, count) ||
      count > std::numeric_limits<std::size_t>::max() / elementSize) {
    std::free(block);  // NOLINT(cppcoreguidelines-no-malloc): allocated above
    return nullptr;
  }
  if (count != 0) {
    // NOLINTNEXTLINE(cppcoreguidelines-no-malloc): freed by SafeArrayDestroy
    array->pvData = std::calloc(count, elementSize);
    if (array->pvData == nullptr) {
      std::free(block);  // NOLINT(cppcoreguidelines-no-malloc): allocated above
      return nullptr;
    }
  }
  return array;
}

SAFEARRAY * SafeArrayCreateVector(VARTYPE vt, LONG lowerBound, ULONG elements) {
  SAFEARRAYBOUND const bound{elements, lowerBound};
  return SafeArrayCreate(vt, 1, &bound);
}

HRESULT SafeArrayDestroy(SAFEARRAY * array) {
  if (array == nullptr) return S_OK;
  if (array->cLocks != 0) return DISP_E_ARRAYISLOCKED;
  VARTYPE vt = VT_EMPTY;
  std::size_t count = 0;
  if (SUCCEEDED(SafeArrayGetVartype(array, &vt)) && ElementCount(array, count))
    ClearElements(array, vt, count);
  // Storage of the caller's (on the stack, inside a structure) is not ours.
  if ((array->fFeatures & (FADF_AUTO | FADF_STATIC | FADF_EMBEDDED)) != 0) return S_OK;
  std::free(array->pvData);   // NOLINT(cppcoreguidelines-no-malloc): from SafeArrayCreate
  std::free(BlockOf(array));  // NOLINT(cppcoreguidelines-no-malloc): from SafeArrayCreate
  return S_OK;
}

HRESULT SafeArrayCopy(SAFEARRAY const * array, SAFEARRAY ** copy) {
  if (copy == nullptr) return E_INVALIDARG;
  *copy = nullptr;
  if (array == nullptr) return S_OK;
  VARTYPE vt = VT_EMPTY;
  if (FAILED(SafeArrayGetVartype(array, &vt)) || ElementSize(vt) != array->cbElements)
    return E_INVALIDARG;
  std::vector<SAFEARRAYBOUND> bounds(array->cDims);
  for (USHORT d = 0; d < array->cDims; ++d) bounds[d] = array->rgsabound[array->cDims - 1 - d];
  SAFEARRAY * result = SafeArrayCreate(vt, array->cDims, bounds.data());
  if (result == nullptr) return E_OUTOFMEMORY;
  std::size_t count = 0;
  ElementCount(array, count);
  if (array->pvData == nullptr || count == 0) {
    *copy = result;
    return S_OK;
  }
  if (vt == VT_BSTR) {
    auto const * from = static_cast<BSTR const *>(array->pvData);
    auto * to = static_cast<BSTR *>(result->pvData);
    for (std::size_t i = 0; i < count; ++i) {
      if (from[i] == nullptr) continue;
      to[i] = SysAllocStringLen(from[i], SysStringLen(from[i]));
      if (to[i] == nullptr) {
        SafeArrayDestroy(result);
        return E_OUTOFMEMORY;
      }
    }
  } else if (vt == VT_VARIANT) {
    auto const * from = static_cast<VARIANT const *>(array->pvData);
    auto * to = static_cast<VARIANT *>(result->pvData);
    for (std::size_t i = 0; i < count; ++i) {
      HRESULT const hr = VariantCopy(&to[i], &from[i]);
      if (FAILED(hr)) {
        SafeArrayDestroy(result);
        return hr;
      }
    }
  } else {
    std::memcpy(result->pvData, array->pvData, count * array->cbElements);
  }
  *copy = result;
  return S_OK;
}

UINT SafeArrayGetDim(SAFEARRAY const * array) { return array == nullptr ? 0 : array->cDims; }

UINT SafeArrayGetElemsize(SAFEARRAY const * array) {
  return array == nullptr ? 0 : array->cbElements;
}

HRESULT SafeArrayGetVartype(SAFEARRAY const * array, VARTYPE * vt) {
  if (array == nullptr || vt == nullptr) return E_INVALIDARG;
  if ((array->fFeatures & FADF_HAVEVARTYPE) != 0)
    *vt = *StoredType(array);
  else if ((array->fFeatures & FADF_BSTR) != 0)
    *vt = VT_BSTR;
  else if ((array->fFeatures & FADF_VARIANT) != 0)
    *vt = VT_VARIANT;
  else if ((array->fFeatures & FADF_UNKNOWN) != 0)
    *vt = VT_UNKNOWN;
  else if ((array->fFeatures & FADF_DISPATCH) != 0)
    *vt = VT_DISPATCH;
  else
    return E_INVALIDARG;
  return S_OK;
}

HRESULT SafeArrayGetLBound(SAFEARRAY const * array, UINT dimension, LONG * bound) {
  if (array == nullptr || bound == nullptr) return E_INVALIDARG;
  if (dimension < 1 || dimension > array->cDims) return DISP_E_BADINDEX;
  *bound = array->rgsabound[array->cDims - dimension].lLbound;
  return S_OK;
}

HRESULT SafeArrayGetUBound(SAFEARRAY const * array, UINT dimension, LONG * bound) {
  if (array == nullptr || bound == nullptr) return E_INVALIDARG;
  if (dimension < 1 || dimension > array->cDims) return DISP_E_BADINDEX;
  SAFEARRAYBOUND const & b = array->rgsabound[array->cDims - dimension];
  *bound = static_cast<LONG>(int64_t{b.lLbound} + b.cElements - 1);
  return S_OK;
}

HRESULT SafeArrayLock(SAFEARRAY * array) {
  if (array == nullptr) return E_INVALIDARG;
  if (array->cLocks == std::numeric_limits<ULONG>::max()) return E_FAIL;
  ++array->cLocks;
  return S_OK;
}

HRESULT SafeArrayUnlock(SAFEARRAY * array) {
  if (array == nullptr) return E_INVALIDARG;
  if (array->cLocks == 0) return E_FAIL;
  --array->cLocks;
  return S_OK;
}

HRESULT SafeArrayAccessData(SAFEARRAY * array, void ** data) {
  if (array == nullptr || data == nullptr) return E_INVALIDARG;
  HRESULT const hr = SafeArrayLock(array);
  if (SUCCEEDED(hr)) *data = array->pvData;
  return hr;
}

HRESULT SafeArrayUnaccessData(SAFEARRAY * array) { return SafeArrayUnlock(array); }

HRESULT SafeArrayGetElement(SAFEARRAY * array, LONG const * indexes, void * value) {
  if (array == nullptr || indexes == nullptr || value == nullptr) return E_INVALIDARG;
  void * element = ElementAt(array, indexes);
  if (element == nullptr) return DISP_E_BADINDEX;
  if ((array->fFeatures & FADF_BSTR) != 0) {
    BSTR const text = *static_cast<BSTR *>(element);
    BSTR copy = text == nullptr ? nullptr : SysAllocStringLen(text, SysStringLen(text));
    if (text != nullptr && copy == nullptr) return E_OUTOFMEMORY;
    *static_cast<BSTR *>(value) = copy;
    return S_OK;
  }
  if ((array->fFeatures & FADF_VARIANT) != 0) {
    auto * target = static_cast<VARIANT *>(value);
    VariantInit(target);
    return VariantCopy(target, static_cast<VARIANT *>(element));
  }
  std::memcpy(value, element, array->cbElements);
  return S_OK;
}

HRESULT SafeArrayPutElement(SAFEARRAY * array, LONG const * indexes, void * value) {
  if (array == nullptr || indexes == nullptr) return E_INVALIDARG;
  void * element = ElementAt(array, indexes);
  if (element == nullptr) return DISP_E_BADINDEX;
  if ((array->fFeatures & FADF_BSTR) != 0) {
    auto const text = static_cast<BSTR>(value);
    BSTR copy = text == nullptr ? nullptr : SysAllocStringLen(text, SysStringLen(text));
    if (text != nullptr && copy == nullptr) return E_OUTOFMEMORY;
    SysFreeString(*static_cast<BSTR *>(element));
    *static_cast<BSTR *>(element) = copy;
    return S_OK;
  }
  if (value == nullptr) return E_INVALIDARG;
  if ((array->fFeatures & FADF_VARIANT) != 0)
    return VariantCopy(static_cast<VARIANT *>(element), static_cast<VARIANT *>(value));
  std::memcpy(element, value, array->cbElements);
  return S_OK;
}
