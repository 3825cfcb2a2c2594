// A library for the loader tests to load: one exported function.
extern "C" __attribute__((visibility("default"))) long long TalvoLoaderAnswer() { return 42; }
