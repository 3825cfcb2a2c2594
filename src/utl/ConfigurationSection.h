#pragma once
// A position in a tree of named sections that hold named text keys: the
// common face of the settings stores (the XML file, the registry store).
// A section object always stands on one section; names are UTF-8.
//
// The virtual operations below are a fixed order of slots: derived classes in
// other libraries rely on it, so nothing is inserted, removed or reordered.
// The base implements every typed operation on top of the two ReadKey and the
// two WriteKey operations, so a store that holds only text keys needs nothing
// more. A store with native typed values (the registry's DWORD) overrides
// ReadBool/ReadInt/WriteBool/WriteInt; everything else keeps working on top.
//
// Text forms written and read by the base (locale-independent, so a file
// moves between machines and languages unchanged):
//
//   int      decimal, optional '-' ("-42"). Reading accepts a '+' sign and
//            blanks around the number, refuses anything else and values
//            outside int.
//   bool     written "1" / "0". Reading takes any int (non-zero is true, as
//            the registry's DWORD does) or "true" / "false" in any case.
//   double   the shortest text that reads back to the same double ("0.1",
//            "1e+300", "-inf", "nan"). WriteFloat takes a double and writes
//            it this way, so ReadDouble gets the exact value back.
//   float    read as a number in double syntax that must fit a float (finite
//            doubles beyond FLT_MAX are refused); float vectors are written
//            with the shortest text that reads back to the same float.
//   vectors  (bool, int, float, double) the items in the forms above, joined
//            by ';' with nothing else ("1;0;1", "0.5;-2"). The empty text is
//            the empty vector. A read is all or nothing: one bad item fails
//            the whole read.
//   strings  ReadStringVector/WriteStringVector join the items with the
//            caller's separator (";" in this library), without escaping. An
//            item that holds the separator cannot be stored: the write is
//            refused (false) and nothing is written. The empty text reads as
//            no items, so a vector holding one empty string reads back empty.
//
// Every Read returns false and leaves its output untouched when the key is
// absent or its text does not convert: callers fill in their default first.
// The count-returning reads return 0 in that case.
//
// A derived class that overrides WriteKey hides the non-virtual
// WriteKey(char const *, std::string const &); it adds
// `using ConfigurationSection::WriteKey;` to keep it visible.

#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <string>
#include <vector>

class ConfigurationSection {
public:
  ConfigurationSection() = default;

  // Releases the position; unsaved changes stay the business of Flush.
  virtual ~ConfigurationSection();

  // A new section object on the same position; the caller owns it.
  virtual ConfigurationSection * Copy() const = 0;
  // Moves to the sibling `name`, replacing the last element of the path.
  virtual void ChangeSection(char const * name) = 0;
  // Move into the (indexed) child; false and no move if it is absent.
  virtual bool ChangeSubSection(char const * name, int index) = 0;
  virtual bool ChangeSubSection(char const * name) = 0;

  // Copy, then the change on the copy; the caller owns the result. The
  // sub-section forms return null (and own nothing) when the child is absent.
  virtual ConfigurationSection * CopyAndChangeSection(char const * name) const;
  virtual ConfigurationSection * CopyAndChangeSubSection(char const * name, int index) const;
  virtual ConfigurationSection * CopyAndChangeSubSection(char const * name) const;

  // A new section object on the (indexed) child, created if absent; the
  // caller owns it.
  virtual ConfigurationSection * CreateSubSection(char const * name, int index) const = 0;
  virtual ConfigurationSection * CreateSubSection(char const * name) const = 0;

  // All children of that name; the caller owns the vector. The base finds
  // the indexed children 1, 2, 3... up to the first gap, through
  // CopyAndChangeSubSection; a store that knows better overrides both.
  virtual std::vector<boost::shared_ptr<ConfigurationSection>> * GetAllSubSections(
      char const * name) const;
  virtual int NumSubSections(char const * name) const;

  virtual bool SupportsSubSections() const = 0;
  // Removes one key.
  virtual bool DeleteKey(char const * name) = 0;
  // Removes this section with everything under it.
  virtual bool DeleteSection() = 0;
  // Writes the tree to its store.
  virtual bool Flush() const = 0;
  // The store's own test; the registry's sense differs from the XML file's.
  virtual bool IsEmpty() const = 0;
  virtual bool HasSection(char const * name, int index) const = 0;
  virtual bool HasKey(char const * name) const = 0;

  virtual bool ReadBool(char const * name, bool & value) const;
  virtual bool ReadBoolVector(char const * name, std::vector<bool> & value) const;
  virtual bool ReadFloat(char const * name, float & value) const;
  virtual bool ReadFloatVector(char const * name, std::vector<float> & value) const;
  // Reads up to `count` items into `values`; returns how many were read.
  virtual int ReadFloatVector(char const * name, float * values, int count) const;
  virtual bool ReadDouble(char const * name, double & value) const;
  // Reads up to `count` items into `values`; returns how many were read.
  virtual int ReadDoubleVector(char const * name, double * values, int count) const;
  virtual bool ReadInt(char const * name, int & value) const;
  virtual bool ReadIntVector(char const * name, std::vector<int> & value) const;
  virtual bool ReadKey(char const * name, std::wstring & value) const = 0;
  virtual bool ReadKey(char const * name, std::string & value) const = 0;
  // One key holding the items joined by `separator`; replaces `value` by
  // them and returns their count.
  virtual int ReadStringVector(char const * name, std::vector<std::string> & value,
                               char separator) const;

  virtual bool WriteBool(char const * name, bool value);
  virtual void WriteBoolVector(char const * name, std::vector<bool> const & value);
  virtual bool WriteFloat(char const * name, double value);
  virtual void WriteDoubleVector(char const * name, double const * values, size_t count);
  virtual void WriteFloatVector(char const * name, std::vector<float> const & value);
  virtual void WriteFloatVector(char const * name, float const * values, size_t count);
  virtual bool WriteInt(char const * name, int value);
  virtual void WriteIntVector(char const * name, std::vector<int> const & value);
  // Writes what ReadStringVector reads; false if an item holds the separator.
  virtual bool WriteStringVector(char const * name, std::vector<std::string> const & value,
                                 char separator);
  virtual bool WriteKey(char const * name, wchar_t const * value) = 0;
  virtual bool WriteKey(char const * name, char const * value) = 0;

  // Copies this section's keys and sections into `target`.
  virtual bool WriteToSection(ConfigurationSection * target) const = 0;

  bool WriteKey(char const * name, std::string const & value) {
    return WriteKey(name, value.c_str());
  }

protected:
  // Sections are handed round by pointer and duplicated with Copy; derived
  // classes may still copy their base part.
  ConfigurationSection(ConfigurationSection const &) = default;
  ConfigurationSection & operator=(ConfigurationSection const &) = default;
};

namespace vx3 {

// The text forms above, for stores and tools that convert outside a section.
// The parsers take the whole text and return false on anything else.
std::string FormatInt(int value);
std::string FormatDouble(double value);
std::string FormatFloat(float value);
bool ParseInt(std::string const & text, int & value);
bool ParseBool(std::string const & text, bool & value);
bool ParseDouble(std::string const & text, double & value);
bool ParseFloat(std::string const & text, float & value);

}  // namespace vx3
