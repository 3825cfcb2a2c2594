#include "utl/AuditTrail.h"

#include <pwd.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include "utl/AtomicFile.h"
#include "utl/AuditTrailLedger.h"
#include "utl/AuditTrailSigner.h"
#include "utl/ConfigurationSection.h"
#include "utl/Digest.h"
#include "utl/Exception.h"
#include "utl/Log.h"
#include "utl/Paths.h"
#include "utl/Utf.h"
#include "utl/VxSystemInfo.h"
#include "utl/WholeFile.h"
#include "utl/XmlTree.h"
#include "utl/XmlWriter.h"

AuditTrail::Signal AuditTrail::msAuditTrailDeleting;
AuditTrail::Signal AuditTrail::msAuditTrailActiveAuditTrailChanged;
AuditTrail::Signal AuditTrail::msAuditTrailProjectNameChanged;
AuditTrail::Signal AuditTrail::msAuditTrailEndSession;
AuditTrail::Signal AuditTrail::msAuditTrailEventAdded;
AuditTrail::Signal AuditTrail::msAuditTrailBeginSession;

namespace {

using vx3::XmlNode;

AuditTrail * gActiveTrail = nullptr;

constexpr char kFormat[] = "1";
constexpr char kStylesheetData[] = "type=\"text/xsl\" href=\"audit_trail.xsl\"";
// Trails outgrow settings files: 100,000 events are some 30 MB.
constexpr size_t kMaxTrailBytes = size_t(512) << 20;
constexpr int kMaxTrailDepth = 8;

std::string LoginName() {
  struct passwd entry {};
  struct passwd * found = nullptr;
  char buffer[4096];
  if (::getpwuid_r(::geteuid(), &entry, buffer, sizeof buffer, &found) == 0 && found != nullptr)
    return found->pw_name;
  if (char const * user = std::getenv("USER"); user && *user) return user;
  return "uid " + std::to_string(::geteuid());
}

std::string HostName() {
  char name[256] = {};
  return ::gethostname(name, sizeof name - 1) == 0 ? name : "";
}

std::string FormatUtc(std::chrono::system_clock::time_point time, bool compact) {
  auto const micros =
      std::chrono::duration_cast<std::chrono::microseconds>(time.time_since_epoch()).count();
  std::time_t seconds = static_cast<std::time_t>(micros / 1000000);
  long fraction = static_cast<long>(micros % 1000000);
  if (fraction < 0) fraction += 1000000, --seconds;
  std::tm parts{};
  ::gmtime_r(&seconds, &parts);
  char text[64];
  if (compact)
    std::snprintf(text, sizeof text, "%04d%02d%02dT%02d%02d%02dZ", parts.tm_year + 1900,
                  parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec);
  else
    std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d.%06ldZ", parts.tm_year + 1900,
                  parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec,
                  fraction);
  return text;
}

// What can be stored, hashed and shown: valid UTF-8, and U+FFFD for the
// characters XML cannot hold.
std::string Storable(char const * text) {
  std::string const valid = vx3::SanitizeUtf8(text == nullptr ? "" : text);
  std::string result;
  result.reserve(valid.size());
  for (size_t i = 0; i < valid.size(); ++i) {
    auto const byte = static_cast<unsigned char>(valid[i]);
    bool const control = byte < 0x20 && byte != '\t' && byte != '\n' && byte != '\r';
    // U+FFFE and U+FFFF: EF BF BE, EF BF BF.
    bool const nonCharacter = byte == 0xEF && i + 2 < valid.size() &&
                              static_cast<unsigned char>(valid[i + 1]) == 0xBF &&
                              (static_cast<unsigned char>(valid[i + 2]) & 0xFE) == 0xBE;
    if (control || nonCharacter) {
      result += "\xEF\xBF\xBD";
      if (nonCharacter) i += 2;
    } else {
      result += valid[i];
    }
  }
  return result;
}

void Field(std::string & out, std::string_view value) {
  auto const length = static_cast<uint32_t>(value.size());
  for (int shift = 24; shift >= 0; shift -= 8) out += static_cast<char>((length >> shift) & 0xFF);
  out.append(value.data(), value.size());
}

std::string InitialHash(std::string const & trailId) {
  return vx3::Sha256(std::string("TALVO audit trail 1", 19) + '\0' + trailId);
}

