#pragma once
// The audit-trail document of a project: who did what and when, kept for
// laboratories that work under data-integrity rules. Every event carries its
// UTC time, the user, a text, a detail and a level; the file is
// tamper-evident.
//
// File (UTF-8 XML, shown in a browser through the stylesheet beside it):
//
//   <?xml version="1.0" encoding="UTF-8"?>
//   <?xml-stylesheet type="text/xsl" href="audit_trail.xsl"?>
//   <AuditTrail format="1" id="<32 hex>" project="Assay 12">
//     <Event seq="1" time="2024-06-11T09:15:02.123456Z" user="ann" level="0"
//            type="session-begin" hash="<64 hex>">
//       <Text>Session started.</Text>
//       <Detail>Sample 6.3.2 on lab-pc-4. QA reviewer, room 2.</Detail>
//     </Event>
//     ...
//     <Seal events="<n>" head="<64 hex>" signer="<64 hex>" signature="<128 hex>"/>
//   </AuditTrail>
//
// Types: "event" (AddEvent), "session-begin", "session-end", "cleared".
// seq counts from 1 without gaps. Text is escaped like all XML text: markup
// in an event shows as text, never as markup (the stylesheet uses
// value-of only). Control characters other than tab, line feed and carriage
// return are stored as U+FFFD, invalid UTF-8 is dropped; what is stored is
// what is hashed.
//
// Hash chain (SHA-256; field(x) = 4-byte big-endian length, then x):
//   h0 = SHA-256("TALVO audit trail 1" NUL id)
//   hi = SHA-256(h(i-1) field(seq) field(time) field(user) field(level)
//                field(type) field(Text) field(Detail))
// Each event stores its hi. The seal signs, with Ed25519,
//   "TALVO audit trail seal 1" NUL field(id) field(project) field(n) hn.
// Adding an event hashes that event only; saving writes the events' text
// kept since they were added, so neither re-hashes the whole trail.
//
// Threat model. What the seal proves: the file's events, their number and
// their order are exactly those written through this library by the holder
// of the signing key named by the seal's fingerprint, and the project name
// is the one sealed with them. Any edit, insertion, removal or reordering
// of an event, a forged seal, a changed stylesheet reference or a trail cut
// short after its seal fails BeginSessionAndVerifySignature with an
// Exception naming the file. With the ledger (AuditTrailLedger.h) a trail
// rolled back to an older sealed copy of itself is caught too, on the
// installation that sealed it.
// Against whom: everyone who can write the file but cannot read the
// private key: other accounts and people with access to a shared project
// folder, editors and scripts, restored or copied files, accidental
// corruption. A trail moved to another installation verifies there when
// the administrator trusts its signer's public key (AuditTrailSigner.h).
// Not against: whoever can read the private key - the account that runs
// the application (it has to sign) and the machine's administrators - who
// can forge a whole trail. The key lives outside the file, in the user's
// configuration folder with mode 0600 (AuditTrailSigner.h); where accounts
// must not be able to forge, point TALVO_AUDIT_TRAIL_KEYS at a key that
// only a separate signing account can read. The seal does not prove that
// the clock was right, and the trail is not secret.
//
// A trail that fails to load or to verify is never overwritten: Save,
// SaveAs, AddEvent and EndSessionAndSave throw until Clear, which keeps the
// refused file beside the trail and starts a new one with a "cleared" event
// that names it.
//
// Not thread-safe; the signals fire on the thread that changes the trail.

#include <boost/signals2/signal.hpp>

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "utl/AuditTrailSettings.h"

class AuditTrailSigner;
class ConfigurationSection;
class Exception;

class AuditTrail {
public:
  using Signal = boost::signals2::signal<void(AuditTrail *)>;
  using Clock = std::function<std::chrono::system_clock::time_point()>;

  struct Event {
    uint64_t sequence = 0;
    std::string time;  // "2024-06-11T09:15:02.123456Z"
    std::string user;
    int level = 0;
    std::string type;
    std::string text;
    std::string detail;
    std::string hash;  // hex
  };

  // Fired by the destructor, SetActiveAuditTrail and BroadCastChange,
  // SetProjectName, EndSessionAndSave, AddEvent (and Clear), and
  // BeginSessionAndVerifySignature.
  static Signal msAuditTrailDeleting;
  static Signal msAuditTrailActiveAuditTrailChanged;
  static Signal msAuditTrailProjectNameChanged;
  static Signal msAuditTrailEndSession;
  static Signal msAuditTrailEventAdded;
  static Signal msAuditTrailBeginSession;

