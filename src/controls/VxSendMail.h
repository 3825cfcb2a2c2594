#pragma once
// Hands a message to the user's mail program, which opens its compose
// window with recipients, subject, body and attachments filled in; the user
// sends it from there. On the desktop this goes through xdg-email, given an
// argument vector (no shell): every address after its own --to, --cc or
// --bcc, so that an address starting with "-" is never read as an option.
//
// Send shows nothing; GetLastError says why it failed.

#include <string>
#include <vector>

class VxSendMail {
 public:
  // Each may be null; a non-null `to` is the first recipient.
  explicit VxSendMail(wchar_t const * to = nullptr, wchar_t const * subject = nullptr,
                      wchar_t const * body = nullptr);

  void AddTo(std::string const & address) { mTo.push_back(address); }
  void AddCC(std::string const & address) { mCc.push_back(address); }
  void AddBCC(std::string const & address) { mBcc.push_back(address); }
  void AddAttachment(std::string const & path) { mAttachments.push_back(path); }
  void SetSubject(std::string const & subject) { mSubject = subject; }
  void SetBody(std::string const & body) { mBody = body; }

  // Starts the mail program and waits, with the windows disabled but
  // painted, until it has taken the message, at most ten seconds (a mail
  // program may keep xdg-email waiting until its window closes; past that
  // the message counts as handed over). True unless it failed.
  bool Send();
  std::wstring GetLastError() const { return mLastError; }

  // What Send passes to xdg-email after the program's name.
  std::vector<std::string> Arguments() const;

  // The longest body one argument can carry.
  static constexpr size_t kMaxBody = 128 * 1024;

  // Forgets where xdg-email was found, which Send looks up once a process
  // (tests change PATH).
  static void ForgetMailProgram();

 private:
  bool Fail(unsigned stringId);

  std::string mSubject;
  std::string mBody;
  std::vector<std::string> mTo;
  std::vector<std::string> mCc;
  std::vector<std::string> mBcc;
  std::vector<std::string> mAttachments;
  std::wstring mLastError;
};
