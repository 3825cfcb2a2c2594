// talvo-resgen: turns a resource folder into a C++ source with the module's
// tables (platform/ResourceModuleData.h) and its self-registration. Runs at
// build time on the project's own files; a file it cannot take stops the
// build with the file, the line and the reason.
//
//   talvo-resgen --name NAME --role library|application --root DIR
//                --output FILE.cpp FILE...
//
// The folder layout (paths relative to DIR):
//   dialogs/<id>.xrc    an XRC document whose wxDialog object is named "<id>"
//   bitmaps/<id>.png    a PNG picture
//   html/<id>.<ext>     a text resource of type 23 (XML defaults, CSS, XSL,
//                       HTML pages), kept byte for byte
//   menus/<id>.xrc      an XRC document whose wxMenuBar or wxMenu object is
//                       named "<id>"; items are named by their command ids
//   accelerators/<id>.txt  an accelerator table, lines `<keys> <command id>`
//                       (`Ctrl+F 57636`); blank lines and # comments skipped
//   toolbars/<id>.txt   a tool bar: a line `size <width> <height>` (of one
//                       image), then one line per button, its command id or
//                       `separator`, # comments; compiled to type-241 words
//                       (version 1, width, height, count, ids, 0 for a
//                       separator). Its images are bitmaps/<id>.png, one per
//                       button in order, a strip the build checks.
//   strings/*.txt       string tables, lines `<id> "<text>"` or
//                       `<id> "<context>" "<text>"` with the escapes \n \t
//                       \" \\; blank lines and lines starting with # skipped
// Ids are 1 to 65535. Files whose names start with "." and README files are
// ignored.

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr unsigned kBitmap = 2;
constexpr unsigned kMenu = 4;
constexpr unsigned kDialog = 5;
constexpr unsigned kAccelerator = 9;
constexpr unsigned kHtml = 23;
constexpr unsigned kToolBar = 241;
constexpr unsigned kToolBarVersion = 1;

struct Failure : std::runtime_error {
  using std::runtime_error::runtime_error;
};

struct Message {
  std::string context;  // empty: none
  std::string text;
  bool hasContext = false;
};

struct Item {
  unsigned type;
  unsigned id;
  std::string bytes;
  std::string path;
};

std::string ReadAll(std::string const & path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw Failure(path + ": cannot be read");
  std::ostringstream out;
  out << in.rdbuf();
  return out.str();
}

unsigned ParseId(std::string const & text, std::string const & where) {
  if (text.empty() || text.size() > 5 || text.find_first_not_of("0123456789") != std::string::npos)
    throw Failure(where + ": \"" + text + "\" is no resource id (1 to 65535)");
  unsigned long const id = std::stoul(text);
  if (id < 1 || id > 65535) throw Failure(where + ": id " + text + " is out of 1 to 65535");
  return static_cast<unsigned>(id);
}

// Reads one quoted string with C escapes starting at line[pos] == '"'.
std::string ParseQuoted(std::string const & line, size_t & pos, std::string const & where) {
  if (pos >= line.size() || line[pos] != '"') throw Failure(where + ": a quoted text expected");
  std::string out;
  for (++pos; pos < line.size(); ++pos) {
    char const c = line[pos];
    if (c == '"') {
      ++pos;
      return out;
    }
    if (c != '\\') {
      out += c;
      continue;
    }
    if (++pos == line.size()) break;
    switch (line[pos]) {
      case 'n': out += '\n'; break;
      case 't': out += '\t'; break;
      case '"': out += '"'; break;
      case '\\': out += '\\'; break;
      default: throw Failure(where + ": unknown escape \\" + std::string(1, line[pos]));
    }
  }
  throw Failure(where + ": the text has no closing quote");
}

void SkipBlanks(std::string const & line, size_t & pos) {
  while (pos < line.size() && (line[pos] == ' ' || line[pos] == '\t')) ++pos;
}