  // The trail kept in the file at `path`; its settings live in `settings`,
  // which the trail owns (may be null). Nothing is read before Load. An
  // empty `keyFolder` is AuditTrailSigner::DefaultKeyFolder().
  AuditTrail(char const * path, ConfigurationSection * settings,
             std::string const & keyFolder = std::string());
  // Saves unsaved events (a failure goes to the log), then fires
  // msAuditTrailDeleting.
  virtual ~AuditTrail();
  AuditTrail(AuditTrail const &) = delete;
  AuditTrail & operator=(AuditTrail const &) = delete;

  virtual std::string GetProjectName() const;
  // Makes the trail ready for logging: the signing key exists (created on
  // first use) and the settings are read. Called before Load when the trail
  // is turned on.
  virtual void PrepareForLogging();
  // Adds an event of type "event" when logging is on and `level` is below
  // the log level; otherwise does nothing. Loads the file first if that has
  // not been done. Throws when the trail failed to load or verify.
  virtual void AddEvent(char const * text, char const * detail, int level);

  // Reads the file; a missing file is an empty trail. Unsaved events are
  // saved first. Throws Exception naming the file when it cannot be read or
  // is no audit trail; the file is then refused for writing. Whether the
  // trail verifies is told by BeginSessionAndVerifySignature.
  void Load();
  // Writes the trail, sealed, atomically, when it has changes or no file
  // yet, and records it in the ledger.
  void Save();
  // Writes a sealed copy to `path`, and the stylesheet beside it as
  // GetXSLFileName(); the trail's own file stays what it was.
  void SaveAs(char const * path);
  bool IsEmpty() const;
  // Starts a new trail (new id) whose first event records the clearing and
  // the trail it replaces; a refused file is kept as "<file>.rejected-<UTC>".
  void Clear();
  std::string GetFileName() const;
  // Loads if needed, throws Exception naming the file when the trail does
  // not verify, then opens a session ("session-begin" event when on).
  void BeginSessionAndVerifySignature();
  // Closes the session ("session-end" event when on), saves, and fires
  // msAuditTrailEndSession.
  void EndSessionAndSave();
  // Fires msAuditTrailActiveAuditTrailChanged for this trail.
  void BroadCastChange();

  bool IsModified() const { return mModified; }
  void SetProjectName(std::string const & name);
  std::deque<Event> const & GetEvents() const { return mEvents; }
  std::string const & GetTrailId() const { return mTrailId; }
  // The trail as written by Save (sealed). Throws like Save.
  std::string ToXmlString();

  // For tests and services: the time source (UTC) and the user recorded.
  void SetClock(Clock clock);
  void SetUserName(std::string const & user);

  // The trail the application shows; fires
  // msAuditTrailActiveAuditTrailChanged with it.
  static void SetActiveAuditTrail(AuditTrail * trail);
  static AuditTrail * GetActiveAuditTrail();

  // "audit_trail.xsl" and its content: the stylesheet that shows the file.
  static char const * GetXSLFileName();
  static char const * GetStylesheet();

  AuditTrailSettings mSettings;

private:
  void EnsureLoaded();
  void ThrowIfRefused(char const * action) const;
  void Append(char const * type, std::string const & text, std::string const & detail, int level);
  std::string Seal();
  void Verify(std::string const & stylesheetReference, std::string const & sealCount,
              std::string const & sealHead, std::string const & signer,
              std::string const & signature);
  void StartNewTrail();
  void AppendToBody(Event const & event);
  void ApplyPendingProjectName();

  std::string mPath;
  std::string mProjectName;
  std::optional<std::string> mPendingProjectName;  // set before Load
  std::string mTrailId;
  // A deque and a body in chunks: an event never moves the ones before it.
  std::deque<Event> mEvents;
  std::vector<std::string> mBody;  // the events' XML, appended as they come
  std::string mHead;               // raw hash of the last event, or h0
  bool mLoaded = false;
  bool mModified = false;
  bool mSessionOpen = false;
  std::unique_ptr<Exception> mRefusal;  // why the file may not be overwritten
  std::unique_ptr<AuditTrailSigner> mSigner;
  std::string mKeyFolder;
  Clock mClock;
  std::string mUser;
};