std::string ChainHash(std::string const & previous, AuditTrail::Event const & event) {
  std::string record = previous;
  Field(record, std::to_string(event.sequence));
  Field(record, event.time);
  Field(record, event.user);
  Field(record, std::to_string(event.level));
  Field(record, event.type);
  Field(record, event.text);
  Field(record, event.detail);
  return vx3::Sha256(record);
}

std::string SealMessage(std::string const & trailId, std::string const & project, size_t count,
                        std::string const & head) {
  std::string message("TALVO audit trail seal 1", 24);
  message += '\0';
  Field(message, trailId);
  Field(message, project);
  Field(message, std::to_string(count));
  message += head;
  return message;
}

void AppendAttribute(std::string & out, char const * name, std::string_view value) {
  out += ' ';
  out += name;
  out += "=\"";
  vx3::AppendEscapedUtf8(value, true, out);
  out += '"';
}

void AppendEventXml(AuditTrail::Event const & event, std::string & out) {
  out += "  <Event";
  AppendAttribute(out, "seq", std::to_string(event.sequence));
  AppendAttribute(out, "time", event.time);
  AppendAttribute(out, "user", event.user);
  AppendAttribute(out, "level", std::to_string(event.level));
  AppendAttribute(out, "type", event.type);
  AppendAttribute(out, "hash", event.hash);
  out += ">\n    <Text>";
  vx3::AppendEscapedUtf8(event.text, false, out);
  out += "</Text>\n    ";
  if (event.detail.empty()) {
    out += "<Detail/>";
  } else {
    out += "<Detail>";
    vx3::AppendEscapedUtf8(event.detail, false, out);
    out += "</Detail>";
  }
  out += "\n  </Event>\n";
}

bool IsBlank(std::string const & text) {
  for (char const c : text)
    if (c != ' ' && c != '\t' && c != '\n' && c != '\r') return false;
  return true;
}

// The element children of `parent`, refusing text other than whitespace;
// comments are no part of the record and are passed over.
std::vector<XmlNode const *> ChildElements(XmlNode const & parent, bool & clean) {
  std::vector<XmlNode const *> elements;
  for (XmlNode const & child : parent.children) {
    switch (child.kind) {
      case XmlNode::Kind::Element: elements.push_back(&child); break;
      case XmlNode::Kind::Comment: break;
      case XmlNode::Kind::Text: clean = clean && IsBlank(child.value); break;
      default: clean = false;
    }
  }
  return elements;
}

bool ParseSequence(std::string const & text, uint64_t & value) {
  if (text.empty() || text.size() > 19) return false;
  uint64_t parsed = 0;
  for (char const c : text) {
    if (c < '0' || c > '9') return false;
    parsed = parsed * 10 + static_cast<uint64_t>(c - '0');
  }
  value = parsed;
  return true;
}

}  // namespace

AuditTrail::AuditTrail(char const * path, ConfigurationSection * settings,
                       std::string const & keyFolder)
    : mSettings(settings),
      mPath(path == nullptr ? "" : path),
      mKeyFolder(keyFolder),
      mClock([] { return std::chrono::system_clock::now(); }),
      mUser(Storable(LoginName().c_str())) {
  mSettings.Load();
  StartNewTrail();
}

AuditTrail::~AuditTrail() {
  if (mModified && !mRefusal) {
    try {
      Save();
    } catch (Exception const & failure) {
      Log::WriteMessage("AuditTrail", "~AuditTrail", failure.Why(), Log::Error, true);
    } catch (...) {
      Log::WriteMessage("AuditTrail", "~AuditTrail", "The audit trail could not be saved.",
                        Log::Error, true);
    }
  }
  msAuditTrailDeleting(this);
  if (gActiveTrail == this) gActiveTrail = nullptr;
}

std::string AuditTrail::GetProjectName() const {
  return mPendingProjectName ? *mPendingProjectName : mProjectName;
}

void AuditTrail::PrepareForLogging() {
  mSettings.Load();
  if (!mSigner) mSigner = std::make_unique<AuditTrailSigner>(mKeyFolder);
  mSigner->EnsureKey();
}

void AuditTrail::AddEvent(char const * text, char const * detail, int level) {
  if (mSettings.mLogLevel <= 0 || level >= mSettings.mLogLevel) return;
  EnsureLoaded();
  ThrowIfRefused("changed");
  Append("event", Storable(text), Storable(detail), level);
  msAuditTrailEventAdded(this);
}

