#pragma once
// A seekable Boost.Iostreams device on a stream of a compound file (libgsf):
// reads and seeks a GsfInput, or writes and seeks a GsfOutput.
//   boost::iostreams::stream<IStreamDevice> in(IStreamDevice(gsfInput));
// The device holds a reference to the gsf object, so copies (which
// Boost.Iostreams makes) keep it alive.

#include <boost/iostreams/categories.hpp>
#include <boost/iostreams/positioning.hpp>

#include <ios>
#include <memory>

struct _GsfInput;
struct _GsfOutput;

class IStreamDevice {
public:
  typedef char char_type;
  typedef boost::iostreams::seekable_device_tag category;

  // Failures: "read failed.", "write failed.", "seek failed".
  class IStreamDeviceError : public std::ios_base::failure {
  public:
    explicit IStreamDeviceError(char const * what) : std::ios_base::failure(what) {}
  };

  explicit IStreamDevice(_GsfInput * input);
  explicit IStreamDevice(_GsfOutput * output);

  // Up to n bytes; -1 at the end of the stream.
  std::streamsize read(char * s, std::streamsize n);
  std::streamsize write(char const * s, std::streamsize n);
  std::streampos seek(boost::iostreams::stream_offset offset, std::ios_base::seekdir way);

private:
  std::shared_ptr<_GsfInput> mInput;
  std::shared_ptr<_GsfOutput> mOutput;
};
