// Replays fuzz inputs without libFuzzer: every file named on the command
// line, or found (sorted) in a folder named there, goes once through
// LLVMFuzzerTestOneInput. A crash or sanitizer report fails the run.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size);
extern "C" __attribute__((weak)) int LLVMFuzzerInitialize(int * argc, char *** argv);

int main(int argc, char ** argv) {
  if (LLVMFuzzerInitialize != nullptr) LLVMFuzzerInitialize(&argc, &argv);
  std::vector<std::filesystem::path> inputs;
  for (int i = 1; i < argc; ++i) {
    std::filesystem::path const path(argv[i]);
    if (std::filesystem::is_directory(path)) {
      for (auto const & entry : std::filesystem::directory_iterator(path))
        if (entry.is_regular_file()) inputs.push_back(entry.path());
    } else {
      inputs.push_back(path);
    }
  }
  std::sort(inputs.begin(), inputs.end());
  if (inputs.empty()) {
    std::fprintf(stderr, "no inputs to replay\n");
    return 1;
  }
  for (auto const & path : inputs) {
    std::ifstream in(path, std::ios::binary);
    std::vector<char> const bytes((std::istreambuf_iterator<char>(in)),
                                  std::istreambuf_iterator<char>());
    LLVMFuzzerTestOneInput(reinterpret_cast<uint8_t const *>(bytes.data()), bytes.size());
  }
  // An empty input too: every target must take it.
  LLVMFuzzerTestOneInput(nullptr, 0);
  std::printf("replayed %zu inputs\n", inputs.size() + 1);
  return 0;
}
