#pragma once
// The minidump file layout: the records a debugger reads from a crash dump
// of an x86-64 Linux process. Little-endian, packed to 4 bytes as the format
// was first laid down; every record's size is checked below, since a debugger
// reads the file by these sizes and nothing else.

#include <cstdint>

namespace minidump {

constexpr uint32_t kSignature = 0x504d444d;  // "MDMP"
constexpr uint32_t kVersion = 0xa793;

enum StreamType : uint32_t {
  kThreadListStream = 3,
  kModuleListStream = 4,
  kMemoryListStream = 5,
  kExceptionStream = 6,
  kSystemInfoStream = 7,
  kMemory64ListStream = 9,
  kMiscInfoStream = 15,
  // The Linux streams: the process's own /proc files, as read at the crash.
  kLinuxProcStatus = 0x47670004,
  kLinuxCmdLine = 0x47670006,
  kLinuxAuxv = 0x47670008,
  kLinuxMaps = 0x47670009,
};

constexpr uint16_t kArchitectureAmd64 = 9;
constexpr uint32_t kPlatformLinux = 0x8201;
constexpr uint32_t kCodeViewBuildId = 0x4270454c;  // "LEpB", then the GNU build id
constexpr uint32_t kContextAmd64 = 0x00100000;
// Control, integer, segment and floating-point registers.
constexpr uint32_t kContextAmd64Full = kContextAmd64 | 0x1 | 0x2 | 0x4 | 0x8;
constexpr uint32_t kMiscProcessId = 1;

#pragma pack(push, 4)

struct Location {
  uint32_t dataSize;
  uint32_t rva;
};

struct Header {
  uint32_t signature;
  uint32_t version;
  uint32_t streamCount;
  uint32_t streamDirectoryRva;
  uint32_t checkSum;
  uint32_t timeDateStamp;
  uint64_t flags;
};

struct Directory {
  uint32_t streamType;
  Location location;
};

struct MemoryDescriptor {
  uint64_t start;
  Location memory;
};

struct MemoryDescriptor64 {
  uint64_t start;
  uint64_t size;
};

struct Thread {
  uint32_t threadId;
  uint32_t suspendCount;
  uint32_t priorityClass;
  uint32_t priority;
  uint64_t teb;
  MemoryDescriptor stack;
  Location context;
};

struct FixedFileInfo {
  uint32_t fields[13];
};

struct Module {
  uint64_t baseOfImage;
  uint32_t sizeOfImage;
  uint32_t checkSum;
  uint32_t timeDateStamp;
  uint32_t moduleNameRva;
  FixedFileInfo versionInfo;
  Location cvRecord;
  Location miscRecord;
  uint64_t reserved0;
  uint64_t reserved1;
};

struct Exception {
  uint32_t exceptionCode;
  uint32_t exceptionFlags;
  uint64_t exceptionRecord;
  uint64_t exceptionAddress;
  uint32_t numberParameters;
  uint32_t unusedAlignment;
  uint64_t exceptionInformation[15];
};

struct ExceptionStream {
  uint32_t threadId;
  uint32_t alignment;
  Exception exception;
  Location threadContext;
};

struct SystemInfo {
  uint16_t processorArchitecture;
  uint16_t processorLevel;
  uint16_t processorRevision;
  uint8_t numberOfProcessors;
  uint8_t productType;
  uint32_t majorVersion;
  uint32_t minorVersion;
  uint32_t buildNumber;
  uint32_t platformId;
  uint32_t csdVersionRva;
  uint16_t suiteMask;
  uint16_t reserved2;
  uint32_t vendorId[3];
  uint32_t versionInformation;
  uint32_t featureInformation;
  uint32_t amdExtendedCpuFeatures;
};

struct MiscInfo {
  uint32_t sizeOfInfo;
  uint32_t flags1;
  uint32_t processId;
  uint32_t processCreateTime;
  uint32_t processUserTime;
  uint32_t processKernelTime;
};

// The register set of one x86-64 thread.
struct ContextAmd64 {
  uint64_t pHome[6];
  uint32_t contextFlags;
  uint32_t mxCsr;
  uint16_t segCs, segDs, segEs, segFs, segGs, segSs;
  uint32_t eFlags;
  uint64_t dr0, dr1, dr2, dr3, dr6, dr7;
  uint64_t rax, rcx, rdx, rbx, rsp, rbp, rsi, rdi;
  uint64_t r8, r9, r10, r11, r12, r13, r14, r15;
  uint64_t rip;
  uint8_t fltSave[512];  // the FXSAVE area, as Linux keeps it too
  uint8_t vectorRegister[26 * 16];
  uint64_t vectorControl;
  uint64_t debugControl;
  uint64_t lastBranchToRip;
  uint64_t lastBranchFromRip;
  uint64_t lastExceptionToRip;
  uint64_t lastExceptionFromRip;
};

#pragma pack(pop)

static_assert(sizeof(Header) == 32);
static_assert(sizeof(Directory) == 12);
static_assert(sizeof(MemoryDescriptor) == 16);
static_assert(sizeof(Thread) == 48);
static_assert(sizeof(Module) == 108);
static_assert(sizeof(ExceptionStream) == 168);
static_assert(sizeof(SystemInfo) == 56);
static_assert(sizeof(MiscInfo) == 24);
static_assert(sizeof(ContextAmd64) == 1232);

}  // namespace minidump
