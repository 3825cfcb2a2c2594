#include "crash/LoadedModules.h"

#include <elf.h>

#include <algorithm>
#include <cstring>

namespace {

constexpr uint64_t kPage = 4096;
constexpr uint16_t kMostProgramHeaders = 64;
constexpr uint64_t kLargestNote = 64 * 1024;

bool IsElf(pid_t pid, uint64_t base, Elf64_Ehdr & header) {
  return ReadProcessMemory(pid, base, &header, sizeof header) &&
         std::memcmp(header.e_ident, ELFMAG, SELFMAG) == 0 &&
         header.e_ident[EI_CLASS] == ELFCLASS64 && header.e_phentsize == sizeof(Elf64_Phdr) &&
         header.e_phnum <= kMostProgramHeaders;
}

std::vector<uint8_t> BuildIdInNotes(std::vector<char> const & notes) {
  size_t at = 0;
  auto const align4 = [](size_t n) { return (n + 3) & ~size_t{3}; };
  while (at + sizeof(Elf64_Nhdr) <= notes.size()) {
    Elf64_Nhdr note{};
    std::memcpy(&note, notes.data() + at, sizeof note);
    size_t const name = at + sizeof note;
    size_t const desc = name + align4(note.n_namesz);
    if (desc < name || desc + note.n_descsz > notes.size() || desc + note.n_descsz < desc) break;
    if (note.n_type == NT_GNU_BUILD_ID && note.n_namesz == 4 &&
        std::memcmp(notes.data() + name, "GNU", 4) == 0)
      return {notes.data() + desc, notes.data() + desc + note.n_descsz};
    at = desc + align4(note.n_descsz);
  }
  return {};
}

std::vector<uint8_t> ReadBuildId(pid_t pid, uint64_t base, Elf64_Ehdr const & header) {
  std::vector<Elf64_Phdr> phdrs(header.e_phnum);
  if (!ReadProcessMemory(pid, base + header.e_phoff, phdrs.data(),
                         phdrs.size() * sizeof(Elf64_Phdr)))
    return {};
  // The load bias: where the first loaded segment's page landed.
  uint64_t bias = base;
  for (Elf64_Phdr const & phdr : phdrs)
    if (phdr.p_type == PT_LOAD) {
      bias = base - (phdr.p_vaddr & ~(kPage - 1));
      break;
    }
  for (Elf64_Phdr const & phdr : phdrs) {
    if (phdr.p_type != PT_NOTE || phdr.p_filesz == 0 || phdr.p_filesz > kLargestNote) continue;
    std::vector<char> notes(phdr.p_filesz);
    if (!ReadProcessMemory(pid, bias + phdr.p_vaddr, notes.data(), notes.size())) continue;
    std::vector<uint8_t> id = BuildIdInNotes(notes);
    if (!id.empty()) return id;
  }
  return {};
}

}  // namespace

std::vector<LoadedModule> FindLoadedModules(pid_t pid, std::vector<Mapping> const & mappings) {
  std::vector<LoadedModule> modules;
  for (size_t i = 0; i < mappings.size(); ++i) {
    Mapping const & first = mappings[i];
    // A module starts where its file is mapped from offset 0; the kernel's
    // own mappings ("[vdso]") have no file a debugger could open.
    if (first.offset != 0 || first.path.empty() || first.path[0] != '/' || !first.readable)
      continue;
    Elf64_Ehdr header{};
    if (!IsElf(pid, first.start, header)) continue;
    LoadedModule module;
    module.base = first.start;
    module.path = first.path;
    uint64_t end = first.end;
    for (size_t j = i + 1; j < mappings.size() && mappings[j].path == first.path; ++j)
      end = std::max(end, mappings[j].end);
    module.size = end - first.start;
    module.buildId = ReadBuildId(pid, first.start, header);
    modules.push_back(std::move(module));
  }
  return modules;
}
