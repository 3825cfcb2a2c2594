#include "utl/ConfigurationSection.h"

#include <algorithm>
#include <charconv>
#include <memory>

namespace vx3 {

namespace {

constexpr char kListSeparator = ';';

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

// The text without blanks around it, and without one leading '+', which
// std::from_chars does not take ("+-1" stays refused: the '-' is then no
// longer first).
std::string_view NumberText(std::string const & text) {
  std::string_view view(text);
  while (!view.empty() && IsBlank(view.front())) view.remove_prefix(1);
  while (!view.empty() && IsBlank(view.back())) view.remove_suffix(1);
  if (!view.empty() && view.front() == '+') {
    view.remove_prefix(1);
    if (!view.empty() && view.front() == '-') return std::string_view();
  }
  return view;
}

template <typename T>
bool ParseWhole(std::string const & text, T & value) {
  std::string_view const view = NumberText(text);
  if (view.empty()) return false;
  T parsed{};
  auto const [end, error] = std::from_chars(view.data(), view.data() + view.size(), parsed);
  if (error != std::errc() || end != view.data() + view.size()) return false;
  value = parsed;
  return true;
}

template <typename T>
std::string FormatShortest(T value) {
  char buffer[64];
  auto const result = std::to_chars(buffer, buffer + sizeof buffer, value);
  return std::string(buffer, result.ptr);
}

bool EqualsNoCase(std::string_view text, std::string_view word) {
  return text.size() == word.size() &&
         std::equal(text.begin(), text.end(), word.begin(),
                    [](char a, char b) { return (a >= 'A' && a <= 'Z' ? a - 'A' + 'a' : a) == b; });
}

}  // namespace

std::string FormatInt(int value) { return FormatShortest(value); }
std::string FormatDouble(double value) { return FormatShortest(value); }
std::string FormatFloat(float value) { return FormatShortest(value); }

bool ParseInt(std::string const & text, int & value) { return ParseWhole(text, value); }
bool ParseDouble(std::string const & text, double & value) { return ParseWhole(text, value); }
bool ParseFloat(std::string const & text, float & value) { return ParseWhole(text, value); }

bool ParseBool(std::string const & text, bool & value) {
  int number = 0;
  if (ParseInt(text, number)) {
    value = number != 0;
    return true;
  }
  std::string_view const word = NumberText(text);
  if (EqualsNoCase(word, "true")) {
    value = true;
    return true;
  }
  if (EqualsNoCase(word, "false")) {
    value = false;
    return true;
  }
  return false;
}

}  // namespace vx3

namespace {

// Splits at every separator; the empty text is no items.
std::vector<std::string> Split(std::string const & text, char separator) {
  std::vector<std::string> items;
  if (text.empty()) return items;
  std::string::size_type start = 0;
  for (;;) {
    auto const end = text.find(separator, start);
    items.push_back(text.substr(start, end - start));
    if (end == std::string::npos) break;
    start = end + 1;
  }
  return items;
}

template <typename T, typename Parse>
bool ParseList(std::string const & text, Parse parse, std::vector<T> & values) {
  std::vector<T> parsed;
  for (std::string const & item : Split(text, vx3::kListSeparator)) {
    T one{};
    if (!parse(item, one)) return false;
    parsed.push_back(one);
  }
  values.swap(parsed);
  return true;
}

template <typename Iterator, typename Format>
std::string JoinList(Iterator first, Iterator last, Format format) {
  std::string text;
  for (Iterator it = first; it != last; ++it) {
    if (it != first) text += vx3::kListSeparator;
    text += format(*it);
  }
  return text;
}

template <typename T, typename Parse>
bool ReadList(ConfigurationSection const & section, char const * name, Parse parse,
              std::vector<T> & values) {
  std::string text;
  return section.ReadKey(name, text) && ParseList(text, parse, values);
}

template <typename T, typename Parse>
int ReadListInto(ConfigurationSection const & section, char const * name, Parse parse, T * values,
                 int count) {
  std::vector<T> parsed;
  if (values == nullptr || count <= 0 || !ReadList(section, name, parse, parsed)) return 0;
  int const read = static_cast<int>(std::min(parsed.size(), static_cast<size_t>(count)));
  std::copy_n(parsed.begin(), read, values);
  return read;
}

}  // namespace

ConfigurationSection::~ConfigurationSection() = default;

ConfigurationSection * ConfigurationSection::CopyAndChangeSection(char const * name) const {
  ConfigurationSection * copy = Copy();
  copy->ChangeSection(name);
  return copy;
}

ConfigurationSection * ConfigurationSection::CopyAndChangeSubSection(char const * name,
                                                                     int index) const {
  std::unique_ptr<ConfigurationSection> copy(Copy());
  return copy->ChangeSubSection(name, index) ? copy.release() : nullptr;
}

ConfigurationSection * ConfigurationSection::CopyAndChangeSubSection(char const * name) const {
  std::unique_ptr<ConfigurationSection> copy(Copy());
  return copy->ChangeSubSection(name) ? copy.release() : nullptr;
}

