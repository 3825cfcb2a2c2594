#include "pictures/CompoundFile.h"

#include <gsf/gsf-infile-msole.h>
#include <gsf/gsf-infile.h>
#include <gsf/gsf-input-memory.h>
#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-outfile.h>
#include <gsf/gsf-output-memory.h>
#include <gsf/gsf-utils.h>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <mutex>

#include "pictures/CompoundFileStream.h"
#include "utl/Utf.h"
#include "utl/WholeFile.h"

namespace vx3 {

namespace {

// Deeper nesting than this is no art archive; it only costs stack.
constexpr int kMaxStorageDepth = 8;
constexpr size_t kCopyChunk = 64 * 1024;

void InitGsf() {
  static std::once_flag once;
  std::call_once(once, [] { gsf_init(); });
}

std::string Message(GError * error, std::string const & what) {
  std::string text = what;
  if (error != nullptr) {
    text += ": ";
    text += error->message;
    g_error_free(error);
  }
  return text;
}

void CopyStream(GsfInput * from, GsfOutput * to) {
  guint8 buffer[kCopyChunk];
  for (gsf_off_t remaining = gsf_input_remaining(from); remaining > 0;) {
    size_t const count = remaining < static_cast<gsf_off_t>(kCopyChunk) ? remaining : kCopyChunk;
    if (gsf_input_read(from, count, buffer) == nullptr || !gsf_output_write(to, count, buffer))
      throw CompoundFileError("copying a stream failed");
    remaining -= static_cast<gsf_off_t>(count);
  }
}

void CopyChildren(GsfInfile * from, GsfOutfile * to, std::set<std::string> const & except,
                  int depth) {
  if (depth > kMaxStorageDepth) throw CompoundFileError("storages nested too deeply");
  int const count = gsf_infile_num_children(from);
  for (int i = 0; i < count; ++i) {
    char const * name = gsf_infile_name_by_index(from, i);
    if (name == nullptr || except.count(name) != 0) continue;
    GsfPtr<GsfInput> child(gsf_infile_child_by_index(from, i));
    if (!child) throw CompoundFileError("a stream cannot be opened");
    bool const storage =
        GSF_IS_INFILE(child.get()) && gsf_infile_num_children(GSF_INFILE(child.get())) >= 0;
    GsfPtr<GsfOutput> copy(gsf_outfile_new_child(to, name, storage));
    if (!copy) throw CompoundFileError("a stream cannot be made");
    if (storage)
      CopyChildren(GSF_INFILE(child.get()), GSF_OUTFILE(copy.get()), {}, depth + 1);
    else
      CopyStream(child.get(), copy.get());
    if (!gsf_output_close(copy.get())) throw CompoundFileError("a stream cannot be closed");
  }
}

}  // namespace

void GsfUnref::operator()(void * object) const {
  if (object != nullptr) g_object_unref(object);
}

bool IsValidStreamName(std::string_view utf8Name) {
  if (utf8Name.empty()) return false;
  size_t units = 0;
  for (char32_t const code : Utf8ToUtf32(utf8Name)) units += code > 0xFFFF ? 2 : 1;
  // Invalid UTF-8 is dropped by the conversion; such a name is refused too.
  return units <= kMaxStreamNameUnits && Utf32ToUtf8(Utf8ToUtf32(utf8Name)) == utf8Name;
}

CompoundFileReader::CompoundFileReader(std::string const & path) {
  // Read whole, so that the bytes checked are the bytes libgsf reads.
  int const code = vx3::ReadFileBytes(path, mBytes);
  if (code != 0) throw CompoundFileError(path + ": " + std::strerror(code));
  Open(mBytes, path);
}

CompoundFileReader::CompoundFileReader(std::string_view bytes) { Open(bytes, "memory"); }

void CompoundFileReader::Open(std::string_view bytes, std::string const & what) {
  InitGsf();
  std::string const damage = FindCompoundFileDamage(bytes);
  if (!damage.empty()) throw CompoundFileError(what + ": " + damage);
  GsfPtr<GsfInput> input(
      gsf_input_memory_new(reinterpret_cast<guint8 const *>(bytes.data()), bytes.size(), FALSE));
  GError * error = nullptr;
  mRoot.reset(gsf_infile_msole_new(input.get(), &error));
  if (!mRoot) throw CompoundFileError(Message(error, what + " is no compound file"));
}

CompoundFileReader::~CompoundFileReader() = default;

bool CompoundFileReader::Lists(std::string const & name) const {
  int const count = gsf_infile_num_children(mRoot.get());
  for (int i = 0; i < count; ++i) {
    char const * const listed = gsf_infile_name_by_index(mRoot.get(), i);
    if (listed != nullptr && name == listed) return true;
  }
  return false;
}

CompoundFileWriter::CompoundFileWriter() {
  InitGsf();
  mMemory.reset(gsf_output_memory_new());
  mRoot.reset(gsf_outfile_msole_new(mMemory.get()));
  if (!mRoot) throw CompoundFileError("a compound file cannot be made");
}

CompoundFileWriter::~CompoundFileWriter() {
  if (mRoot && !gsf_output_is_closed(GSF_OUTPUT(mRoot.get())))
    gsf_output_close(GSF_OUTPUT(mRoot.get()));
}

GsfPtr<GsfOutput> CompoundFileWriter::CreateStream(std::string const & name) {
  if (!IsValidStreamName(name)) throw CompoundFileError("invalid stream name " + name);
  GsfPtr<GsfOutput> stream(gsf_outfile_new_child(mRoot.get(), name.c_str(), FALSE));
  if (!stream) throw CompoundFileError("the stream " + name + " cannot be made");
  return stream;
}

void CompoundFileWriter::AddStream(std::string const & name, std::string_view bytes) {
  GsfPtr<GsfOutput> const stream = CreateStream(name);
  bool const written =
      gsf_output_write(stream.get(), bytes.size(), reinterpret_cast<guint8 const *>(bytes.data()));
  if (!gsf_output_close(stream.get()) || !written)
    throw CompoundFileError("the stream " + name + " cannot be written");
}

void CompoundFileWriter::CopyFrom(CompoundFileReader const & source,
                                  std::set<std::string> const & except) {
  CopyChildren(source.Root(), mRoot.get(), except, 0);
}

std::string CompoundFileWriter::Finish() {
  if (!gsf_output_close(GSF_OUTPUT(mRoot.get())))
    throw CompoundFileError("the compound file cannot be completed");
  GsfOutputMemory * const memory = GSF_OUTPUT_MEMORY(mMemory.get());
  guint8 const * const data = gsf_output_memory_get_bytes(memory);
  gsf_off_t const size = gsf_output_size(mMemory.get());
  return std::string(reinterpret_cast<char const *>(data), static_cast<size_t>(size));
}

}  // namespace vx3
