#include "settings/VxIsAdmin.h"

#include <unistd.h>

bool VxIsAdmin() { return ::geteuid() == 0; }
