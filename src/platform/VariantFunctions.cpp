// VariantInit, VariantClear and VariantCopy: a variant owns its string and
// its array unless it holds them by reference; interface pointers are
// opaque here and are neither released nor added to.

#include "platform/OleAutomation.h"

#include <cstring>

namespace {

// The types a variant may hold by value (alone or as an array's elements).
bool IsValueType(VARTYPE base) {
  switch (base) {
    case VT_EMPTY:
    case VT_NULL:
    case VT_I2:
    case VT_I4:
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
    case VT_BSTR:
    case VT_DISPATCH:
    case VT_ERROR:
    case VT_BOOL:
    case VT_UNKNOWN:
    case VT_DECIMAL:
    case VT_I1:
    case VT_UI1:
    case VT_UI2:
    case VT_UI4:
    case VT_I8:
    case VT_UI8:
    case VT_INT:
    case VT_UINT:
    case VT_RECORD: return true;
    default: return false;
  }
}

bool IsValidType(VARTYPE vt) {
  if ((vt & (VT_VECTOR | VT_RESERVED)) != 0) return false;
  auto const base = static_cast<VARTYPE>(vt & VT_TYPEMASK);
  if ((vt & (VT_ARRAY | VT_BYREF)) != 0)
    return base == VT_VARIANT || (IsValueType(base) && base != VT_EMPTY && base != VT_NULL);
  return IsValueType(base);
}

}  // namespace

void VariantInit(VARIANT * v) {
  if (v != nullptr) v->vt = VT_EMPTY;
}

HRESULT VariantClear(VARIANT * v) {
  if (v == nullptr) return E_INVALIDARG;
  if (!IsValidType(v->vt)) return DISP_E_BADVARTYPE;
  if ((v->vt & VT_BYREF) == 0) {
    if ((v->vt & VT_ARRAY) != 0) {
      HRESULT const hr = SafeArrayDestroy(v->parray);
      if (FAILED(hr)) return hr;
    } else if (v->vt == VT_BSTR) {
      SysFreeString(v->bstrVal);
    }
  }
  v->vt = VT_EMPTY;
  return S_OK;
}

HRESULT VariantCopy(VARIANT * destination, VARIANT const * source) {
  if (destination == nullptr || source == nullptr) return E_INVALIDARG;
  if (destination == source) return S_OK;
  if (!IsValidType(source->vt)) return DISP_E_BADVARTYPE;
  HRESULT hr = VariantClear(destination);
  if (FAILED(hr)) return hr;
  if ((source->vt & VT_BYREF) == 0 && (source->vt & VT_ARRAY) != 0) {
    SAFEARRAY * copy = nullptr;
    hr = SafeArrayCopy(source->parray, &copy);
    if (FAILED(hr)) return hr;
    std::memcpy(static_cast<void *>(destination), source, sizeof(VARIANT));
    destination->parray = copy;
    return S_OK;
  }
  if (source->vt == VT_BSTR && source->bstrVal != nullptr) {
    BSTR const copy = SysAllocStringLen(source->bstrVal, SysStringLen(source->bstrVal));
    if (copy == nullptr) return E_OUTOFMEMORY;
    std::memcpy(static_cast<void *>(destination), source, sizeof(VARIANT));
    destination->bstrVal = copy;
    return S_OK;
  }
  std::memcpy(static_cast<void *>(destination), source, sizeof(VARIANT));
  return S_OK;
}