void ParseStringTable(std::string const & path, std::map<unsigned, Message> & strings) {
  std::istringstream in(ReadAll(path));
  std::string line;
  for (int number = 1; std::getline(in, line); ++number) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    std::string const where = path + ":" + std::to_string(number);
    size_t pos = 0;
    SkipBlanks(line, pos);
    if (pos == line.size() || line[pos] == '#') continue;
    size_t const idEnd = line.find_first_of(" \t", pos);
    unsigned const id = ParseId(line.substr(pos, idEnd - pos), where);
    pos = idEnd == std::string::npos ? line.size() : idEnd;
    SkipBlanks(line, pos);
    Message message;
    message.text = ParseQuoted(line, pos, where);
    SkipBlanks(line, pos);
    if (pos < line.size()) {
      message.context = message.text;
      message.hasContext = true;
      message.text = ParseQuoted(line, pos, where);
      SkipBlanks(line, pos);
    }
    if (pos < line.size()) throw Failure(where + ": unexpected text after the message");
    if (message.text.empty()) throw Failure(where + ": an empty message id");
    if (!strings.emplace(id, message).second)
      throw Failure(where + ": string " + std::to_string(id) + " is defined twice");
  }
}

// XRC text as wx reads it: entities resolved, "_x" a mnemonic "&x", "__"
// a "_", and the backslash escapes \n \t \r \\.
std::string XrcText(std::string const & raw, std::string const & where) {
  std::string unescaped;
  for (size_t i = 0; i < raw.size(); ++i) {
    if (raw[i] != '&') {
      unescaped += raw[i];
      continue;
    }
    size_t const end = raw.find(';', i);
    if (end == std::string::npos) throw Failure(where + ": an unterminated entity");
    std::string const entity = raw.substr(i + 1, end - i - 1);
    if (entity == "amp")
      unescaped += '&';
    else if (entity == "lt")
      unescaped += '<';
    else if (entity == "gt")
      unescaped += '>';
    else if (entity == "quot")
      unescaped += '"';
    else if (entity == "apos")
      unescaped += '\'';
    else
      throw Failure(where + ": entity &" + entity + "; in a label (write the character)");
    i = end;
  }
  std::string out;
  for (size_t i = 0; i < unescaped.size(); ++i) {
    char const c = unescaped[i];
    bool const last = i + 1 == unescaped.size();
    if (c == '_') {
      if (last || unescaped[i + 1] == '_') {
        out += '_';
        if (!last) ++i;
      } else {
        out += '&';
      }
    } else if (c == '\\' && !last) {
      char const next = unescaped[++i];
      switch (next) {
        case 'n': out += '\n'; break;
        case 't': out += '\t'; break;
        case 'r': out += '\r'; break;
        case '\\': out += '\\'; break;
        default:
          out += '\\';
          out += next;
          break;
      }
    } else {
      out += c;
    }
  }
  return out;
}

// An accelerator table: each line a key combination and a command id. The
// key names are read when the table is loaded; here only the shape counts.
void CheckAcceleratorTable(std::string const & path, std::string const & text) {
  std::istringstream in(text);
  std::string line;
  for (int number = 1; std::getline(in, line); ++number) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    std::string const where = path + ":" + std::to_string(number);
    size_t pos = 0;
    SkipBlanks(line, pos);
    if (pos == line.size() || line[pos] == '#') continue;
    size_t const keysEnd = line.find_first_of(" \t", pos);
    if (keysEnd == std::string::npos) throw Failure(where + ": a key and a command id expected");
    pos = keysEnd;
    SkipBlanks(line, pos);
    size_t idEnd = line.find_first_of(" \t", pos);
    if (idEnd == std::string::npos) idEnd = line.size();
    ParseId(line.substr(pos, idEnd - pos), where);
    pos = idEnd;
    SkipBlanks(line, pos);
    if (pos < line.size()) throw Failure(where + ": unexpected text after the command id");
  }
}

void AppendWord(std::string & out, unsigned value) {
  out += static_cast<char>(value & 0xFFU);
  out += static_cast<char>((value >> 8U) & 0xFFU);
}

// A tool image's side in pixels, 1 to 999: 0 would be a mistake.
unsigned ParseSize(std::string const & text, std::string const & where) {
  if (text.empty() || text.size() > 3 ||
      text.find_first_not_of("0123456789") != std::string::npos || std::stoul(text) == 0)
    throw Failure(where + ": \"" + text + "\" is no image size (1 to 999)");
  return static_cast<unsigned>(std::stoul(text));
}

struct ToolBar {
  unsigned width = 0;
  unsigned height = 0;
  unsigned buttons = 0;  // the images the strip must hold
};

