#pragma once
// Carries out what a .reg file says, as one transaction: every change, or at
// the first that fails, none.

#include <string_view>
#include <vector>

#include "platform/RegFile.h"
#include "utl/ExceptionMessage.h"

namespace registry {

enum class ImportMode {
  Commit,
  DryRun,  // every change made, then taken back: checks a file against the hives
};

// False when a change failed; `error` then names its line and the system
// error, and nothing was changed.
bool ImportRegFile(std::vector<RegFileEntry> const & entries, ExceptionMessage & error,
                   ImportMode mode = ImportMode::Commit);

// Parses the bytes of a file and imports them: a malformed file changes
// nothing either.
bool ImportRegFile(std::string_view bytes, ExceptionMessage & error,
                   ImportMode mode = ImportMode::Commit);

}  // namespace registry
