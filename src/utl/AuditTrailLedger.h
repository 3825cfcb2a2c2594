#pragma once
// What this installation remembers of each audit trail it sealed: the
// number of events and the hash of the last one, one small file per trail
// in <key folder>/ledger/<trail id>. A seal alone cannot tell a trail from
// an older sealed copy of itself (a restored backup that drops the latest
// events); the ledger can: the trail must still hold the remembered event
// at the remembered position. Trails never sealed here have no entry and
// are taken as they are.

#include <cstdint>
#include <string>

class AuditTrailLedger {
public:
  explicit AuditTrailLedger(std::string keyFolder);

  // A trail id is 32 hex digits; anything else (it comes from a file) is
  // never used as a file name, and has no entry.
  static bool IsValidTrailId(std::string const & id);

  // False when there is no entry (or it is unreadable).
  bool Read(std::string const & trailId, uint64_t & count, std::string & headHex) const;
  // Throws Exception when the entry cannot be written.
  void Record(std::string const & trailId, uint64_t count, std::string const & headHex) const;

private:
  std::string PathOf(std::string const & trailId) const;

  std::string mFolder;
};