std::vector<boost::shared_ptr<ConfigurationSection>> * ConfigurationSection::GetAllSubSections(
    char const * name) const {
  auto sections = std::make_unique<std::vector<boost::shared_ptr<ConfigurationSection>>>();
  for (int index = 1;; ++index) {
    ConfigurationSection * child = CopyAndChangeSubSection(name, index);
    if (child == nullptr) break;
    sections->emplace_back(child);
  }
  return sections.release();
}

int ConfigurationSection::NumSubSections(char const * name) const {
  int count = 0;
  while (std::unique_ptr<ConfigurationSection>(CopyAndChangeSubSection(name, count + 1))) ++count;
  return count;
}

bool ConfigurationSection::ReadBool(char const * name, bool & value) const {
  std::string text;
  return ReadKey(name, text) && vx3::ParseBool(text, value);
}

bool ConfigurationSection::ReadBoolVector(char const * name, std::vector<bool> & value) const {
  // std::vector<bool> has no element references; parse into char first.
  std::vector<char> parsed;
  auto const parse = [](std::string const & text, char & one) {
    bool flag = false;
    if (!vx3::ParseBool(text, flag)) return false;
    one = flag;
    return true;
  };
  if (!ReadList(*this, name, parse, parsed)) return false;
  value.assign(parsed.begin(), parsed.end());
  return true;
}

bool ConfigurationSection::ReadFloat(char const * name, float & value) const {
  std::string text;
  return ReadKey(name, text) && vx3::ParseFloat(text, value);
}

bool ConfigurationSection::ReadFloatVector(char const * name, std::vector<float> & value) const {
  return ReadList(*this, name, vx3::ParseFloat, value);
}

int ConfigurationSection::ReadFloatVector(char const * name, float * values, int count) const {
  return ReadListInto(*this, name, vx3::ParseFloat, values, count);
}

bool ConfigurationSection::ReadDouble(char const * name, double & value) const {
  std::string text;
  return ReadKey(name, text) && vx3::ParseDouble(text, value);
}

int ConfigurationSection::ReadDoubleVector(char const * name, double * values, int count) const {
  return ReadListInto(*this, name, vx3::ParseDouble, values, count);
}

bool ConfigurationSection::ReadInt(char const * name, int & value) const {
  std::string text;
  return ReadKey(name, text) && vx3::ParseInt(text, value);
}

bool ConfigurationSection::ReadIntVector(char const * name, std::vector<int> & value) const {
  return ReadList(*this, name, vx3::ParseInt, value);
}

int ConfigurationSection::ReadStringVector(char const * name, std::vector<std::string> & value,
                                           char separator) const {
  std::string text;
  if (!ReadKey(name, text)) return 0;
  value = Split(text, separator);
  return static_cast<int>(value.size());
}

bool ConfigurationSection::WriteBool(char const * name, bool value) {
  return WriteKey(name, value ? "1" : "0");
}

void ConfigurationSection::WriteBoolVector(char const * name, std::vector<bool> const & value) {
  WriteKey(name, JoinList(value.begin(), value.end(), [](bool flag) { return flag ? "1" : "0"; }));
}

bool ConfigurationSection::WriteFloat(char const * name, double value) {
  return WriteKey(name, vx3::FormatDouble(value));
}

void ConfigurationSection::WriteDoubleVector(char const * name, double const * values,
                                             size_t count) {
  if (values == nullptr) count = 0;
  WriteKey(name, JoinList(values, values + count, vx3::FormatDouble));
}

void ConfigurationSection::WriteFloatVector(char const * name, std::vector<float> const & value) {
  WriteKey(name, JoinList(value.begin(), value.end(), vx3::FormatFloat));
}

void ConfigurationSection::WriteFloatVector(char const * name, float const * values, size_t count) {
  if (values == nullptr) count = 0;
  WriteKey(name, JoinList(values, values + count, vx3::FormatFloat));
}

bool ConfigurationSection::WriteInt(char const * name, int value) {
  return WriteKey(name, vx3::FormatInt(value));
}

void ConfigurationSection::WriteIntVector(char const * name, std::vector<int> const & value) {
  WriteKey(name, JoinList(value.begin(), value.end(), vx3::FormatInt));
}

bool ConfigurationSection::WriteStringVector(char const * name,
                                             std::vector<std::string> const & value,
                                             char separator) {
  // A NUL would end the text at WriteKey; a separator inside an item would
  // split it on reading. Both are refused rather than stored wrongly.
  for (std::string const & item : value)
    if (item.find(separator) != std::string::npos || item.find('\0') != std::string::npos)
      return false;
  if (separator == '\0' && value.size() > 1) return false;
  std::string text;
  for (size_t i = 0; i < value.size(); ++i) {
    if (i > 0) text += separator;
    text += value[i];
  }
  return WriteKey(name, text);
}
