#pragma once
// Ordered messages whose text is the plain concatenation of their texts:
// callers supply their own separators.

#include <locale>
#include <string>
#include <vector>

#include "utl/ExceptionMessage.h"

class ExceptionMessageList {
public:
  ExceptionMessageList();
  ExceptionMessageList(ExceptionMessageList const & other);
  ExceptionMessageList & operator=(ExceptionMessageList const & other);
  virtual ~ExceptionMessageList();

  ExceptionMessageList & operator<<(ExceptionMessage const & message);
  ExceptionMessageList & operator<<(ExceptionMessageList const & messages);

  // The translated, substituted texts of all items in order. Never throws.
  std::string ToString(std::locale const & locale) const noexcept;

  bool empty() const { return mMessages.empty(); }
  size_t size() const { return mMessages.size(); }
  std::vector<ExceptionMessage>::const_iterator begin() const { return mMessages.begin(); }
  std::vector<ExceptionMessage>::const_iterator end() const { return mMessages.end(); }

private:
  std::vector<ExceptionMessage> mMessages;
};
