#pragma once
// A non-owning view of a NUL-terminated string: one pointer. A null pointer
// reads as the empty string.

template <typename Char>
class basic_c_str {
public:
  basic_c_str(Char const * text) : mText(text) {}  // NOLINT: implicit by design
  Char const * c_str() const {
    static Char const empty[1] = {Char()};
    return mText != nullptr ? mText : empty;
  }

private:
  Char const * mText;
};
