// VarR8FromDec: the 96-bit integer over ten to the scale. The integer is
// exact in 128 bits; the division runs in long double (64-bit mantissa on
// x86-64) so that the one rounding that matters is the final one to double.

#include "platform/OleAutomation.h"

#include <cmath>

HRESULT VarR8FromDec(DECIMAL const * value, double * result) {
  if (value == nullptr || result == nullptr) return E_POINTER;
  if (value->scale > 28 || (value->sign != 0 && value->sign != DECIMAL_NEG)) return E_INVALIDARG;
  unsigned __int128 const magnitude =
      (static_cast<unsigned __int128>(value->Hi32) << 64U) | value->Lo64;
  long double const quotient =
      static_cast<long double>(magnitude) / std::pow(10.0L, static_cast<int>(value->scale));
  double const number = static_cast<double>(quotient);
  *result = value->sign == DECIMAL_NEG ? -number : number;
  return S_OK;
}
