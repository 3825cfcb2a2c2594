#include "service/VxSid.h"

#include <pwd.h>
#include <unistd.h>

#include <cstring>
#include <vector>

namespace {

constexpr size_t kUserNameCharacters = 256;

// The user's name as GetUserName gives it: the account of the effective
// UID, false when it has none or the name is longer than the buffer.
bool UserName(std::string & name) {
  std::vector<char> scratch(16384);
  struct passwd entry {};
  struct passwd * found = nullptr;
  if (::getpwuid_r(::geteuid(), &entry, scratch.data(), scratch.size(), &found) != 0 ||
      found == nullptr || found->pw_name == nullptr)
    return false;
  name = found->pw_name;
  return !name.empty() && name.size() < kUserNameCharacters;
}

// The UID of the account `name`, as LookupAccountName finds the account.
bool LookupAccount(std::string const & name, uid_t & uid) {
  std::vector<char> scratch(16384);
  struct passwd entry {};
  struct passwd * found = nullptr;
  if (::getpwnam_r(name.c_str(), &entry, scratch.data(), scratch.size(), &found) != 0 ||
      found == nullptr)
    return false;
  uid = found->pw_uid;
  return true;
}

}  // namespace

VxSid::VxSid(wchar_t const * system) {
  if (system != nullptr && system[0] != L'\0') return;
  std::string user;
  uid_t uid = 0;
  if (!UserName(user) || !LookupAccount(user, uid)) return;
  Buffer sid;
  sid.subAuthority[1] = static_cast<uint32_t>(uid);
  bool const valid = sid.revision == 1 && sid.subAuthorityCount == 2;
  if (!valid) return;
  auto copy = std::make_shared<Buffer>(sid);
  if (std::memcmp(copy.get(), &sid, sizeof sid) == 0) mSid = std::move(copy);
}

VxSid::operator void *() const { return mSid.get(); }

std::string VxSid::ToString() const {
  if (!mSid) return {};
  return "S-1-22-" + std::to_string(mSid->subAuthority[0]) + "-" +
         std::to_string(mSid->subAuthority[1]);
}
