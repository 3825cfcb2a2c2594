#pragma once
// The security identifier of the user this process runs as, carried by every
// event-log entry. A Unix account is named by the SID form Unix accounts
// have in mixed networks, S-1-22-1-<uid>. Copies share one buffer.
//
// The identifier is found as the family always found it, each step able to
// leave the object empty without a report: the user's name (at most 256
// characters), the account of that name, its identifier checked for form,
// and a verified copy. An account that cannot be looked up (a UID without a
// passwd entry, as in many containers) leaves it empty.

#include <cstdint>
#include <memory>
#include <string>

class VxSid {
public:
  // `system`: the machine whose accounts are asked; null for this one (the
  // only one a Linux process can ask: another leaves the object empty).
  explicit VxSid(wchar_t const * system);

  // The binary SID (revision, count, authority, sub-authorities), or null.
  operator void *() const;  // NOLINT(google-explicit-constructor): the family's idiom
  // "S-1-22-1-<uid>", empty when there is none.
  std::string ToString() const;

private:
  struct Buffer {
    uint8_t revision = 1;
    uint8_t subAuthorityCount = 2;
    uint8_t authority[6] = {0, 0, 0, 0, 0, 22};
    uint32_t subAuthority[2] = {1, 0};
  };
  std::shared_ptr<Buffer> mSid;
};
