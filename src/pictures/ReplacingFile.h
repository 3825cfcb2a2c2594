#pragma once
// A file written beside its target and renamed over it once complete, so
// that a failure leaves no partial file and an old one as it was: pictures,
// printed PDFs. The new file gets the mode of the file it replaces, or that
// of any new file, not mkstemp's private one. The coders keep it in the
// frame that calls their C library, above the frames the library may
// longjmp over.

#include <cstdio>
#include <string>
#include <utility>

class ReplacingFile {
public:
  explicit ReplacingFile(std::string target) : mTarget(std::move(target)) {}
  ~ReplacingFile() { Discard(); }
  ReplacingFile(ReplacingFile const &) = delete;
  ReplacingFile & operator=(ReplacingFile const &) = delete;

  // The temporary file, open for writing; null when it cannot be made
  // (errno says why).
  std::FILE * Open();
  // Closes the file and renames it over the target. False when either
  // fails (errno says why), and then the temporary file is gone.
  bool Commit();
  // Closes and removes the temporary file, if there is one.
  void Discard();

private:
  std::string mTarget;
  std::string mTemporary;
  std::FILE * mFile = nullptr;
};
