#pragma once
// Replacing a file so that a crash, a kill or a full disk at any moment
// leaves either the old content or the new one, never a mix or a stub:
// the bytes go to a temporary file beside the target (same folder, so the
// same file system), are flushed to disk, and the temporary file is renamed
// over the target; then the folder itself is flushed so that the rename
// survives a power cut. A failure before the rename leaves the target as it
// was and removes the temporary file. A process killed mid-way may leave a
// hidden ".<name>.tmp-XXXXXX" beside the target; it is never read, and the
// next write of the same target removes it. The writer holds an flock on
// its temporary until the rename, so a temporary nobody holds a lock on is
// known to be a dead writer's, whatever the process ids of the machine.
//
// A target that is a symbolic link is replaced where the link points, so the
// link stays. A new file gets `mode` (less the umask); an existing one keeps
// its permissions.

#include <sys/types.h>

#include <string>
#include <string_view>

namespace vx3 {

// Throws Exception naming the file on failure.
void WriteFileAtomically(std::string const & path, std::string_view bytes, mode_t mode = 0666);

}  // namespace vx3
