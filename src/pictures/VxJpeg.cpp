#include "pictures/VxJpeg.h"

#include <algorithm>
#include <csetjmp>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <istream>
#include <sstream>

#include <jpeglib.h>

// After jpeglib.h, which it needs.
#include <jerror.h>

#include <wx/image.h>

#include "pictures/ArtJpeg.h"
#include "platform/ResourceModule.h"
#include "platform/ResourceModuleData.h"

// libjpeg reports a fatal error through error_exit, which must not return;
// throwing through its C frames is unsafe, so it jumps back to ReadJpeg's
// decoding steps. Those hold nothing with a destructor: their state is a
// plain struct that ReadJpeg frees.

namespace {

constexpr std::size_t kSourceBufferBytes = 1024;

struct StreamSource {
  jpeg_source_mgr base;
  std::istream * stream;
  JOCTET buffer[kSourceBufferBytes];
};

struct DecodeState {
  jpeg_decompress_struct info;
  jpeg_error_mgr error;
  jpeg_progress_mgr progress;
  StreamSource source;
  std::jmp_buf jump;
  VxJpeg * owner;
  int maxScans;
  HDIB dib;
  JSAMPROW * rows;
};

DecodeState * StateOf(j_common_ptr info) {
  // The error manager is a member of the state; libjpeg only knows it.
  return reinterpret_cast<DecodeState *>(reinterpret_cast<char *>(info->err) -
                                         offsetof(DecodeState, error));
}

void JumpOnError(j_common_ptr info) {
  char message[JMSG_LENGTH_MAX];
  (*info->err->format_message)(info, message);
  DecodeState * const state = StateOf(info);
  state->owner->AddDecompressMessage(message);
  std::longjmp(state->jump, 1);
}

void ForwardMessage(j_common_ptr info) {
  char message[JMSG_LENGTH_MAX];
  (*info->err->format_message)(info, message);
  StateOf(info)->owner->AddDecompressMessage(message);
}

// A progressive file with endless scans is stopped early.
void LimitScans(j_common_ptr info) {
  DecodeState * const state = StateOf(info);
  if (state->info.input_scan_number > state->maxScans) {
    state->owner->AddDecompressMessage("too many scans");
    std::longjmp(state->jump, 1);
  }
}

void InitSource(j_decompress_ptr /*info*/) {}

boolean FillInput(j_decompress_ptr info) {
  auto * const source = reinterpret_cast<StreamSource *>(info->src);
  source->stream->read(reinterpret_cast<char *>(source->buffer), kSourceBufferBytes);
  auto count = static_cast<std::size_t>(source->stream->gcount());
  if (count == 0) {
    // A file cut short ends in a made-up end-of-image marker, as libjpeg's
    // own sources do: the rows decoded so far are shown.
    WARNMS(info, JWRN_JPEG_EOF);
    source->buffer[0] = 0xFF;
    source->buffer[1] = JPEG_EOI;
    count = 2;
  }
  source->base.next_input_byte = source->buffer;
  source->base.bytes_in_buffer = count;
  return TRUE;
}

void SkipInput(j_decompress_ptr info, long count) {
  auto * const source = reinterpret_cast<StreamSource *>(info->src);
  while (count > 0) {
    if (source->base.bytes_in_buffer == 0) FillInput(info);
    std::size_t const step = std::min<std::size_t>(source->base.bytes_in_buffer, count);
    source->base.next_input_byte += step;
    source->base.bytes_in_buffer -= step;
    count -= static_cast<long>(step);
  }
}

void TermSource(j_decompress_ptr /*info*/) {}

bool DecodeSteps(DecodeState * state) {
  if (setjmp(state->jump) != 0) return false;
  jpeg_read_header(&state->info, TRUE);
  state->info.out_color_space = JCS_RGB;
  jpeg_calc_output_dimensions(&state->info);
  vx3::JpegDecodeLimits const limits;
  unsigned long long const width = state->info.output_width;
  unsigned long long const height = state->info.output_height;
  if (width == 0 || height == 0 || width > static_cast<unsigned>(limits.maxWidth) ||
      height > static_cast<unsigned>(limits.maxHeight) || width * height > limits.maxPixels) {
    char message[96];
    std::snprintf(message, sizeof message, "JPEG of %llu x %llu pixels is too large", width,
                  height);
    state->owner->AddDecompressMessage(message);
    return false;
  }
  jpeg_start_decompress(&state->info);
  if (state->info.output_components != 3) {
    state->owner->AddDecompressMessage("unsupported colour space");
    return false;
  }
  std::size_t const stride =
      (static_cast<std::size_t>(state->info.output_components) * width + 3) / 4 * 4;
  state->dib = GlobalAlloc(sizeof(BITMAPINFOHEADER) + stride * height);
  state->rows = static_cast<JSAMPROW *>(std::malloc(height * sizeof(JSAMPROW)));
  if (state->dib == nullptr || state->rows == nullptr) {
    state->owner->AddDecompressMessage("not enough memory for the picture");
    return false;
  }
  auto * const block = static_cast<unsigned char *>(GlobalLock(state->dib));
  unsigned char * const bits = block + sizeof(BITMAPINFOHEADER);
  for (std::size_t i = 0; i < height; ++i) state->rows[i] = bits + stride * i;
  while (state->info.output_scanline < state->info.output_height) {
    JDIMENSION const done = state->info.output_scanline;
    jpeg_read_scanlines(&state->info, state->rows + done, state->info.output_height - done);
  }
  // libjpeg gives red first; a DIB holds blue first.
  for (std::size_t i = 0; i < height; ++i)
    for (std::size_t x = 0; x < width; ++x)
      std::swap(state->rows[i][3 * x], state->rows[i][3 * x + 2]);
  BITMAPINFOHEADER header{};
  header.biSize = sizeof header;
  header.biWidth = static_cast<std::int32_t>(width);
  header.biHeight = -static_cast<std::int32_t>(height);
  header.biPlanes = 1;
  header.biBitCount = 24;
  std::memcpy(block, &header, sizeof header);
  jpeg_finish_decompress(&state->info);
  return true;
}

}  // namespace

