#include "frame/AppConfigPackage.h"

#include <dirent.h>
#include <zip.h>

#include <algorithm>
#include <memory>

#include "utl/Exception.h"
#include "utl/Paths.h"
#include "utl/VxSystemInfo.h"
#include "utl/WholeFile.h"
#include "utl/XmlTree.h"

namespace {

constexpr char kPackageExtension[] = ".appconfig";

bool EqualsNoCase(std::string const & a, char const * b) {
  size_t const length = std::char_traits<char>::length(b);
  if (a.size() != length) return false;
  for (size_t i = 0; i < length; ++i) {
    auto lower = [](unsigned char c) { return c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c; };
    if (lower(static_cast<unsigned char>(a[i])) != lower(static_cast<unsigned char>(b[i])))
      return false;
  }
  return true;
}

bool EndsWithNoCase(std::string const & text, char const * suffix) {
  size_t const length = std::char_traits<char>::length(suffix);
  return text.size() >= length && EqualsNoCase(text.substr(text.size() - length), suffix);
}

[[noreturn]] void Refuse(char const * id, std::string const & source, std::string const & detail) {
  throw Exception(ExceptionMessage::translate(id) % source % detail);
}

struct ArchiveClose {
  void operator()(zip_t * archive) const { zip_discard(archive); }
};
struct EntryClose {
  void operator()(zip_file_t * file) const { zip_fclose(file); }
};

std::string ArchiveError(zip_t * archive) { return zip_strerror(archive); }

bool IsUsableAppName(std::string const & name) {
  if (name == "." || name == "..") return false;
  return std::none_of(name.begin(), name.end(), [](char c) {
    return c == '/' || c == '\\' || static_cast<unsigned char>(c) < 0x20 || c == 0x7f;
  });
}

}  // namespace

std::string AppConfigPackage::FindPackage(std::string const & folder) {
  std::unique_ptr<DIR, int (*)(DIR *)> directory(::opendir(folder.c_str()), ::closedir);
  if (!directory) return "";
  std::vector<std::string> names;
  while (dirent const * item = ::readdir(directory.get())) {
    std::string const name = item->d_name;
    if (name.size() > sizeof kPackageExtension - 1 && EndsWithNoCase(name, kPackageExtension) &&
        VxFileExist(VxPathAppend(folder, name)) == VxFile)
      names.push_back(name);
  }
  if (names.empty()) return "";
  return VxPathAppend(folder, *std::min_element(names.begin(), names.end()));
}

AppConfigPackage::AppConfigPackage(std::string const & path, Limits const & limits)
    : mSource(path) {
  std::string bytes;
  try {
    if (!vx3::ReadWholeFile(path, limits.maxPackageBytes, bytes))
      Refuse("The customization package {1} cannot be read: {2}", path, "it does not exist");
  } catch (Exception const & error) {
    Refuse("The customization package {1} cannot be read: {2}", path, error.Why());
  }
  Read(bytes, limits);
}

AppConfigPackage::AppConfigPackage(std::string const & bytes, std::string source,
                                   Limits const & limits)
    : mSource(std::move(source)) {
  if (bytes.size() > limits.maxPackageBytes)
    Refuse("The customization package {1} cannot be read: {2}", mSource, "it is too large");
  Read(bytes, limits);
}