void AuditTrail::StartNewTrail() {
  unsigned char noise[16];
  if (::getentropy(noise, sizeof noise) != 0)
    throw Exception(ExceptionMessage::translate("No random number for a new audit trail."));
  mTrailId = vx3::ToHex(std::string_view(reinterpret_cast<char const *>(noise), sizeof noise));
  mEvents.clear();
  mBody.clear();
  mHead = InitialHash(mTrailId);
}

void AuditTrail::AppendToBody(Event const & event) {
  constexpr size_t kChunk = size_t(1) << 20;
  if (mBody.empty() || mBody.back().size() >= kChunk) {
    mBody.emplace_back();
    mBody.back().reserve(kChunk + 4096);
  }
  AppendEventXml(event, mBody.back());
}

void AuditTrail::EnsureLoaded() {
  if (!mLoaded) Load();
}

void AuditTrail::ThrowIfRefused(char const * action) const {
  if (!mRefusal) return;
  throw Exception(ExceptionMessage::translate(
                      "The audit trail {1} is kept as it is and cannot be {2} until it is "
                      "cleared: {3}") %
                  mPath % std::string(action) % mRefusal->Why());
}

void AuditTrail::Append(char const * type, std::string const & text, std::string const & detail,
                        int level) {
  Event event;
  event.sequence = mEvents.size() + 1;
  event.time = FormatUtc(mClock(), false);
  event.user = mUser;
  event.level = level;
  event.type = type;
  event.text = text;
  event.detail = detail;
  mHead = ChainHash(mHead, event);
  event.hash = vx3::ToHex(mHead);
  AppendToBody(event);
  mEvents.push_back(std::move(event));
  mModified = true;
}

void AuditTrail::Load() {
  if (mModified && !mRefusal && mLoaded) Save();
  if (!mSigner) mSigner = std::make_unique<AuditTrailSigner>(mKeyFolder);
  mSigner->EnsureKey();
  mRefusal.reset();
  mLoaded = true;
  mModified = false;
  StartNewTrail();

  auto const malformed = [&](char const * what) {
    return Exception(ExceptionMessage::translate("The file {1} is no valid audit trail: {2}.") %
                     mPath % std::string(what));
  };
  std::string stylesheetReference, sealCount, sealHead, signer, signature;
  try {
    std::string bytes;
    vx3::XmlParseLimits limits;
    limits.maxBytes = kMaxTrailBytes;
    limits.maxDepth = kMaxTrailDepth;
    if (!vx3::ReadWholeFile(mPath, limits.maxBytes, bytes)) {  // a new trail
      ApplyPendingProjectName();
      return;
    }
    vx3::XmlTree const document = vx3::ParseXmlTree(bytes, mPath, limits);
    bytes = std::string();

    for (XmlNode const & node : document.children)
      if (node.kind == XmlNode::Kind::ProcessingInstruction)
        stylesheetReference += node.name + " " + node.value + ";";

    XmlNode const & root = document.Root();
    if (root.name != "AuditTrail") throw malformed("its root element is not <AuditTrail>");
    std::string format, id;
    if (!root.Attribute("format", format) || format != kFormat)
      throw malformed("its format is unknown");
    if (!root.Attribute("id", id) || !AuditTrailLedger::IsValidTrailId(id))
      throw malformed("its id is missing or invalid");
    std::string project;
    root.Attribute("project", project);

    bool clean = true;
    std::vector<XmlNode const *> const children = ChildElements(root, clean);
    if (!clean) throw malformed("it holds text outside its events");
    if (children.empty() || children.back()->name != "Seal") throw malformed("it has no seal");
    XmlNode const & seal = *children.back();
    if (!seal.Attribute("events", sealCount) || !seal.Attribute("head", sealHead) ||
        !seal.Attribute("signer", signer) || !seal.Attribute("signature", signature))
      throw malformed("its seal is incomplete");

    std::deque<Event> events;
    for (size_t i = 0; i + 1 < children.size(); ++i) {
      XmlNode const & element = *children[i];
      if (element.name != "Event") throw malformed("it holds an unknown element");
      Event event;
      std::string sequence, level;
      if (!element.Attribute("seq", sequence) || !ParseSequence(sequence, event.sequence) ||
          !element.Attribute("time", event.time) || !element.Attribute("user", event.user) ||
          sequence != std::to_string(event.sequence) || !element.Attribute("level", level) ||
          !vx3::ParseInt(level, event.level) || level != std::to_string(event.level) ||
          !element.Attribute("type", event.type) || !element.Attribute("hash", event.hash))
        throw malformed("an event lacks one of its attributes");
      bool eventClean = true;
      std::vector<XmlNode const *> const parts = ChildElements(element, eventClean);
      if (!eventClean || parts.size() != 2 || parts[0]->name != "Text" ||
          parts[1]->name != "Detail")
        throw malformed("an event is not made of <Text> and <Detail>");
      event.text = parts[0]->Text();
      event.detail = parts[1]->Text();
      events.push_back(std::move(event));
    }
    mTrailId = id;
    mProjectName = project;
    mEvents = std::move(events);
  } catch (Exception const & failure) {
    mRefusal = std::make_unique<Exception>(failure);
    StartNewTrail();
    throw;
  }
  for (Event const & event : mEvents) AppendToBody(event);
  Verify(stylesheetReference, sealCount, sealHead, signer, signature);
  if (!mRefusal) ApplyPendingProjectName();
}

