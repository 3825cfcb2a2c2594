#pragma once
// Whether this machine draws GL on a GPU. Without a render node GL means
// Mesa's software renderer, which is slow to load and slow to draw, and the
// toolkit is told to leave it alone. Header-only: the browser module, which
// links nothing of the library, asks too.

#include <unistd.h>

#include <cstdlib>

namespace GpuRendering {

inline bool HasGpu() { return ::access("/dev/dri", F_OK) == 0; }

// Before GTK starts. GDK's X11 back end loads GL at start only to rank the
// screen's visuals for GL, which no window of the library draws with; on a
// machine without a GPU that loads the software renderer and its compiler,
// a third of the start-up time of a small application. A value the user set
// is kept.
inline void SkipGlVisualsWithoutGpu() {
  if (!HasGpu()) ::setenv("GDK_GL", "disable", 0);
}

}  // namespace GpuRendering
