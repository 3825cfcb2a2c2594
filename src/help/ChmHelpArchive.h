#pragma once
// The help window's view of a compiled help file opened by the CHM reader.

#include <memory>
#include <string>

#include "help/HelpArchive.h"

// Opens the compiled help file at `path`; null with the reason in `error`.
std::unique_ptr<HelpArchive> OpenChmHelpArchive(std::string const & path, std::string & error);
