#pragma once
// Helpers of the user-interface code.

#include <string>

namespace GUIUtilities {

// The bytes of text resource `id` (type 23: XML defaults, CSS, XSL, HTML
// pages) found through the resource chain, starting at the current resource
// module; empty when no module has it.
std::string ReadResource(unsigned int id);

}  // namespace GUIUtilities