// A tool bar's text into its words; `bar` learns what the strip must hold.
std::string CompileToolBar(std::string const & path, std::string const & text, ToolBar & bar) {
  std::istringstream in(text);
  std::string line;
  std::vector<unsigned> ids;
  bool sized = false;
  for (int number = 1; std::getline(in, line); ++number) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    std::string const where = path + ":" + std::to_string(number);
    std::istringstream words(line);
    std::string first;
    if (!(words >> first) || first[0] == '#') continue;
    std::string extra;
    if (first == "size") {
      std::string width, height;
      if (sized) throw Failure(where + ": the size is given twice");
      if (!(words >> width >> height)) throw Failure(where + ": `size <width> <height>` expected");
      bar.width = ParseSize(width, where);
      bar.height = ParseSize(height, where);
      sized = true;
    } else if (!sized) {
      throw Failure(where + ": `size <width> <height>` must come first");
    } else if (first == "separator") {
      ids.push_back(0);
    } else {
      ids.push_back(ParseId(first, where));
      ++bar.buttons;
    }
    if (words >> extra && extra[0] != '#')
      throw Failure(where + ": unexpected text \"" + extra + "\"");
  }
  if (!sized) throw Failure(path + ": `size <width> <height>` expected");
  if (ids.empty()) throw Failure(path + ": a tool bar without buttons");
  std::string out;
  for (unsigned const word :
       {kToolBarVersion, bar.width, bar.height, static_cast<unsigned>(ids.size())})
    AppendWord(out, word);
  for (unsigned const id : ids) AppendWord(out, id);
  return out;
}

// The titles and labels of a template, for the catalog extraction.
void CollectDialogTexts(std::string const & xrc, std::string const & path,
                        std::set<std::string> & texts) {
  for (char const * tag : {"label", "title"}) {
    std::string const open = std::string("<") + tag + ">";
    std::string const close = std::string("</") + tag + ">";
    for (size_t pos = xrc.find(open); pos != std::string::npos; pos = xrc.find(open, pos)) {
      pos += open.size();
      size_t const end = xrc.find(close, pos);
      if (end == std::string::npos) throw Failure(path + ": <" + tag + "> is not closed");
      std::string const text = XrcText(xrc.substr(pos, end - pos), path);
      if (!text.empty()) texts.insert(text);
      pos = end;
    }
  }
}