void AppConfigPackage::Read(std::string const & bytes, Limits const & limits) {
  // libzip takes an empty source for a new, empty archive.
  if (bytes.empty())
    Refuse("The customization package {1} is not a readable ZIP archive: {2}", mSource,
           "the file is empty");
  zip_error_t error;
  zip_error_init(&error);
  zip_source_t * source = zip_source_buffer_create(bytes.data(), bytes.size(), 0, &error);
  if (source == nullptr) {
    std::string const detail = zip_error_strerror(&error);
    zip_error_fini(&error);
    Refuse("The customization package {1} cannot be read: {2}", mSource, detail);
  }
  // No ZIP_CHECKCONS: common archivers (libarchive, jar) write local headers
  // that it calls inconsistent. Each entry's checksum is verified when it is
  // read to its end below, which is what matters.
  std::unique_ptr<zip_t, ArchiveClose> archive(zip_open_from_source(source, ZIP_RDONLY, &error));
  if (!archive) {
    std::string const detail = zip_error_strerror(&error);
    zip_error_fini(&error);
    zip_source_free(source);
    Refuse("The customization package {1} is not a readable ZIP archive: {2}", mSource, detail);
  }
  zip_error_fini(&error);

  zip_int64_t const count = zip_get_num_entries(archive.get(), 0);
  if (count < 0 || static_cast<zip_uint64_t>(count) > limits.maxEntries)
    Refuse("The customization package {1} cannot be read: {2}", mSource,
           "it holds too many entries");
  size_t total = 0;
  std::vector<char> buffer(64 * 1024);
  for (zip_uint64_t index = 0; index < static_cast<zip_uint64_t>(count); ++index) {
    char const * name = zip_get_name(archive.get(), index, ZIP_FL_ENC_GUESS);
    if (name == nullptr)
      Refuse("The customization package {1} cannot be read: {2}", mSource,
             ArchiveError(archive.get()));
    Entry entry{name, {}};
    std::unique_ptr<zip_file_t, EntryClose> file(zip_fopen_index(archive.get(), index, 0));
    if (!file)
      Refuse("The entry {2} of the customization package {1} cannot be read.", mSource,
             entry.name + ": " + ArchiveError(archive.get()));
    // Inflate in pieces and stop one piece past the limit, whatever size the
    // archive declares for the entry.
    for (;;) {
      zip_int64_t const got = zip_fread(file.get(), buffer.data(), buffer.size());
      if (got < 0)
        Refuse("The entry {2} of the customization package {1} cannot be read.", mSource,
               entry.name + ": " + zip_file_strerror(file.get()));
      if (got == 0) break;
      entry.bytes.append(buffer.data(), static_cast<size_t>(got));
      if (entry.bytes.size() > limits.maxEntryBytes ||
          total + entry.bytes.size() > limits.maxTotalBytes)
        Refuse("The entry {2} of the customization package {1} inflates beyond the limit.", mSource,
               entry.name);
    }
    total += entry.bytes.size();
    mEntries.push_back(std::move(entry));
  }
}

AppConfigPackage::Entry const * AppConfigPackage::Find(char const * name) const {
  if (name == nullptr) return nullptr;
  for (Entry const & entry : mEntries)
    if (EqualsNoCase(entry.name, name)) return &entry;
  return nullptr;
}

std::vector<std::string> AppConfigPackage::EntryNames() const {
  std::vector<std::string> names;
  for (Entry const & entry : mEntries) names.push_back(entry.name);
  return names;
}

bool AppConfigPackage::HasEntry(char const * name) const { return Find(name) != nullptr; }

std::string AppConfigPackage::ReadFile(char const * name) const {
  Entry const * entry = Find(name);
  return entry != nullptr ? entry->bytes : std::string();
}

std::string AppConfigPackage::ReadConfigItem(char const * item) const {
  Entry const * entry = Find("appconfig.xml");
  if (entry == nullptr) return "";
  std::string const source = mSource + " (appconfig.xml)";
  vx3::XmlTree const document =
      vx3::ParseXmlTree(entry->bytes, source, vx3::XmlParseLimits{size_t(1) << 20, 16});
  vx3::XmlNode const & root = document.Root();
  if (root.name != "AppConfig")
    Refuse("The customization package {1} cannot be read: {2}", mSource,
           "the root element of appconfig.xml is not AppConfig");
  for (vx3::XmlNode const & child : root.children)
    if (child.kind == vx3::XmlNode::Kind::Element && child.name == item) return child.TextContent();
  return "";
}

std::string AppConfigPackage::ReadAppName() const {
  std::string name = ReadConfigItem("AppName");
  if (!name.empty() && !IsUsableAppName(name))
    Refuse("The customization package {1} cannot be read: {2}", mSource,
           "the application name \"" + name + "\" is not usable");
  return name;
}

std::string AppConfigPackage::ReadSupportPage() const {
  std::string address = ReadConfigItem("SupportPage");
  if (!address.empty() && !VxSystemInfo::IsUsableSupportPage(address))
    Refuse("The customization package {1} cannot be read: {2}", mSource,
           "the support page \"" + address + "\" is no http or https address");
  return address;
}

std::vector<std::string> AppConfigPackage::IconEntryNames() const {
  std::vector<std::string> names;
  for (Entry const & entry : mEntries)
    if (!EqualsNoCase(entry.name, "splash.png") &&
        EqualsNoCase(VxGetFileExtension(entry.name), "png"))
      names.push_back(entry.name);
  return names;
}

std::map<std::string, std::string> AppConfigPackage::IconReplacements() const {
  std::map<std::string, std::string> replacements;
  int number = 1;
  for (std::string const & name : IconEntryNames())
    replacements["file://" + name] = std::to_string(number++);
  return replacements;
}

std::string AppConfigPackage::ApplyReplacements(
    std::string text, std::map<std::string, std::string> const & replacements) {
  for (auto const & [key, value] : replacements) {
    if (key.empty()) continue;
    for (size_t at = text.find(key); at != std::string::npos;
         at = text.find(key, at + value.size()))
      text.replace(at, key.size(), value);
  }
  return text;
}
