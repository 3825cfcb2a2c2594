#include "pictures/IStreamDevice.h"

#include <gsf/gsf-input.h>
#include <gsf/gsf-output.h>

#include <algorithm>

namespace {

template <typename T>
std::shared_ptr<T> Hold(T * object) {
  if (object != nullptr) g_object_ref(object);
  return std::shared_ptr<T>(object, [](T * held) {
    if (held != nullptr) g_object_unref(held);
  });
}

GSeekType SeekType(std::ios_base::seekdir way) {
  if (way == std::ios_base::beg) return G_SEEK_SET;
  if (way == std::ios_base::cur) return G_SEEK_CUR;
  if (way == std::ios_base::end) return G_SEEK_END;
  throw IStreamDevice::IStreamDeviceError("seek failed");
}

}  // namespace

IStreamDevice::IStreamDevice(GsfInput * input) : mInput(Hold(input)) {}

IStreamDevice::IStreamDevice(GsfOutput * output) : mOutput(Hold(output)) {}

std::streamsize IStreamDevice::read(char * s, std::streamsize n) {
  if (!mInput || n < 0) throw IStreamDeviceError("read failed.");
  gsf_off_t const remaining = gsf_input_remaining(mInput.get());
  if (remaining <= 0) return n == 0 ? 0 : -1;
  size_t const count = static_cast<size_t>(std::min<gsf_off_t>(remaining, n));
  if (gsf_input_read(mInput.get(), count, reinterpret_cast<guint8 *>(s)) == nullptr)
    throw IStreamDeviceError("read failed.");
  return static_cast<std::streamsize>(count);
}

std::streamsize IStreamDevice::write(char const * s, std::streamsize n) {
  if (!mOutput || n < 0 ||
      !gsf_output_write(mOutput.get(), static_cast<size_t>(n), reinterpret_cast<guint8 const *>(s)))
    throw IStreamDeviceError("write failed.");
  return n;
}

std::streampos IStreamDevice::seek(boost::iostreams::stream_offset offset,
                                   std::ios_base::seekdir way) {
  GSeekType const type = SeekType(way);
  if (mInput) {
    // gsf_input_seek answers true on failure.
    if (gsf_input_seek(mInput.get(), offset, type)) throw IStreamDeviceError("seek failed");
    return std::streampos(gsf_input_tell(mInput.get()));
  }
  if (!mOutput || !gsf_output_seek(mOutput.get(), offset, type))
    throw IStreamDeviceError("seek failed");
  return std::streampos(gsf_output_tell(mOutput.get()));
}