std::string FileName(std::string const & path) {
  size_t const slash = path.rfind('/');
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string Stem(std::string const & name) { return name.substr(0, name.find('.')); }

std::string Extension(std::string const & name) {
  size_t const dot = name.rfind('.');
  return dot == std::string::npos ? std::string() : name.substr(dot + 1);
}

std::string CLiteral(std::string const & text) {
  std::string out = "\"";
  for (unsigned char const c : text) {
    switch (c) {
      case '"': out += "\\\""; break;
      case '\\': out += "\\\\"; break;
      case '\n': out += "\\n"; break;
      case '\t': out += "\\t"; break;
      default:
        if (c < 0x20 || c == 0x7f) {
          char octal[8];
          std::snprintf(octal, sizeof octal, "\\%03o", c);
          out += octal;
        } else {
          out += static_cast<char>(c);
        }
    }
  }
  return out + "\"";
}

std::string Translate(Message const & message) {
  if (message.hasContext)
    return "translate(" + CLiteral(message.context) + ", " + CLiteral(message.text) + ")";
  return "translate(" + CLiteral(message.text) + ")";
}

struct Module {
  std::vector<Item> items;
  std::map<unsigned, ToolBar> toolBars;  // by id, checked against their strips
  std::map<unsigned, Message> strings;
  std::set<std::string> dialogTexts;
};

void AddFile(std::string const & root, std::string const & path, Module & module) {
  std::string relative = path;
  if (relative.compare(0, root.size() + 1, root + "/") == 0) relative.erase(0, root.size() + 1);
  std::string const name = FileName(relative);
  if (name.empty() || name[0] == '.' || name.compare(0, 6, "README") == 0) return;
  std::string const folder = relative.substr(0, relative.find('/'));
  if (folder == relative)
    throw Failure(
        path +
        ": resources lie in dialogs/, menus/, accelerators/, toolbars/, bitmaps/, html/ or "
        "strings/");

  if (folder == "strings") {
    if (Extension(name) != "txt") throw Failure(path + ": string tables are .txt files");
    ParseStringTable(path, module.strings);
    return;
  }
  Item item;
  item.path = path;
  item.id = ParseId(Stem(name), path);
  item.bytes = ReadAll(path);
  if (folder == "dialogs") {
    item.type = kDialog;
    if (Extension(name) != "xrc") throw Failure(path + ": dialog templates are .xrc files");
    if (item.bytes.find("name=\"" + Stem(name) + "\"") == std::string::npos)
      throw Failure(path + ": no object named \"" + Stem(name) + "\" (the template number)");
    CollectDialogTexts(item.bytes, path, module.dialogTexts);
  } else if (folder == "menus") {
    item.type = kMenu;
    if (Extension(name) != "xrc") throw Failure(path + ": menus are .xrc files");
    if (item.bytes.find("name=\"" + Stem(name) + "\"") == std::string::npos)
      throw Failure(path + ": no object named \"" + Stem(name) + "\" (the menu number)");
    CollectDialogTexts(item.bytes, path, module.dialogTexts);
  } else if (folder == "accelerators") {
    item.type = kAccelerator;
    if (Extension(name) != "txt") throw Failure(path + ": accelerator tables are .txt files");
    CheckAcceleratorTable(path, item.bytes);
  } else if (folder == "toolbars") {
    item.type = kToolBar;
    if (Extension(name) != "txt") throw Failure(path + ": tool bars are .txt files");
    item.bytes = CompileToolBar(path, item.bytes, module.toolBars[item.id]);
  } else if (folder == "bitmaps") {
    item.type = kBitmap;
    if (item.bytes.compare(0, 8, "\x89PNG\r\n\x1a\n") != 0)
      throw Failure(path + ": not a PNG file");
  } else if (folder == "html") {
    item.type = kHtml;
  } else {
    throw Failure(path + ": unknown resource folder \"" + folder + "\"");
  }
  for (Item const & other : module.items)
    if (other.type == item.type && other.id == item.id)
      throw Failure(path + ": the same id as " + other.path);
  module.items.push_back(std::move(item));
}

// The PNG header's size: width and height are the big-endian words at 16
// and 20. False when the file is too short to say.
bool PngSize(std::string const & png, unsigned long & width, unsigned long & height) {
  if (png.size() < 24 || png.compare(12, 4, "IHDR") != 0) return false;
  auto word = [&](size_t at) {
    unsigned long value = 0;
    for (size_t i = 0; i < 4; ++i) value = (value << 8U) | static_cast<unsigned char>(png[at + i]);
    return value;
  };
  width = word(16);
  height = word(20);
  return true;
}

// Each tool bar has its strip beside it, one image per button: a strip that
// is missing or of another size would show wrong images or none.
void CheckToolBarStrips(Module const & module) {
  for (auto const & entry : module.toolBars) {
    auto const id = entry.first;  // a plain name: lambdas cannot capture a binding
    auto const & bar = entry.second;
    auto const strip = std::find_if(module.items.begin(), module.items.end(), [&](Item const & i) {
      return i.type == kBitmap && i.id == id;
    });
    auto const self = std::find_if(module.items.begin(), module.items.end(), [&](Item const & i) {
      return i.type == kToolBar && i.id == id;
    });
    std::string const path = self == module.items.end() ? std::to_string(id) : self->path;
    if (strip == module.items.end())
      throw Failure(path + ": no strip bitmaps/" + std::to_string(id) + ".png beside it");
    unsigned long width = 0;
    unsigned long height = 0;
    if (!PngSize(strip->bytes, width, height)) continue;  // a stub, sized when loaded
    unsigned long const expected = static_cast<unsigned long>(bar.width) * bar.buttons;
    if (width != expected || height != bar.height)
      throw Failure(path + ": the strip is " + std::to_string(width) + "x" +
                    std::to_string(height) + ", " + std::to_string(bar.buttons) + " images of " +
                    std::to_string(bar.width) + "x" + std::to_string(bar.height) + " need " +
                    std::to_string(expected) + "x" + std::to_string(bar.height));
  }
}

std::string Generate(Module module, std::string const & name, std::string const & role,
                     std::string const & root) {
  std::sort(module.items.begin(), module.items.end(), [](Item const & a, Item const & b) {
    return a.type != b.type ? a.type < b.type : a.id < b.id;
  });
  std::ostringstream out;
  out << "// Generated by talvo-resgen from " << root << "; do not edit.\n"
      << "#include <iterator>\n\n#include \"platform/ResourceModule.h\"\n\nnamespace {\n\n"
      << "// Marks the message ids for the catalog extraction (target pot).\n"
      << "constexpr ResourceMessage translate(char const * text) { return {nullptr, text}; }\n"
      << "constexpr ResourceMessage translate(char const * context, char const * text) {\n"
      << "  return {context, text};\n}\n\n";
  for (size_t i = 0; i < module.items.size(); ++i) {
    std::string const & bytes = module.items[i].bytes;
    out << "// " << module.items[i].path << "\n"
        << "alignas(16) unsigned char const kData" << i << "[] = {";
    for (size_t b = 0; b < bytes.size(); ++b) {
      if (b % 16 == 0) out << "\n ";
      char hex[8];
      std::snprintf(hex, sizeof hex, " 0x%02x,", static_cast<unsigned char>(bytes[b]));
      out << hex;
    }
    if (bytes.empty()) out << "0";  // an array cannot be empty; the size says 0
    out << "\n};\n";
  }
  if (!module.items.empty()) {
    out << "\nResourceItem const kItems[] = {\n";
    for (size_t i = 0; i < module.items.size(); ++i) {
      Item const & item = module.items[i];
      out << "  {" << item.type << ", " << item.id << ", kData" << i << ", " << item.bytes.size()
          << "},\n";
    }
    out << "};\n";
  }
  if (!module.strings.empty()) {
    out << "\nResourceStringItem const kStrings[] = {\n";
    for (auto const & [id, message] : module.strings)
      out << "  {" << id << ", " << Translate(message) << "},\n";
    out << "};\n";
  }
  if (!module.dialogTexts.empty()) {
    out << "\n// Titles and labels of the dialog templates and menus, translated when\n"
        << "// they are loaded; listed here only for the catalog extraction.\n"
        << "[[maybe_unused]] constexpr ResourceMessage kDialogTexts[] = {\n";
    for (std::string const & text : module.dialogTexts)
      out << "  translate(" << CLiteral(text) << "),\n";
    out << "};\n";
  }
  out << "\nResourceModuleData const kModule = {" << CLiteral(name) << ", "
      << (module.items.empty() ? "nullptr, 0" : "kItems, std::size(kItems)") << ", "
      << (module.strings.empty() ? "nullptr, 0" : "kStrings, std::size(kStrings)") << "};\n\n"
      << "struct Registration {\n"
      << "  HINSTANCE handle;\n"
      << "  Registration()\n"
      << "      : handle(RegisterResourceModule(kModule, ResourceModuleRole::"
      << (role == "library" ? "Library" : "Application") << ")) {}\n"
      << "  ~Registration() { UnregisterResourceModule(handle); }\n"
      << "} const kRegistration;\n\n}  // namespace\n";
  return out.str();
}

void WriteIfChanged(std::string const & path, std::string const & text) {
  {
    std::ifstream in(path, std::ios::binary);
    if (in) {
      std::ostringstream old;
      old << in.rdbuf();
      if (old.str() == text) return;  // keeps the timestamp: nothing to rebuild
    }
  }
  std::string const temp = path + ".tmp";
  {
    std::ofstream out(temp, std::ios::binary | std::ios::trunc);
    out << text;
    if (!out.flush()) throw Failure(temp + ": cannot be written");
  }
  if (std::rename(temp.c_str(), path.c_str()) != 0) throw Failure(path + ": cannot be replaced");
}

}  // namespace

int main(int argc, char ** argv) {
  std::string name, role = "application", root, output;
  std::vector<std::string> files;
  try {
    for (int i = 1; i < argc; ++i) {
      std::string const arg = argv[i];
      auto value = [&]() -> std::string {
        if (i + 1 >= argc) throw Failure(arg + " needs a value");
        return argv[++i];
      };
      if (arg == "--name")
        name = value();
      else if (arg == "--role")
        role = value();
      else if (arg == "--root")
        root = value();
      else if (arg == "--output")
        output = value();
      else
        files.push_back(arg);
    }
    if (name.empty() || root.empty() || output.empty())
      throw Failure(
          "usage: talvo-resgen --name NAME --role library|application --root DIR "
          "--output FILE.cpp FILE...");
    if (role != "library" && role != "application")
      throw Failure("--role is library or application");
    std::sort(files.begin(), files.end());
    Module module;
    for (std::string const & file : files) AddFile(root, file, module);
    CheckToolBarStrips(module);
    WriteIfChanged(output, Generate(std::move(module), name, role, root));
  } catch (std::exception const & error) {
    std::cerr << "talvo-resgen: " << error.what() << "\n";
    return 1;
  }
  return 0;
}
