#include "pictures/PngCoder.h"

#include <algorithm>
#include <cmath>
#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <new>
#include <string>

#include <png.h>

#include <boost/locale/encoding_utf.hpp>

#include "pictures/DibBlock.h"
#include "pictures/ReplacingFile.h"
#include "pictures/RleDecoder.h"

// libpng leaves its error callback by longjmp. The functions it can jump
// over (those named ...Steps below) hold nothing with a destructor: their
// state lives in plain structs owned by the caller, which frees it whatever
// way they end.

namespace {

constexpr long kMaxDimension = 1000000;
// Ancillary chunks larger than this are dropped unread: a chunk bomb cannot
// make the reader allocate without bound.
constexpr png_alloc_size_t kMaxChunkBytes = 8u << 20;
constexpr double kSrgbGamma = 0.45455;
// The writer's own buffers (unpacked run-length rows, expanded 16- and 32-bit
// rows) stay below this: a small DIB claiming a huge picture is refused
// before anything is allocated.
constexpr unsigned long long kMaxWriteBufferBytes = 1ull << 30;

void SetText(VxPngInfo * info, wchar_t const * format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  std::vswprintf(info->errorText, kVxPngErrorTextLength, format, arguments);
  va_end(arguments);
}

// libpng's messages are ASCII; widened byte by byte, never through a locale.
void SetLibpngText(VxPngInfo * info, char const * message) {
  static constexpr wchar_t kPrefix[] = L"[libpng] ";
  std::size_t at = 0;
  for (; kPrefix[at] != 0; ++at) info->errorText[at] = kPrefix[at];
  for (; message != nullptr && *message != 0 && at + 1 < kVxPngErrorTextLength; ++message, ++at)
    info->errorText[at] = static_cast<unsigned char>(*message);
  info->errorText[at] = 0;
}

// The default text of `code` unless a specific one is there already.
int Fail(VxPngInfo * info, int code) {
  if (info->errorText[0] == 0) SetText(info, L"%ls", VxPngDefaultErrorText(code));
  return code;
}

void OnLibpngError(png_structp png, png_const_charp message) {
  auto * const info = static_cast<VxPngInfo *>(png_get_error_ptr(png));
  SetLibpngText(info, message);
  std::longjmp(info->jump, 1);
}

void OnLibpngWarning(png_structp png, png_const_charp message) {
  SetLibpngText(static_cast<VxPngInfo *>(png_get_error_ptr(png)), message);
}

wchar_t * CopyName(wchar_t const * name) {
  if (name == nullptr) return nullptr;
  std::size_t const length = std::wcslen(name) + 1;
  auto * const copy = static_cast<wchar_t *>(std::malloc(length * sizeof(wchar_t)));
  if (copy != nullptr) std::wmemcpy(copy, name, length);
  return copy;
}

bool Replace(wchar_t *& field, wchar_t const * value) {
  wchar_t * const copy = CopyName(value);
  if (value != nullptr && copy == nullptr) return false;
  std::free(field);
  field = copy;
  return true;
}

std::string Utf8(wchar_t const * text) { return boost::locale::conv::utf_to_utf<char>(text); }

std::uint32_t Read32(unsigned char const * at) {
  std::uint32_t value = 0;
  std::memcpy(&value, at, sizeof value);
  return value;
}

// ---- DIB to PNG --------------------------------------------------------

enum class PixelFormat { Plain, Rgb555, Rgb565, Rgb888x };

// Everything the writing steps need, worked out and checked beforehand.
struct WritePlan {
  long width = 0;
  long height = 0;
  bool topDown = false;
  unsigned bitCount = 0;
  bool alpha = false;
  PixelFormat format = PixelFormat::Plain;
  unsigned char const * palette = nullptr;
  unsigned paletteEntries = 0;
  unsigned paletteEntryBytes = 4;
  unsigned char const * bits = nullptr;  // rows of `stride` bytes
  std::size_t stride = 0;
  long xPelsPerMeter = 0;
  long yPelsPerMeter = 0;
  char const * software = nullptr;  // Latin-1

