#pragma once
// Starting the XML parser. Xerces-C lives in the XML module (XmlModule.h),
// which initialises it exactly once per process and never terminates it
// (xml/XercesStart.h says why).

namespace vx3 {

// Loads the XML module and initialises Xerces-C on first call; cheap
// afterwards. Throws Exception if the module cannot be loaded or Xerces
// cannot start (no transcoding service, out of memory).
void EnsureXercesInitialized();

// Starts that work on a worker thread and returns at once, so that it
// overlaps what the process does meanwhile: loading and relocating Xerces
// and its libraries, and the character-class tables Xerces builds when it
// starts, several milliseconds in all. It pays only where a core would
// otherwise idle: the worker takes the dynamic loader's lock, which the
// main thread may need too, and on a busy machine its work is taken from
// the main thread's share. A later EnsureXercesInitialized (or any use of
// XML) waits for the worker; a failure there is simply retried by that
// call. The process waits for the worker at exit.
void StartXercesInitialization();

}  // namespace vx3