void AuditTrail::ApplyPendingProjectName() {
  if (mPendingProjectName) {
    mModified = mModified || *mPendingProjectName != mProjectName;
    mProjectName = *mPendingProjectName;
  }
  mPendingProjectName.reset();
}

void AuditTrail::Verify(std::string const & stylesheetReference, std::string const & sealCount,
                        std::string const & sealHead, std::string const & signer,
                        std::string const & signature) {
  auto const refuse = [&](ExceptionMessage const & message) {
    mRefusal = std::make_unique<Exception>(message);
  };
  std::string head = InitialHash(mTrailId);
  for (size_t i = 0; i < mEvents.size(); ++i) {
    Event const & event = mEvents[i];
    head = ChainHash(head, event);
    if (event.sequence != i + 1 || event.hash != vx3::ToHex(head)) {
      refuse(ExceptionMessage::translate(
                 "The audit trail {1} has been changed outside the application: event {2} was "
                 "altered, inserted, removed or moved.") %
             mPath % static_cast<int>(i + 1));
      return;
    }
  }
  mHead = head;
  if (stylesheetReference != std::string("xml-stylesheet ") + kStylesheetData + ";") {
    refuse(ExceptionMessage::translate(
               "The audit trail {1} has been changed outside the application: its stylesheet "
               "reference is not the one it was written with.") %
           mPath);
    return;
  }
  if (sealCount != std::to_string(mEvents.size()) || sealHead != vx3::ToHex(head)) {
    refuse(ExceptionMessage::translate(
               "The audit trail {1} has been changed outside the application: its seal covers "
               "{2} events, and {3} are there.") %
           mPath % sealCount % std::to_string(mEvents.size()));
    return;
  }
  switch (mSigner->Verify(signer, SealMessage(mTrailId, mProjectName, mEvents.size(), head),
                          signature)) {
    case AuditTrailSigner::Verdict::Valid: break;
    case AuditTrailSigner::Verdict::Forged:
      refuse(ExceptionMessage::translate(
                 "The audit trail {1} has been changed outside the application: its seal is "
                 "not valid.") %
             mPath);
      return;
    case AuditTrailSigner::Verdict::UnknownSigner:
      refuse(ExceptionMessage::translate(
                 "The audit trail {1} was sealed with a key that this computer does not trust "
                 "(fingerprint {2}).") %
             mPath % signer);
      return;
  }
  uint64_t rememberedCount = 0;
  std::string rememberedHead;
  AuditTrailLedger const ledger(mSigner->KeyFolder());
  if (ledger.Read(mTrailId, rememberedCount, rememberedHead) && rememberedCount > 0) {
    if (rememberedCount > mEvents.size() || mEvents[rememberedCount - 1].hash != rememberedHead) {
      refuse(ExceptionMessage::translate(
                 "The audit trail {1} has been replaced by an older or different copy: it was "
                 "sealed on this computer with {2} events, and the file holds {3}.") %
             mPath % std::to_string(rememberedCount) % std::to_string(mEvents.size()));
      return;
    }
  }
}

std::string AuditTrail::Seal() {
  if (!mSigner) mSigner = std::make_unique<AuditTrailSigner>(mKeyFolder);
  std::string const signer = mSigner->Fingerprint();
  std::string const signature =
      mSigner->Sign(SealMessage(mTrailId, mProjectName, mEvents.size(), mHead));
  std::string seal = "  <Seal";
  AppendAttribute(seal, "events", std::to_string(mEvents.size()));
  AppendAttribute(seal, "head", vx3::ToHex(mHead));
  AppendAttribute(seal, "signer", signer);
  AppendAttribute(seal, "signature", signature);
  seal += "/>\n";
  return seal;
}

