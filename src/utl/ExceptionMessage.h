#pragma once
// A translatable message with arguments. The id is the English text with
// numbered placeholders ("The file {1} does not exist."); a placeholder may
// stand more than once. Arguments are kept type-erased, and both translation
// and substitution happen when the text is asked for, so one message can be
// shown in different locales.

#include <locale>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace vx3 {
namespace detail {

class placeholder {
public:
  virtual ~placeholder();
  virtual placeholder * clone() const = 0;
  virtual std::string text() const = 0;
};

template <typename T>
class holder;

template <>
class holder<int> : public placeholder {
public:
  explicit holder(int value) : held(value) {}
  placeholder * clone() const override { return new holder(held); }
  std::string text() const override { return std::to_string(held); }
  int const held;
};

template <>
class holder<std::string> : public placeholder {
public:
  explicit holder(std::string value) : held(std::move(value)) {}
  placeholder * clone() const override { return new holder(held); }
  std::string text() const override { return held; }
  std::string const held;
};

}  // namespace detail
}  // namespace vx3

class ExceptionMessage {
public:
  // A message with this id and no arguments.
  static ExceptionMessage translate(char const * id);

  ExceptionMessage();
  ExceptionMessage(ExceptionMessage const & other);
  ExceptionMessage(ExceptionMessage && other) noexcept;
  ExceptionMessage & operator=(ExceptionMessage const & other);
  ExceptionMessage & operator=(ExceptionMessage && other) noexcept;
  ~ExceptionMessage();

  // Appends the next argument; a null pointer counts as an empty text.
  ExceptionMessage & operator%(char const * arg);

  template <typename T>
  ExceptionMessage & operator%(T const & arg) {
    static_assert(std::is_same_v<T, int> || std::is_same_v<T, std::string>,
                  "ExceptionMessage arguments are int or std::string");
    return Append(std::make_unique<vx3::detail::holder<T>>(arg));
  }

  std::string const & Id() const { return mId; }
  size_t ArgumentCount() const { return mArguments.size(); }
  bool IsEmpty() const { return mId.empty(); }

  // The translated text with "{N}" replaced by the N-th argument (1-based).
  // A placeholder without an argument stays as it is. Never throws.
  std::string ToString(std::locale const & locale) const noexcept;

private:
  ExceptionMessage & Append(std::unique_ptr<vx3::detail::placeholder> argument);

  std::string mId;
  std::vector<std::unique_ptr<vx3::detail::placeholder>> mArguments;
};

namespace vx3 {

// Replaces "{N}" in `text` by the N-th of `arguments` (1-based). Exposed for
// the translation tests and the fuzz target.
std::string SubstitutePlaceholders(std::string const & text,
                                   std::vector<std::string> const & arguments);

}  // namespace vx3
