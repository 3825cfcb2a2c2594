#include "utl/AuditTrailSigner.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <openssl/evp.h>
#include <openssl/pem.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "utl/AtomicFile.h"
#include "utl/Digest.h"
#include "utl/Exception.h"
#include "utl/Paths.h"
#include "utl/WholeFile.h"

namespace {

constexpr char kPrivateName[] = "signing-key.pem";
constexpr char kPublicName[] = "signing-key.pub";
constexpr size_t kMaxKeyFileBytes = 64 * 1024;

struct PKeyFree {
  void operator()(EVP_PKEY * key) const { EVP_PKEY_free(key); }
};
using PKeyPtr = std::unique_ptr<EVP_PKEY, PKeyFree>;
struct BioFree {
  void operator()(BIO * bio) const { BIO_free(bio); }
};
using BioPtr = std::unique_ptr<BIO, BioFree>;
struct MdFree {
  void operator()(EVP_MD_CTX * context) const { EVP_MD_CTX_free(context); }
};
using MdPtr = std::unique_ptr<EVP_MD_CTX, MdFree>;

Exception KeyFailure(std::string const & path, char const * what) {
  return Exception(ExceptionMessage::translate("The audit-trail signing key {1} {2}.") % path %
                   std::string(what));
}

std::string RawPublicKey(EVP_PKEY * key) {
  unsigned char raw[64];
  size_t length = sizeof raw;
  if (EVP_PKEY_get_raw_public_key(key, raw, &length) != 1) return std::string();
  return std::string(reinterpret_cast<char const *>(raw), length);
}

std::string PemOf(EVP_PKEY * key, bool isPrivate) {
  BioPtr bio(BIO_new(BIO_s_mem()));
  int const written =
      isPrivate ? PEM_write_bio_PrivateKey(bio.get(), key, nullptr, nullptr, 0, nullptr, nullptr)
                : PEM_write_bio_PUBKEY(bio.get(), key);
  if (written != 1) return std::string();
  char * data = nullptr;
  long const length = BIO_get_mem_data(bio.get(), &data);
  return std::string(data, static_cast<size_t>(length));
}

PKeyPtr ReadPem(std::string const & text, bool isPrivate) {
  BioPtr bio(BIO_new_mem_buf(text.data(), static_cast<int>(text.size())));
  EVP_PKEY * key = isPrivate ? PEM_read_bio_PrivateKey(bio.get(), nullptr, nullptr, nullptr)
                             : PEM_read_bio_PUBKEY(bio.get(), nullptr, nullptr, nullptr);
  PKeyPtr result(key);
  if (result && EVP_PKEY_get_id(result.get()) != EVP_PKEY_ED25519) result.reset();
  return result;
}

}  // namespace

struct AuditTrailSigner::Key {
  PKeyPtr key;
  std::string fingerprint;
};

AuditTrailSigner::AuditTrailSigner(std::string keyFolder, std::vector<std::string> trustedFolders)
    : mKeyFolder(keyFolder.empty() ? DefaultKeyFolder() : std::move(keyFolder)),
      mTrustedFolders(trustedFolders.empty() ? DefaultTrustedFolders(mKeyFolder)
                                             : std::move(trustedFolders)) {}

AuditTrailSigner::~AuditTrailSigner() = default;

std::string AuditTrailSigner::DefaultKeyFolder() {
  if (char const * folder = std::getenv("TALVO_AUDIT_TRAIL_KEYS"); folder && *folder) return folder;
  std::string base;
  if (char const * config = std::getenv("XDG_CONFIG_HOME"); config && *config == '/')
    base = config;
  else if (char const * home = std::getenv("HOME"); home && *home)
    base = VxPathAppend(home, ".config");
  else
    base = "/tmp";
  return VxPathAppend(base, "Karvinel/AuditTrail");
}

std::vector<std::string> AuditTrailSigner::DefaultTrustedFolders(std::string const & keyFolder) {
  std::string system = "/etc/xdg";
  if (char const * dirs = std::getenv("XDG_CONFIG_DIRS"); dirs && *dirs == '/') {
    system = dirs;
    system = system.substr(0, system.find(':'));
  }
  return {VxPathAppend(keyFolder, "trusted"), VxPathAppend(system, "Karvinel/AuditTrail/trusted")};
}

