#pragma once
// The validator an input dialog can be given for a filter text: it accepts
// the filters that FilterMatcher reads without having to be lenient (see
// utl/FilterMatcher.h for the language) and tells the user what is wrong
// with the others.

#include "utl/ExceptionMessage.h"
#include "utl/FilterMatcher.h"

class wxWindow;

class KarvinFilterValidator {
public:
  KarvinFilterValidator();
  virtual ~KarvinFilterValidator();

  // True when `text` (UTF-8; null reads as empty) is a well-formed filter.
  // Remembers the problem for Error.
  virtual bool IsValid(char const * text);

  // Tells the user what the last IsValid found, through the current
  // UserComm; does nothing when no channel is installed. `parent` is not
  // used here: this library shows no windows itself.
  virtual void Error(wxWindow * parent);

  FilterMatcher::Problem LastProblem() const { return mProblem; }

  // The message for a problem; for None, a general one, for a derived
  // validator that refuses a text for reasons of its own.
  static ExceptionMessage MessageFor(FilterMatcher::Problem problem);

private:
  FilterMatcher::Problem mProblem = FilterMatcher::Problem::None;
};
