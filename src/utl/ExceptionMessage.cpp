#include "utl/ExceptionMessage.h"

#include "utl/Translation.h"
#include "utl/Utf.h"

namespace vx3 {
namespace detail {
placeholder::~placeholder() = default;
}  // namespace detail

std::string SubstitutePlaceholders(std::string const & text,
                                   std::vector<std::string> const & arguments) {
  std::string out;
  out.reserve(text.size());
  size_t i = 0;
  while (i < text.size()) {
    char const c = text[i];
    if (c == '{') {
      // "{digits}" names an argument; anything else is literal text.
      size_t j = i + 1;
      size_t index = 0;
      bool overflow = false;
      while (j < text.size() && text[j] >= '0' && text[j] <= '9') {
        index = index * 10 + static_cast<size_t>(text[j] - '0');
        overflow = overflow || index > arguments.size();
        ++j;
      }
      if (j > i + 1 && j < text.size() && text[j] == '}' && !overflow && index >= 1 &&
          index <= arguments.size()) {
        out += arguments[index - 1];
        i = j + 1;
        continue;
      }
    }
    out += c;
    ++i;
  }
  return out;
}

}  // namespace vx3

ExceptionMessage ExceptionMessage::translate(char const * id) {
  ExceptionMessage message;
  message.mId = id != nullptr ? id : "";
  return message;
}

ExceptionMessage::ExceptionMessage() = default;
ExceptionMessage::~ExceptionMessage() = default;
ExceptionMessage::ExceptionMessage(ExceptionMessage && other) noexcept = default;
ExceptionMessage & ExceptionMessage::operator=(ExceptionMessage && other) noexcept = default;

ExceptionMessage::ExceptionMessage(ExceptionMessage const & other) : mId(other.mId) {
  mArguments.reserve(other.mArguments.size());
  for (auto const & argument : other.mArguments) mArguments.emplace_back(argument->clone());
}

ExceptionMessage & ExceptionMessage::operator=(ExceptionMessage const & other) {
  if (this != &other) {
    ExceptionMessage copy(other);
    *this = std::move(copy);
  }
  return *this;
}

ExceptionMessage & ExceptionMessage::operator%(char const * arg) {
  return Append(std::make_unique<vx3::detail::holder<std::string>>(arg != nullptr ? arg : ""));
}

ExceptionMessage & ExceptionMessage::Append(std::unique_ptr<vx3::detail::placeholder> argument) {
  mArguments.push_back(std::move(argument));
  return *this;
}

std::string ExceptionMessage::ToString(std::locale const & locale) const noexcept {
  try {
    std::vector<std::string> arguments;
    arguments.reserve(mArguments.size());
    for (auto const & argument : mArguments) arguments.push_back(argument->text());
    std::string const text = vx3::TranslateText(mId.c_str(), locale);
    return vx3::SanitizeUtf8(vx3::SubstitutePlaceholders(text, arguments));
  } catch (...) {
    // Out of memory while formatting: the bare id is the best we can say.
    try {
      return mId;
    } catch (...) {
      return std::string();
    }
  }
}
