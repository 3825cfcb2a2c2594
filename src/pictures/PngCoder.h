#pragma once
// The PNG coder between DIBs and PNG files or memory, over libpng.
//
// A coder record is made for one direction (kind), filled in by its fields
// and setters, run, and freed. A run never throws: it gives an error code
// and leaves a text in the record's error buffer.

#include <csetjmp>
#include <cstddef>

enum VxPngKind {
  VX_PNG_DIB_TO_PNG = 1,
  VX_PNG_PNG_TO_DIB = 2,
};

// Results of a run; VxPngDefaultErrorText gives each one's text.
enum VxPngError {
  VX_PNG_OK = 0,
  VX_PNG_UNKNOWN = 1,
  VX_PNG_VERSION = 2,
  VX_PNG_MEMORY = 3,
  VX_PNG_UNSUPPORTED = 4,
  VX_PNG_LIBPNG = 5,
  VX_PNG_BAD_BMP = 6,
  VX_PNG_BAD_PNG = 7,
  VX_PNG_READ = 8,
  VX_PNG_WRITE = 9,
};

constexpr std::size_t kVxPngErrorTextLength = 200;

enum VxPngSource {
  VX_PNG_FROM_FILE = 0,
  VX_PNG_FROM_MEMORY = 1,
};

struct VxPngDibToPngFields {
  void const * dib = nullptr;  // header, colour table and (unless `bits`) the pixels
  std::size_t dibSize = 0;     // 0: unknown, nothing is checked against it
  void const * bits = nullptr;
  std::size_t bitsSize = 0;
  bool alpha = false;  // a 32-bit DIB's fourth byte is alpha
  bool interlaced = false;
  wchar_t * outputFile = nullptr;  // VxPngSetOutputFile
  wchar_t * software = nullptr;    // VxPngSetSoftware: a tEXt "Software"
  bool gamma = true;               // write gAMA (and sRGB for 0.45455)
  double fileGamma = 0.45455;
};

// What the file says of itself, filled in by a read.
struct VxPngFileFacts {
  int colorType = 0;
  int bitDepth = 0;
  int bitsPerPixel = 0;
  int interlace = 0;
  bool hasResolution = false;
  unsigned resolutionX = 0;
  unsigned resolutionY = 0;
  int resolutionUnit = 0;
  bool hasGamma = false;
  double gamma = 0.0;
  bool hasBackground = false;
  unsigned char backgroundRed = 0;
  unsigned char backgroundGreen = 0;
  unsigned char backgroundBlue = 0;
};

struct VxPngPngToDibFields {
  int source = VX_PNG_FROM_FILE;
  wchar_t * inputFile = nullptr;  // VxPngSetInputFile
  unsigned char const * buffer = nullptr;
  std::size_t bufferSize = 0;  // 0: unknown, the reader trusts the data to end
  std::size_t readPosition = 0;
  // Replacements for calloc and free of the result's DIB; both or neither.
  void * (*allocate)(std::size_t count, std::size_t size) = nullptr;
  void (*free)(void * block) = nullptr;
  bool useAlpha = false;  // transparency kept: a 32-bit DIB with masks
  bool useFileBackground = false;
  bool useCustomBackground = false;
  unsigned char customRed = 0;
  unsigned char customGreen = 0;
  unsigned char customBlue = 0;
  bool screenGammaFlag = false;
  double screenGamma = 2.2;
  // The largest DIB a read allocates; a file asking for more gives code 3.
  std::size_t maxDibBytes = std::size_t{1} << 30;

  // The result: one block holding header, masks, colour table and rows.
  void * dib = nullptr;
  std::size_t dibSize = 0;
  std::size_t headerSize = 0;
  std::size_t colorTableSize = 0;  // header, masks and palette together
  std::size_t bitsSize = 0;
  void * palette = nullptr;
  std::size_t paletteSize = 0;
  void * bits = nullptr;
  VxPngFileFacts facts;
};

struct VxPngInfo {
  int kind = 0;
  wchar_t * errorText = nullptr;  // kVxPngErrorTextLength wide characters
  void * user = nullptr;
  std::jmp_buf jump{};  // where libpng's error callback returns to
  VxPngDibToPngFields write;
  VxPngPngToDibFields read;
};

// A record of `kind`, or null for another kind or without memory.
VxPngInfo * VxPngCreate(int kind);
// Frees the record with its error buffer and names (not the result's DIB).
void VxPngFree(VxPngInfo * info);
// Copies the names; null clears. False without memory.
bool VxPngSetOutputFile(VxPngInfo * info, wchar_t const * name);
bool VxPngSetSoftware(VxPngInfo * info, wchar_t const * text);
bool VxPngSetInputFile(VxPngInfo * info, wchar_t const * name);
// Reads from `size` bytes at `data` (0: size unknown), from the start.
void VxPngSetInputMemory(VxPngInfo * info, void const * data, std::size_t size);

// Writes the DIB of a VX_PNG_DIB_TO_PNG record to its output file, through a
// temporary file renamed over it, so that a failure leaves no partial file.
int VxDibToPng(VxPngInfo * info);
// Reads the PNG of a VX_PNG_PNG_TO_DIB record into a new DIB, which the
// caller frees with VxPngFreeDib (or the record's free function).
int VxPngToDib(VxPngInfo * info);
// Frees a read's DIB with the free function that matches its allocator.
void VxPngFreeDib(VxPngInfo * info);

wchar_t const * VxPngDefaultErrorText(int code);
