#include "controls/GUIUtilities.h"

#include "platform/ResourceModule.h"

namespace GUIUtilities {

std::string ReadResource(unsigned int id) { return LoadResourceBytes(id, RT_HTML); }

}  // namespace GUIUtilities