VxJpeg::VxJpeg(unsigned int resourceId) {
  HINSTANCE const module = AfxGetResourceHandle();
  std::string const bytes =
      module != nullptr ? LoadResourceBytes(module, resourceId, RT_RCDATA) : std::string();
  if (module == nullptr || bytes.empty()) {
    AddDecompressMessage("VxJpeg: Resource could not be found!");
    return;
  }
  std::istringstream stream(bytes);
  ReadJpeg(&stream);
}

VxJpeg::VxJpeg(std::istream & stream) { ReadJpeg(&stream); }

VxJpeg::~VxJpeg() { GlobalFree(dib_); }

void VxJpeg::AddDecompressMessage(char const * message) {
  if (!errorMessage_.empty()) errorMessage_ += '\n';
  errorMessage_ += message;
}

bool VxJpeg::ReadJpeg(std::istream * stream) {
  dib_ = GlobalFree(dib_);
  bitmap_ = wxBitmap();
  auto * const state = static_cast<DecodeState *>(std::calloc(1, sizeof(DecodeState)));
  if (state == nullptr) {
    AddDecompressMessage("not enough memory for the decoder");
    return false;
  }
  state->owner = this;
  state->maxScans = vx3::JpegDecodeLimits().maxScans;
  state->info.err = jpeg_std_error(&state->error);
  state->error.error_exit = JumpOnError;
  state->error.output_message = ForwardMessage;
  jpeg_CreateDecompress(&state->info, JPEG_LIB_VERSION, sizeof(jpeg_decompress_struct));
  state->progress.progress_monitor = LimitScans;
  state->info.progress = &state->progress;
  state->info.mem->max_memory_to_use = 512L << 20;
  state->source.stream = stream;
  state->source.base.init_source = InitSource;
  state->source.base.fill_input_buffer = FillInput;
  state->source.base.skip_input_data = SkipInput;
  state->source.base.resync_to_restart = jpeg_resync_to_restart;
  state->source.base.term_source = TermSource;
  state->info.src = &state->source.base;
  bool const decoded = DecodeSteps(state);
  jpeg_destroy_decompress(&state->info);
  std::free(state->rows);
  if (decoded)
    dib_ = state->dib;
  else
    GlobalFree(state->dib);
  std::free(state);
  return decoded;
}

wxBitmap const & VxJpeg::GetBitMap() {
  if (bitmap_.IsOk() || dib_ == nullptr) return bitmap_;
  auto const * const block = static_cast<unsigned char const *>(GlobalLock(dib_));
  BITMAPINFOHEADER header{};
  std::memcpy(&header, block, sizeof header);
  int const width = header.biWidth;
  int const height = -header.biHeight;
  std::size_t const stride = (static_cast<std::size_t>(width) * 3 + 3) / 4 * 4;
  wxImage image(width, height, false);
  unsigned char * target = image.GetData();
  for (int y = 0; y < height; ++y) {
    unsigned char const * source = block + sizeof header + stride * y;
    for (int x = 0; x < width; ++x, source += 3, target += 3) {
      target[0] = source[2];
      target[1] = source[1];
      target[2] = source[0];
    }
  }
  bitmap_ = wxBitmap(image, 24);
  return bitmap_;
}