std::string AuditTrail::ToXmlString() {
  EnsureLoaded();
  ThrowIfRefused("written");
  std::string const seal = Seal();
  std::string out;
  size_t size = seal.size() + 512;
  for (std::string const & chunk : mBody) size += chunk.size();
  out.reserve(size);
  out += "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<?xml-stylesheet ";
  out += kStylesheetData;
  out += "?>\n<AuditTrail";
  AppendAttribute(out, "format", kFormat);
  AppendAttribute(out, "id", mTrailId);
  AppendAttribute(out, "project", mProjectName);
  out += ">\n";
  for (std::string const & chunk : mBody) out += chunk;
  out += seal;
  out += "</AuditTrail>\n";
  return out;
}

void AuditTrail::Save() {
  EnsureLoaded();
  ThrowIfRefused("saved");
  if (!mModified && VxFileExist(mPath) == VxFile) return;
  vx3::WriteFileAtomically(mPath, ToXmlString());
  AuditTrailLedger(mSigner->KeyFolder()).Record(mTrailId, mEvents.size(), vx3::ToHex(mHead));
  mModified = false;
}

void AuditTrail::SaveAs(char const * path) {
  std::string const target = path == nullptr ? "" : path;
  vx3::WriteFileAtomically(target, ToXmlString());
  vx3::WriteFileAtomically(VxPathAppend(VxGetDirectory(target), GetXSLFileName()), GetStylesheet());
}

bool AuditTrail::IsEmpty() const { return mEvents.empty(); }

void AuditTrail::Clear() {
  try {
    EnsureLoaded();
  } catch (Exception const &) {
    // A refused file is moved aside below.
  }
  std::string detail;
  if (mRefusal) {
    std::string const aside = mPath + ".rejected-" + FormatUtc(mClock(), true);
    if (::rename(mPath.c_str(), aside.c_str()) != 0 && errno != ENOENT)
      throw Exception(
          ExceptionMessage::translate("The refused audit trail {1} cannot be moved aside: {2}.") %
          mPath % std::string(std::strerror(errno)));
    detail = "The previous trail could not be verified and was kept as " + aside + ".";
  } else {
    detail = "Trail " + mTrailId + " with " + std::to_string(mEvents.size()) +
             " events was cleared; its last hash was " + vx3::ToHex(mHead) + ".";
  }
  mRefusal.reset();
  mLoaded = true;
  StartNewTrail();
  Append("cleared", "Audit Trail cleared.", Storable(detail.c_str()), 0);
  msAuditTrailEventAdded(this);
}

std::string AuditTrail::GetFileName() const { return mPath; }

void AuditTrail::BeginSessionAndVerifySignature() {
  EnsureLoaded();
  if (mRefusal) throw Exception(*mRefusal);
  mSessionOpen = true;
  if (mSettings.mLogLevel > 0) {
    std::string detail = VxSystemInfo::GetApplicationName() + " " +
                         VxSystemInfo::GetApplicationVersion(VxSystemInfo::VersionDisplay) +
                         " on " + HostName() + ".";
    if (!mSettings.mExtendedUserInfo.empty()) detail += " " + mSettings.mExtendedUserInfo;
    Append("session-begin", "Session started.", Storable(detail.c_str()), 0);
  }
  msAuditTrailBeginSession(this);
}

void AuditTrail::EndSessionAndSave() {
  if (mSessionOpen && mSettings.mLogLevel > 0 && !mRefusal)
    Append("session-end", "Session ended.", std::string(), 0);
  mSessionOpen = false;
  Save();
  msAuditTrailEndSession(this);
}

void AuditTrail::BroadCastChange() { msAuditTrailActiveAuditTrailChanged(this); }

void AuditTrail::SetProjectName(std::string const & name) {
  // Before Load the name waits: the file's own name must be read first to
  // check the seal.
  if (mLoaded)
    mProjectName = Storable(name.c_str()), mModified = true;
  else
    mPendingProjectName = Storable(name.c_str());
  msAuditTrailProjectNameChanged(this);
}

void AuditTrail::SetClock(Clock clock) { mClock = std::move(clock); }

void AuditTrail::SetUserName(std::string const & user) { mUser = Storable(user.c_str()); }

void AuditTrail::SetActiveAuditTrail(AuditTrail * trail) {
  gActiveTrail = trail;
  msAuditTrailActiveAuditTrailChanged(trail);
}

AuditTrail * AuditTrail::GetActiveAuditTrail() { return gActiveTrail; }
