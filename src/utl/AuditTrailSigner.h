#pragma once
// The key that seals audit trails on this installation, and the public keys
// it trusts. See AuditTrail.h for what a seal proves and against whom.
//
// Key folder: $TALVO_AUDIT_TRAIL_KEYS when set (an administrator can point
// every account at a managed place; tests point it at a temporary folder),
// else $XDG_CONFIG_HOME/Karvinel/AuditTrail (~/.config/...). It holds
//   signing-key.pem   the Ed25519 private key, PKCS#8 PEM, mode 0600
//   signing-key.pub   its public key, SubjectPublicKeyInfo PEM, to hand to
//                     other installations that must verify our trails
// The folder is made 0700 and the key is created on first use. A private
// key that group or others may read is refused, as ssh refuses it.
//
// Trusted signers: our own key, and every *.pub in <key folder>/trusted and
// in <first of $XDG_CONFIG_DIRS>/Karvinel/AuditTrail/trusted (the
// administrator's list, /etc/xdg/... by default). Keys are known by their
// fingerprint: the hex SHA-256 of the raw 32-byte public key.

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class AuditTrailSigner {
public:
  enum class Verdict { Valid, Forged, UnknownSigner };

  // An empty folder means DefaultKeyFolder(); an empty list of trusted
  // folders means DefaultTrustedFolders() of the key folder.
  explicit AuditTrailSigner(std::string keyFolder = std::string(),
                            std::vector<std::string> trustedFolders = {});
  ~AuditTrailSigner();
  AuditTrailSigner(AuditTrailSigner const &) = delete;
  AuditTrailSigner & operator=(AuditTrailSigner const &) = delete;

  static std::string DefaultKeyFolder();
  static std::vector<std::string> DefaultTrustedFolders(std::string const & keyFolder);

  std::string const & KeyFolder() const { return mKeyFolder; }

  // Loads the key, creating it if there is none. Throws Exception naming
  // the key file when it cannot be read, created or is not private.
  void EnsureKey();
  std::string Fingerprint();
  // The hex Ed25519 signature of `message`.
  std::string Sign(std::string_view message);
  // Whether `signatureHex` is the signature of `message` by the key with
  // that fingerprint, among the trusted ones.
  Verdict Verify(std::string const & fingerprint, std::string_view message,
                 std::string const & signatureHex);

private:
  struct Key;
  void LoadTrusted();

  std::string mKeyFolder;
  std::vector<std::string> mTrustedFolders;
  std::unique_ptr<Key> mOwn;
  std::map<std::string, std::shared_ptr<Key>> mTrusted;  // by fingerprint
  bool mTrustedLoaded = false;
};