  // Owned, freed by the caller of WriteSteps.
  unsigned char * decoded = nullptr;   // run-length data unpacked
  unsigned char * expanded = nullptr;  // 16- and 32-bit rows as 3 bytes a pixel
  png_bytep * rows = nullptr;
  png_structp png = nullptr;
  png_infop pngInfo = nullptr;
  std::FILE * file = nullptr;
};

unsigned char Replicate5(unsigned field) {
  return static_cast<unsigned char>((field << 3) | (field >> 2));
}
unsigned char Replicate6(unsigned field) {
  return static_cast<unsigned char>((field << 2) | (field >> 4));
}

// One row of 16- or 32-bit pixels as blue, green, red bytes.
void ExpandRow(WritePlan const & plan, unsigned char const * source, unsigned char * target) {
  for (long x = 0; x < plan.width; ++x, target += 3) {
    if (plan.format == PixelFormat::Rgb888x) {
      std::memcpy(target, source + 4 * x, 3);
      continue;
    }
    unsigned const word = source[2 * x] | (source[2 * x + 1] << 8);
    target[0] = Replicate5(word & 0x1F);
    if (plan.format == PixelFormat::Rgb565) {
      target[1] = Replicate6((word >> 5) & 0x3F);
      target[2] = Replicate5((word >> 11) & 0x1F);
    } else {
      target[1] = Replicate5((word >> 5) & 0x1F);
      target[2] = Replicate5((word >> 10) & 0x1F);
    }
  }
}

int WriteSteps(VxPngInfo * info, WritePlan * plan) {
  if (setjmp(info->jump) != 0) return VX_PNG_LIBPNG;
  plan->png = png_create_write_struct(PNG_LIBPNG_VER_STRING, info, OnLibpngError, OnLibpngWarning);
  if (plan->png == nullptr) return VX_PNG_VERSION;
  plan->pngInfo = png_create_info_struct(plan->png);
  if (plan->pngInfo == nullptr) return VX_PNG_MEMORY;
  png_init_io(plan->png, plan->file);

  int colorType = PNG_COLOR_TYPE_RGB;
  if (plan->alpha)
    colorType = PNG_COLOR_TYPE_RGB_ALPHA;
  else if (plan->bitCount <= 8)
    colorType = PNG_COLOR_TYPE_PALETTE;
  png_set_IHDR(plan->png, plan->pngInfo, static_cast<png_uint_32>(plan->width),
               static_cast<png_uint_32>(plan->height),
               static_cast<int>(std::min(plan->bitCount, 8u)), colorType,
               info->write.interlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE,
               PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  if (info->write.gamma) {
    double const gamma = info->write.fileGamma;
    if (gamma > 0.454539 && gamma < 0.454551)
      png_set_sRGB(plan->png, plan->pngInfo, PNG_sRGB_INTENT_RELATIVE);
    png_set_gAMA(plan->png, plan->pngInfo, gamma);
  }
  if (plan->format == PixelFormat::Rgb555 || plan->format == PixelFormat::Rgb565) {
    png_color_8 significant{};
    significant.red = 5;
    significant.green = plan->format == PixelFormat::Rgb565 ? 6 : 5;
    significant.blue = 5;
    png_set_sBIT(plan->png, plan->pngInfo, &significant);
  }
  if (plan->xPelsPerMeter != 0 && plan->yPelsPerMeter != 0)
    png_set_pHYs(plan->png, plan->pngInfo, static_cast<png_uint_32>(plan->xPelsPerMeter),
                 static_cast<png_uint_32>(plan->yPelsPerMeter), PNG_RESOLUTION_METER);
  if (plan->paletteEntries > 0 && colorType == PNG_COLOR_TYPE_PALETTE) {
    png_color colors[256];
    for (unsigned i = 0; i < plan->paletteEntries; ++i) {
      unsigned char const * const entry = plan->palette + i * plan->paletteEntryBytes;
      colors[i].red = entry[2];
      colors[i].green = entry[1];
      colors[i].blue = entry[0];
    }
    png_set_PLTE(plan->png, plan->pngInfo, colors, static_cast<int>(plan->paletteEntries));
  }
  if (plan->bitCount > 8) png_set_bgr(plan->png);
  png_write_info(plan->png, plan->pngInfo);

  auto const rowCount = static_cast<std::size_t>(plan->height);
  plan->rows = static_cast<png_bytep *>(std::malloc(rowCount * sizeof(png_bytep)));
  if (plan->rows == nullptr) return VX_PNG_MEMORY;
  bool const expand = plan->format != PixelFormat::Plain && !plan->alpha;
  std::size_t const expandedStride = static_cast<std::size_t>(plan->width) * 3;
  if (expand) {
    plan->expanded = static_cast<unsigned char *>(std::malloc(expandedStride * rowCount));
    if (plan->expanded == nullptr) return VX_PNG_MEMORY;
  }
  for (std::size_t i = 0; i < rowCount; ++i) {
    std::size_t const stored = plan->topDown ? i : rowCount - 1 - i;
    unsigned char const * const source = plan->bits + plan->stride * stored;
    if (expand) {
      ExpandRow(*plan, source, plan->expanded + expandedStride * i);
      plan->rows[i] = plan->expanded + expandedStride * i;
    } else {
      plan->rows[i] = const_cast<png_bytep>(source);  // libpng only reads them
    }
  }
  png_write_image(plan->png, plan->rows);
  if (plan->software != nullptr) {
    png_text text{};
    text.compression = PNG_TEXT_COMPRESSION_NONE;
    text.key = const_cast<png_charp>("Software");
    text.text = const_cast<png_charp>(plan->software);
    text.text_length = std::strlen(plan->software);
    png_set_text(plan->png, plan->pngInfo, &text, 1);
  }
  png_write_end(plan->png, plan->pngInfo);
  return VX_PNG_OK;
}

// Checks the DIB and fills in the plan; 0 or an error code.
int PlanWrite(VxPngInfo * info, WritePlan & plan) {
  VxPngDibToPngFields const & in = info->write;
  auto const * const dib = static_cast<unsigned char const *>(in.dib);
  std::size_t const known = in.dibSize;
  if (known != 0 && known < 4) {
    SetText(info, L"Unexpected BMP header size (%d)", 0);
    return VX_PNG_BAD_BMP;
  }
  std::uint32_t const headerSize = Read32(dib);
  bool const core = headerSize == sizeof(BITMAPCOREHEADER);
  if ((!core && headerSize < sizeof(BITMAPINFOHEADER)) || (known != 0 && headerSize > known)) {
    SetText(info, L"Unexpected BMP header size (%d)", static_cast<int>(headerSize));
    return VX_PNG_BAD_BMP;
  }
  long long width = 0;
  long long height = 0;
  std::uint32_t compression = BI_RGB;
  std::uint32_t used = 0;
  if (core) {
    BITMAPCOREHEADER header{};
    std::memcpy(&header, dib, sizeof header);
    width = header.bcWidth;
    height = header.bcHeight;
    plan.bitCount = header.bcBitCount;
    plan.paletteEntryBytes = 3;
  } else {
    BITMAPINFOHEADER header{};
    std::memcpy(&header, dib, sizeof header);
    width = header.biWidth;
    height = header.biHeight;
    plan.bitCount = header.biBitCount;
    compression = header.biCompression;
    used = header.biClrUsed;
    plan.xPelsPerMeter = header.biXPelsPerMeter;
    plan.yPelsPerMeter = header.biYPelsPerMeter;
  }
  plan.topDown = height < 0;
  height = std::llabs(height);
  if (width < 1 || width > kMaxDimension || height < 1 || height > kMaxDimension) {
    SetText(info, L"Unreasonable image dimensions (%lldx%lld)", width, height);
    return VX_PNG_BAD_BMP;
  }
  plan.width = static_cast<long>(width);
  plan.height = static_cast<long>(height);
  plan.alpha = plan.bitCount == 32 && in.alpha;

  unsigned const bits = plan.bitCount;
  switch (compression) {
    case BI_RGB:
      if (bits != 1 && bits != 2 && bits != 4 && bits != 8 && bits != 16 && bits != 24 &&
          bits != 32) {
        SetText(info, L"Unsupported bit depth (%d)", static_cast<int>(bits));
        return VX_PNG_UNSUPPORTED;
      }
      break;
    case BI_RLE8:
    case BI_RLE4:
    case BI_BITFIELDS: {
      unsigned const wanted = compression == BI_RLE8 ? 8 : 4;
      bool const fits = compression == BI_BITFIELDS ? (bits == 16 || bits == 32) : bits == wanted;
      if (!fits) {
        SetText(info, L"Unsupported bit depth (%d)", static_cast<int>(bits));
        return VX_PNG_UNSUPPORTED;
      }
      break;
    }
    default: SetText(info, L"Unsupported compression scheme"); return VX_PNG_UNSUPPORTED;
  }
  plan.stride = DibStride(plan.width, bits);
  unsigned long long entries = used;
  if (bits < 16 && entries == 0) entries = 1ull << bits;
  unsigned long long const masks = compression == BI_BITFIELDS ? 12 : 0;
  unsigned long long const tableEnd = headerSize + masks + entries * plan.paletteEntryBytes;
  unsigned long long const pixelBytes = static_cast<unsigned long long>(plan.stride) * plan.height;
  bool const compressed = compression == BI_RLE8 || compression == BI_RLE4;
  if (known != 0) {
    unsigned long long const needed =
        tableEnd + (in.bits == nullptr && !compressed ? pixelBytes : 0);
    if (needed > known) return Fail(info, VX_PNG_BAD_BMP);
  }
  if (in.bits != nullptr && in.bitsSize != 0 && !compressed && pixelBytes > in.bitsSize)
    return Fail(info, VX_PNG_BAD_BMP);
  bool const expands = (bits == 16 || bits == 32) && !plan.alpha;
  if ((compressed && pixelBytes > kMaxWriteBufferBytes) ||
      (expands && 3ull * plan.width * plan.height > kMaxWriteBufferBytes))
    return Fail(info, VX_PNG_MEMORY);
  plan.palette = dib + headerSize + masks;
  // A PLTE chunk holds no more entries than the bit depth can index.
  plan.paletteEntries =
      bits <= 8 ? static_cast<unsigned>(std::min<unsigned long long>(entries, 1u << bits)) : 0;
  plan.bits = in.bits != nullptr ? static_cast<unsigned char const *>(in.bits) : dib + tableEnd;

  if (bits == 16 || bits == 32) {
    plan.format = bits == 16 ? PixelFormat::Rgb555 : PixelFormat::Rgb888x;
    if (compression == BI_BITFIELDS) {
      std::uint32_t const red = Read32(dib + headerSize);
      std::uint32_t const green = Read32(dib + headerSize + 4);
      std::uint32_t const blue = Read32(dib + headerSize + 8);
      if (bits == 16 && red == 0xF800 && green == 0x7E0 && blue == 0x1F)
        plan.format = PixelFormat::Rgb565;
      else if (!(bits == 16 && red == 0x7C00 && green == 0x3E0 && blue == 0x1F) &&
               !(bits == 32 && red == 0xFF0000 && green == 0xFF00 && blue == 0xFF))
        return Fail(info, VX_PNG_UNSUPPORTED);
    }
  }
  if (compressed) {
    // Run-length data ends with the block, or with its own size when it lies
    // apart; with neither known, the header's image size is trusted.
    std::size_t size = Read32(dib + offsetof(BITMAPINFOHEADER, biSizeImage));
    if (in.bits != nullptr && in.bitsSize != 0)
      size = in.bitsSize;
    else if (in.bits == nullptr && known != 0)
      size = known - static_cast<std::size_t>(tableEnd);
    plan.decoded = static_cast<unsigned char *>(std::calloc(1, pixelBytes));
    if (plan.decoded == nullptr) return Fail(info, VX_PNG_MEMORY);
    DecodeRle(plan.bits, size, bits, plan.width, plan.height, plan.decoded, plan.stride);
    plan.bits = plan.decoded;
  }
  return VX_PNG_OK;
}

// tEXt holds Latin-1; other characters become '?'.
std::string Latin1(wchar_t const * text) {
  std::string result;
  for (; *text != 0; ++text) result += *text < 256 ? static_cast<char>(*text) : '?';
  return result;
}

// ---- PNG to DIB --------------------------------------------------------

struct ReadPlan {
  png_structp png = nullptr;
  png_infop pngInfo = nullptr;
  std::FILE * file = nullptr;
  png_bytep * rows = nullptr;
  unsigned char * twoBitRows = nullptr;  // a 2-bit picture before it becomes nibbles
};

void ReadFromMemory(png_structp png, png_bytep data, png_size_t length) {
  auto * const info = static_cast<VxPngInfo *>(png_get_io_ptr(png));
  VxPngPngToDibFields & in = info->read;
  if (in.bufferSize != 0 &&
      (in.readPosition > in.bufferSize || length > in.bufferSize - in.readPosition))
    png_error(png, "read error: unexpected end of file");
  std::memcpy(data, in.buffer + in.readPosition, length);
  in.readPosition += length;
}

// The three values corrected from the file's gamma to the screen's.
void AdjustGamma(unsigned char * values, std::size_t count, double fileGamma, double screenGamma) {
  if (std::fabs(fileGamma * screenGamma - 1.0) <= 0.05) return;
  double const exponent = screenGamma > 1e-6 ? 1.0 / (screenGamma * fileGamma) : 1.0;
  for (std::size_t i = 0; i < count; ++i)
    values[i] =
        static_cast<unsigned char>(std::floor(std::pow(values[i] / 255.0, exponent) * 255.0 + 0.5));
}

void * Allocate(VxPngPngToDibFields const & in, std::size_t bytes) {
  return in.allocate != nullptr ? in.allocate(1, bytes) : std::calloc(1, bytes);
}

int ReadSteps(VxPngInfo * info, ReadPlan * plan) {
  VxPngPngToDibFields & in = info->read;
  VxPngFileFacts & facts = in.facts;
  if (setjmp(info->jump) != 0) return VX_PNG_LIBPNG;
  plan->png = png_create_read_struct(PNG_LIBPNG_VER_STRING, info, OnLibpngError, OnLibpngWarning);
  if (plan->png == nullptr) return VX_PNG_VERSION;
  plan->pngInfo = png_create_info_struct(plan->png);
  if (plan->pngInfo == nullptr) return VX_PNG_MEMORY;
  png_set_chunk_malloc_max(plan->png, kMaxChunkBytes);
  png_set_user_limits(plan->png, kMaxDimension, kMaxDimension);
  // Every IDAT chunk's CRC already covers the compressed bytes; zlib's own
  // Adler-32 over the inflated rows would cost a twentieth of the read again.
  png_set_option(plan->png, PNG_IGNORE_ADLER32, PNG_OPTION_ON);
  if (plan->file != nullptr)
    png_init_io(plan->png, plan->file);
  else
    png_set_read_fn(plan->png, info, ReadFromMemory);

  png_read_info(plan->png, plan->pngInfo);
  png_uint_32 width = 0;
  png_uint_32 height = 0;
  int depth = 0;
  int colorType = 0;
  int interlace = 0;
  png_get_IHDR(plan->png, plan->pngInfo, &width, &height, &depth, &colorType, &interlace, nullptr,
               nullptr);
  facts.colorType = colorType;
  facts.bitDepth = depth;
  facts.interlace = interlace;
  int channels = 1;
  if (colorType == PNG_COLOR_TYPE_RGB) channels = 3;
  if (colorType == PNG_COLOR_TYPE_GRAY_ALPHA) channels = 2;
  if (colorType == PNG_COLOR_TYPE_RGB_ALPHA) channels = 4;
  facts.bitsPerPixel = depth * channels;

  bool const hasAlphaChannel = (colorType & PNG_COLOR_MASK_ALPHA) != 0;
  bool const isGrey = (colorType & PNG_COLOR_MASK_COLOR) == 0;
  bool const isPalette = colorType == PNG_COLOR_TYPE_PALETTE;
  bool const hasTrns = png_get_valid(plan->png, plan->pngInfo, PNG_INFO_tRNS) != 0;
  // Grey without alpha of at most 8 bits becomes a DIB with a grey palette.
  bool const lowGrey = isGrey && !hasAlphaChannel && depth <= 8;

  unsigned char background[3] = {255, 128, 0};
  if (in.useCustomBackground) {
    background[0] = in.customRed;
    background[1] = in.customGreen;
    background[2] = in.customBlue;
  }
  bool fileBackground = false;
  bool composed = false;  // png_set_background does the blending
  int transparentIndex = -1;
  bool const withMasks = in.useAlpha && (hasAlphaChannel || hasTrns);
  png_color_16p fileColor = nullptr;
  if (withMasks) {
    if (isGrey) png_set_gray_to_rgb(plan->png);
    if (isPalette) png_set_palette_to_rgb(plan->png);
    if (hasTrns) png_set_tRNS_to_alpha(plan->png);
  } else {
    if (in.useFileBackground && png_get_bKGD(plan->png, plan->pngInfo, &fileColor) != 0) {
      fileBackground = true;
      if (isGrey && depth < 8) {
        unsigned const top = (1u << depth) - 1;
        unsigned const value = std::min<unsigned>(fileColor->gray, top) * 255u / top;
        background[0] = background[1] = background[2] = static_cast<unsigned char>(value);
      } else if (depth <= 8) {
        background[0] = static_cast<unsigned char>(fileColor->red);
        background[1] = static_cast<unsigned char>(fileColor->green);
        background[2] = static_cast<unsigned char>(fileColor->blue);
      } else {
        background[0] = static_cast<unsigned char>(fileColor->red >> 8);
        background[1] = static_cast<unsigned char>(fileColor->green >> 8);
        background[2] = static_cast<unsigned char>(fileColor->blue >> 8);
      }
      facts.hasBackground = true;
      facts.backgroundRed = background[0];
      facts.backgroundGreen = background[1];
      facts.backgroundBlue = background[2];
    }
    bool const transparent = hasAlphaChannel || hasTrns;
    if (transparent && fileBackground && !lowGrey) {
      png_set_background(plan->png, fileColor, PNG_BACKGROUND_GAMMA_FILE, 1, 1.0);
      composed = true;
    } else if (transparent && in.useCustomBackground && !fileBackground) {
      png_color_16 custom{};
      // In the output's format: 16-bit files are stripped to 8 bits, and
      // libpng 1.6 then widens an 8-bit background to 16 bits itself (a
      // background given in 16 bits would be widened twice).
      custom.red = background[0];
      custom.green = background[1];
      custom.blue = background[2];
      if (isGrey) {
        png_set_gray_to_rgb(plan->png);
        if (hasTrns) png_set_tRNS_to_alpha(plan->png);
      }
      png_set_background(plan->png, &custom, PNG_BACKGROUND_GAMMA_SCREEN, 0, 1.0);
      composed = true;
    } else if ((isPalette || lowGrey) && hasTrns) {
      // The one fully transparent entry (a grey's transparent level) is
      // painted in the background colour.
      png_bytep alphas = nullptr;
      int count = 0;
      png_color_16p level = nullptr;
      png_get_tRNS(plan->png, plan->pngInfo, &alphas, &count, &level);
      if (isPalette) {
        for (int i = 0; i < count && transparentIndex < 0; ++i)
          if (alphas[i] == 0) transparentIndex = i;
      } else if (level != nullptr && level->gray < (1u << depth)) {
        transparentIndex = level->gray;
      }
    }
    if (hasAlphaChannel && !composed) png_set_strip_alpha(plan->png);
  }
  if (depth > 8) png_set_strip_16(plan->png);

  double fileGamma = 0.0;
  int intent = 0;
  if (png_get_sRGB(plan->png, plan->pngInfo, &intent) != 0) {
    fileGamma = kSrgbGamma;
    facts.hasGamma = true;
  } else if (png_get_gAMA(plan->png, plan->pngInfo, &fileGamma) != 0) {
    facts.hasGamma = true;
  }
  facts.gamma = fileGamma;
  double const assumedGamma = facts.hasGamma && fileGamma > 0.0 ? fileGamma : kSrgbGamma;
  // Grey still read through a palette has its ramp corrected by the table;
  // everything else by libpng. A background libpng does not blend in is
  // corrected like the ramp.
  bool const paletteGrey = lowGrey && !composed;
  bool const adjustTable = in.screenGammaFlag && paletteGrey;
  if (in.screenGammaFlag) {
    if (!paletteGrey) png_set_gamma(plan->png, in.screenGamma, assumedGamma);
    if (!composed) AdjustGamma(background, 3, assumedGamma, in.screenGamma);
  }
  png_set_bgr(plan->png);  // acts on colour rows only

  png_read_update_info(plan->png, plan->pngInfo);
  int const outType = png_get_color_type(plan->png, plan->pngInfo);
  int const outDepth = png_get_bit_depth(plan->png, plan->pngInfo);
  unsigned bitCount = 0;
  unsigned entries = 0;
  png_colorp fileColors = nullptr;
  int fileColorCount = 0;
  switch (outType) {
    case PNG_COLOR_TYPE_GRAY:
    case PNG_COLOR_TYPE_GRAY_ALPHA:
      bitCount = static_cast<unsigned>(outDepth);
      entries = 1u << std::min(outDepth, 8);
      break;
    case PNG_COLOR_TYPE_RGB: bitCount = 24; break;
    case PNG_COLOR_TYPE_PALETTE:
      bitCount = static_cast<unsigned>(outDepth);
      if (png_get_PLTE(plan->png, plan->pngInfo, &fileColors, &fileColorCount) == 0)
        fileColorCount = 0;
      entries = static_cast<unsigned>(fileColorCount);
      break;
    case PNG_COLOR_TYPE_RGB_ALPHA: bitCount = 32; break;
    default: return VX_PNG_BAD_PNG;
  }
  if (outType == PNG_COLOR_TYPE_GRAY_ALPHA) return VX_PNG_BAD_PNG;  // no DIB carries it
  bool const twoBit = bitCount == 2;
  if (twoBit) bitCount = 4;

  png_uint_32 resolutionX = 0;
  png_uint_32 resolutionY = 0;
  int unit = 0;
  if (png_get_pHYs(plan->png, plan->pngInfo, &resolutionX, &resolutionY, &unit) != 0 &&
      resolutionX != 0 && resolutionY != 0) {
    facts.hasResolution = true;
    facts.resolutionX = resolutionX;
    facts.resolutionY = resolutionY;
    facts.resolutionUnit = unit;
  }

  // Sizes in 64 bits: a huge IHDR is refused here, before anything is allocated.
  bool const masks = outType == PNG_COLOR_TYPE_RGB_ALPHA && withMasks;
  unsigned long long const stride =
      (static_cast<unsigned long long>(bitCount) * width + 31) / 32 * 4;
  unsigned long long const tableSize = (entries + 10ull) * 4 + (masks ? 12 : 0);
  unsigned long long const total = tableSize + stride * height;
  if (total > in.maxDibBytes) return VX_PNG_MEMORY;
  in.dib = Allocate(in, static_cast<std::size_t>(total));
  if (in.dib == nullptr) return VX_PNG_MEMORY;
  auto * const block = static_cast<unsigned char *>(in.dib);
  in.dibSize = static_cast<std::size_t>(total);
  in.headerSize = sizeof(BITMAPINFOHEADER);
  in.colorTableSize = static_cast<std::size_t>(tableSize);
  in.bitsSize = static_cast<std::size_t>(stride * height);
  in.paletteSize = entries * 4u;
  in.palette = entries > 0 ? block + sizeof(BITMAPINFOHEADER) : nullptr;
  in.bits = block + tableSize;

  BITMAPINFOHEADER header{};
  header.biSize = sizeof header;
  header.biWidth = static_cast<std::int32_t>(width);
  header.biHeight = static_cast<std::int32_t>(height);
  header.biPlanes = 1;
  header.biBitCount = static_cast<std::uint16_t>(bitCount);
  header.biClrUsed = entries;
  header.biCompression = masks ? BI_BITFIELDS : BI_RGB;
  std::memcpy(block, &header, sizeof header);
  if (masks) {
    std::uint32_t const values[3] = {0xFF0000, 0xFF00, 0xFF};
    std::memcpy(block + sizeof header, values, sizeof values);
  }
  auto * const palette = static_cast<unsigned char *>(in.palette);
  for (unsigned i = 0; i < entries; ++i) {
    unsigned char * const entry = palette + 4 * i;
    if (fileColors != nullptr) {
      entry[0] = fileColors[i].blue;
      entry[1] = fileColors[i].green;
      entry[2] = fileColors[i].red;
    } else {
      unsigned char level = static_cast<unsigned char>(entries > 1 ? i * 255 / (entries - 1) : 0);
      if (adjustTable) AdjustGamma(&level, 1, assumedGamma, in.screenGamma);
      entry[0] = entry[1] = entry[2] = level;
    }
    if (static_cast<int>(i) == transparentIndex) {
      entry[0] = background[2];
      entry[1] = background[1];
      entry[2] = background[0];
    }
  }

  plan->rows = static_cast<png_bytep *>(std::malloc(height * sizeof(png_bytep)));
  if (plan->rows == nullptr) return VX_PNG_MEMORY;
  std::size_t const sideStride = (width + 3) / 4;
  if (twoBit) {
    plan->twoBitRows = static_cast<unsigned char *>(std::malloc(sideStride * height + 1));
    if (plan->twoBitRows == nullptr) return VX_PNG_MEMORY;
  }
  auto * const bits = static_cast<unsigned char *>(in.bits);
  for (png_uint_32 i = 0; i < height; ++i)
    plan->rows[i] = twoBit ? plan->twoBitRows + sideStride * i : bits + stride * (height - 1 - i);
  png_read_image(plan->png, plan->rows);
  if (twoBit) {
    for (png_uint_32 i = 0; i < height; ++i) {
      unsigned char const * const source = plan->twoBitRows + sideStride * i;
      unsigned char * const target = bits + stride * (height - 1 - i);
      for (png_uint_32 x = 0; x < width; ++x) {
        unsigned const pixel = (source[x / 4] >> (6 - 2 * (x % 4))) & 3;
        target[x / 2] |= static_cast<unsigned char>(x % 2 == 0 ? pixel << 4 : pixel);
      }
    }
  }
  png_read_end(plan->png, nullptr);
  return VX_PNG_OK;
}

}  // namespace

VxPngInfo * VxPngCreate(int kind) {
  if (kind != VX_PNG_DIB_TO_PNG && kind != VX_PNG_PNG_TO_DIB) return nullptr;
  auto * const info = new (std::nothrow) VxPngInfo;
  if (info == nullptr) return nullptr;
  info->kind = kind;
  info->errorText = static_cast<wchar_t *>(std::calloc(kVxPngErrorTextLength, sizeof(wchar_t)));
  if (info->errorText == nullptr) {
    delete info;
    return nullptr;
  }
  return info;
}

void VxPngFree(VxPngInfo * info) {
  if (info == nullptr) return;
  std::free(info->errorText);
  std::free(info->write.outputFile);
  std::free(info->write.software);
  std::free(info->read.inputFile);
  delete info;
}

bool VxPngSetOutputFile(VxPngInfo * info, wchar_t const * name) {
  return Replace(info->write.outputFile, name);
}

bool VxPngSetSoftware(VxPngInfo * info, wchar_t const * text) {
  return Replace(info->write.software, text);
}

bool VxPngSetInputFile(VxPngInfo * info, wchar_t const * name) {
  info->read.source = VX_PNG_FROM_FILE;
  return Replace(info->read.inputFile, name);
}

void VxPngSetInputMemory(VxPngInfo * info, void const * data, std::size_t size) {
  info->read.source = VX_PNG_FROM_MEMORY;
  info->read.buffer = static_cast<unsigned char const *>(data);
  info->read.bufferSize = size;
  info->read.readPosition = 0;
}

int VxDibToPng(VxPngInfo * info) {
  if (info == nullptr) return VX_PNG_UNKNOWN;
  info->errorText[0] = 0;
  if (info->kind != VX_PNG_DIB_TO_PNG) return Fail(info, VX_PNG_UNKNOWN);
  if (info->write.outputFile == nullptr || info->write.outputFile[0] == 0) {
    SetText(info, L"Output filename not set");
    return VX_PNG_UNKNOWN;
  }
  if (info->write.dib == nullptr) {
    SetText(info, L"Input DIB not set");
    return VX_PNG_UNKNOWN;
  }
  WritePlan plan;
  int code = PlanWrite(info, plan);
  std::string const software =
      info->write.software != nullptr ? Latin1(info->write.software) : std::string();
  if (info->write.software != nullptr) plan.software = software.c_str();
  ReplacingFile target(Utf8(info->write.outputFile));
  if (code == VX_PNG_OK) {
    plan.file = target.Open();
    if (plan.file == nullptr) code = VX_PNG_WRITE;
  }
  if (code == VX_PNG_OK) code = WriteSteps(info, &plan);
  if (plan.png != nullptr) png_destroy_write_struct(&plan.png, &plan.pngInfo);
  std::free(plan.rows);
  std::free(plan.expanded);
  std::free(plan.decoded);
  if (code == VX_PNG_OK && !target.Commit()) code = VX_PNG_WRITE;
  return code == VX_PNG_OK ? code : Fail(info, code);
}

int VxPngToDib(VxPngInfo * info) {
  if (info == nullptr) return VX_PNG_UNKNOWN;
  info->errorText[0] = 0;
  if (info->kind != VX_PNG_PNG_TO_DIB) return Fail(info, VX_PNG_UNKNOWN);
  VxPngPngToDibFields & in = info->read;
  in.facts = VxPngFileFacts();
  in.dib = in.palette = in.bits = nullptr;
  in.dibSize = in.headerSize = in.colorTableSize = in.bitsSize = in.paletteSize = 0;
  ReadPlan plan;
  if (in.source == VX_PNG_FROM_FILE) {
    if (in.inputFile == nullptr || in.inputFile[0] == 0) {
      SetText(info, L"Input filename not set");
      return VX_PNG_UNKNOWN;
    }
    plan.file = std::fopen(Utf8(in.inputFile).c_str(), "rb");
    if (plan.file == nullptr) return Fail(info, VX_PNG_READ);
  } else {
    if (in.buffer == nullptr) return Fail(info, VX_PNG_READ);
    in.readPosition = 0;
  }
  int const code = ReadSteps(info, &plan);
  if (plan.png != nullptr) png_destroy_read_struct(&plan.png, &plan.pngInfo, nullptr);
  if (plan.file != nullptr) std::fclose(plan.file);
  std::free(plan.rows);
  std::free(plan.twoBitRows);
  if (code == VX_PNG_OK) return code;
  VxPngFreeDib(info);
  return Fail(info, code);
}

void VxPngFreeDib(VxPngInfo * info) {
  VxPngPngToDibFields & in = info->read;
  if (in.dib != nullptr) {
    if (in.free != nullptr)
      in.free(in.dib);
    else
      std::free(in.dib);
  }
  in.dib = in.palette = in.bits = nullptr;
  in.dibSize = in.bitsSize = in.paletteSize = 0;
}

wchar_t const * VxPngDefaultErrorText(int code) {
  static wchar_t const * const texts[] = {
      L"",
      L"Unknown error",
      L"Incompatible library version",
      L"Unable to allocate memory",
      L"Invalid or unsupported image",
      L"libpng reported an error",
      L"Invalid BMP image",
      L"Invalid PNG image",
      L"Unable to read file",
      L"Unable to write file",
  };
  return code >= 0 && code <= 9 ? texts[code] : texts[1];
}