void AuditTrailSigner::EnsureKey() {
  if (mOwn) return;
  std::string const privatePath = VxPathAppend(mKeyFolder, kPrivateName);
  if (!VxCreateFolder(mKeyFolder))
    throw KeyFailure(privatePath, "cannot be stored: its folder cannot be created");
  ::chmod(mKeyFolder.c_str(), 0700);

  std::string pem;
  if (!vx3::ReadWholeFile(privatePath, kMaxKeyFileBytes, pem)) {
    // Create it: a private temporary file, then link() to the final name,
    // which fails if another process was quicker; then use theirs.
    PKeyPtr fresh(EVP_PKEY_Q_keygen(nullptr, nullptr, "ED25519"));
    if (!fresh) throw KeyFailure(privatePath, "cannot be created");
    std::string const text = PemOf(fresh.get(), true);
    std::string const temporary = privatePath + ".new-" + std::to_string(::getpid());
    int const fd = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    bool written =
        fd >= 0 && ::write(fd, text.data(), text.size()) == static_cast<ssize_t>(text.size());
    written = fd >= 0 && ::fsync(fd) == 0 && written;
    if (fd >= 0) ::close(fd);
    bool const linked = written && ::link(temporary.c_str(), privatePath.c_str()) == 0;
    bool const lostRace = !linked && written && errno == EEXIST;
    ::unlink(temporary.c_str());
    if (!linked && !lostRace) throw KeyFailure(privatePath, "cannot be created");
    if (!vx3::ReadWholeFile(privatePath, kMaxKeyFileBytes, pem))
      throw KeyFailure(privatePath, "cannot be read");
  }
  struct stat info {};
  if (::stat(privatePath.c_str(), &info) != 0 || (info.st_mode & 077) != 0 ||
      info.st_uid != ::geteuid())
    throw KeyFailure(privatePath,
                     "may be read by other users; it must belong to you with mode 0600");
  PKeyPtr key = ReadPem(pem, true);
  if (!key) throw KeyFailure(privatePath, "is no Ed25519 private key");

  auto own = std::make_unique<Key>();
  own->fingerprint = vx3::ToHex(vx3::Sha256(RawPublicKey(key.get())));
  own->key = std::move(key);
  std::string const publicPath = VxPathAppend(mKeyFolder, kPublicName);
  std::string existing;
  std::string const publicPem = PemOf(own->key.get(), false);
  try {
    if (!vx3::ReadWholeFile(publicPath, kMaxKeyFileBytes, existing) || existing != publicPem)
      vx3::WriteFileAtomically(publicPath, publicPem, 0644);
  } catch (Exception const &) {
    // The public copy is for handing out; sealing does not need it.
  }
  mOwn = std::move(own);
}

std::string AuditTrailSigner::Fingerprint() {
  EnsureKey();
  return mOwn->fingerprint;
}

std::string AuditTrailSigner::Sign(std::string_view message) {
  EnsureKey();
  MdPtr context(EVP_MD_CTX_new());
  unsigned char signature[128];
  size_t length = sizeof signature;
  if (!context ||
      EVP_DigestSignInit(context.get(), nullptr, nullptr, nullptr, mOwn->key.get()) != 1 ||
      EVP_DigestSign(context.get(), signature, &length,
                     reinterpret_cast<unsigned char const *>(message.data()), message.size()) != 1)
    throw Exception(ExceptionMessage::translate("The audit trail could not be signed."));
  return vx3::ToHex(std::string_view(reinterpret_cast<char const *>(signature), length));
}

void AuditTrailSigner::LoadTrusted() {
  if (mTrustedLoaded) return;
  mTrustedLoaded = true;
  for (std::string const & folder : mTrustedFolders) {
    DIR * listing = ::opendir(folder.c_str());
    if (listing == nullptr) continue;
    while (dirent const * entry = ::readdir(listing)) {
      std::string const name = entry->d_name;
      if (name.size() < 5 || name.compare(name.size() - 4, 4, ".pub") != 0) continue;
      std::string pem;
      try {
        if (!vx3::ReadWholeFile(VxPathAppend(folder, name), kMaxKeyFileBytes, pem)) continue;
      } catch (Exception const &) {
        continue;  // an unreadable entry trusts nobody
      }
      auto trusted = std::make_shared<Key>();
      trusted->key = ReadPem(pem, false);
      if (!trusted->key) continue;
      trusted->fingerprint = vx3::ToHex(vx3::Sha256(RawPublicKey(trusted->key.get())));
      mTrusted.emplace(trusted->fingerprint, trusted);
    }
    ::closedir(listing);
  }
}

AuditTrailSigner::Verdict AuditTrailSigner::Verify(std::string const & fingerprint,
                                                   std::string_view message,
                                                   std::string const & signatureHex) {
  EVP_PKEY * key = nullptr;
  EnsureKey();
  if (fingerprint == mOwn->fingerprint) {
    key = mOwn->key.get();
  } else {
    LoadTrusted();
    auto const found = mTrusted.find(fingerprint);
    if (found == mTrusted.end()) return Verdict::UnknownSigner;
    key = found->second->key.get();
  }
  std::string signature;
  if (!vx3::FromHex(signatureHex, signature)) return Verdict::Forged;
  MdPtr context(EVP_MD_CTX_new());
  bool const valid =
      context && EVP_DigestVerifyInit(context.get(), nullptr, nullptr, nullptr, key) == 1 &&
      EVP_DigestVerify(context.get(), reinterpret_cast<unsigned char const *>(signature.data()),
                       signature.size(), reinterpret_cast<unsigned char const *>(message.data()),
                       message.size()) == 1;
  return valid ? Verdict::Valid : Verdict::Forged;
}
