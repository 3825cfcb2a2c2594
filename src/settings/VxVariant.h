#pragma once
// Typed, index-based access to a VARIANT and the SAFEARRAY it holds, so
// that numbers and strings travel to and from automation clients, one by
// one or in one- and two-dimensional arrays, without the callers dealing
// with VT_ codes, by-reference forms and nested variants.
//
// A wrong type gives the neutral result (0, NoNumber, an empty string,
// nothing written); only SetRow throws. Beyond that, indexes outside the
// array, null arrays, arrays of 0 or 3 and more dimensions, elements of
// another size than their type and chains of references deeper than
// MaxReferenceDepth give the neutral result too: nothing is ever read or
// written outside the array.

#include "platform/OleAutomation.h"

#include <wx/string.h>

#include <memory>

class VxVariant {
public:
  enum DataType { integral = 1, real = 2, string = 3, other = 4 };

  // What a double read gives when the variant holds no number.
  static constexpr double NoNumber = -99.0;
  // References followed (VT_BYREF | VT_VARIANT) before a read gives up.
  static constexpr int MaxReferenceDepth = 64;

  // Wraps v without owning it; remembers its array (through the reference
  // when v holds it by reference).
  explicit VxVariant(VARIANT * v);
  // A new variant with a rows x columns array of type, or, with asVariants,
  // of variants whose vt is type (the variant then is VT_ARRAY |
  // VT_VARIANT). The array belongs to whoever receives the variant.
  VxVariant(unsigned int type, int rows, int columns, bool asVariants);
  // Frees the variant made here, never its array.
  ~VxVariant();
  VxVariant(VxVariant const &) = delete;
  VxVariant & operator=(VxVariant const &) = delete;

  // A new array in the variant; what it held before is not freed. False
  // without a variant.
  bool SetDataType(unsigned int type, int rows, int columns);
  bool SetDataType(unsigned int type, int size);

  // The kind of value, an array judged by its (first) element.
  DataType GetDataType() const;
  // Of the array remembered by the wrapping constructor: its dimensions,
  // and Size(0) its element count, Size(1) its rows, Size(2) its columns.
  int GetDimensions() const;
  int Size(int dimension) const;

  // Reads; for a variant that holds no array the index is ignored. In
  // two-dimensional calls the element lies at columns * row + column.
  int GetIntegralValue(int index) const;
  double GetDoubleValue(int index) const;
  double GetDoubleValue(int row, int column) const;
  wxString GetStringValue(int index) const;
  wxString GetStringValue(int row, int column) const;

  // Writes into the array, by the element's type.
  void SetIntegralValue(int value, int index);
  void SetIntegralValue(int value, int row, int column);
  void SetDoubleValue(double value, int index);
  void SetDoubleValue(double value, int row, int column);
  // Writes count values down the column `row` (element row + k * columns):
  // arrays of VT_R4, VT_R8 and VT_VARIANT; any other element type throws.
  void SetRow(int row, float const * values, int count);

  VARIANT * GetVariant() const { return mVariant; }

private:
  VARIANT * mVariant;
  std::unique_ptr<VARIANT> mOwned;
  SAFEARRAY * mArray = nullptr;
};
