#include "controls/VxSendMail.h"

#include <gio/gio.h>
#include <unistd.h>

#include <wx/app.h>
#include <wx/process.h>
#include <wx/stopwatch.h>
#include <wx/utils.h>

#include <cstdlib>
#include <mutex>
#include <optional>

#include "platform/ResourceModule.h"
#include "utl/Utf.h"

namespace {

constexpr unsigned kNoMailProgram = 61840;
constexpr unsigned kNoMailHandler = 61841;
constexpr unsigned kSendFailed = 61842;
constexpr long kWaitMs = 10'000;

std::mutex gProgramMutex;
std::optional<std::string> gProgram;  // empty string: looked up, not there

std::string FindOnPath(char const * name) {
  char const * path = std::getenv("PATH");
  std::string const folders = path != nullptr ? path : "/usr/local/bin:/usr/bin:/bin";
  size_t start = 0;
  while (start <= folders.size()) {
    size_t const end = folders.find(':', start);
    std::string folder = folders.substr(start, end == std::string::npos ? std::string::npos : end - start);
    if (folder.empty()) folder = ".";
    std::string candidate = folder + "/" + name;
    if (::access(candidate.c_str(), X_OK) == 0) return candidate;
    if (end == std::string::npos) break;
    start = end + 1;
  }
  return {};
}

std::string MailProgram() {
  std::lock_guard<std::mutex> lock(gProgramMutex);
  if (!gProgram) gProgram = FindOnPath("xdg-email");
  return *gProgram;
}

// Without a program for mailto links, xdg-email falls back to a browser,
// which drops the attachments: better to say so.
bool HasMailHandler() {
  GAppInfo * handler = g_app_info_get_default_for_uri_scheme("mailto");
  if (handler == nullptr) return false;
  g_object_unref(handler);
  return true;
}

// Hears the end of the mail program.
class MailProcess : public wxProcess {
 public:
  void OnTerminate(int, int status) override {
    if (mHandedOver) {
      delete this;  // nobody waits any more
      return;
    }
    mStatus = status;
    mEnded = true;
  }
  // Send returns without it: it ends with the mail program.
  void HandOver() { mHandedOver = true; }
  bool Ended() const { return mEnded; }
  int Status() const { return mStatus; }

 private:
  bool mEnded = false;
  bool mHandedOver = false;
  int mStatus = -1;
};

}  // namespace

VxSendMail::VxSendMail(wchar_t const * to, wchar_t const * subject, wchar_t const * body)
    : mSubject(subject != nullptr ? vx3::WideToUtf8(subject) : std::string()),
      mBody(body != nullptr ? vx3::WideToUtf8(body) : std::string()) {
  if (to != nullptr) mTo.push_back(vx3::WideToUtf8(to));
}

void VxSendMail::ForgetMailProgram() {
  std::lock_guard<std::mutex> lock(gProgramMutex);
  gProgram.reset();
}

std::vector<std::string> VxSendMail::Arguments() const {
  // The texts are UTF-8 already: without --utf8 xdg-email would convert
  // them from the locale's encoding once more.
  std::vector<std::string> arguments{"--utf8"};
  auto addresses = [&arguments](char const * option, std::vector<std::string> const & list) {
    for (std::string const & address : list) {
      if (address.empty()) continue;
      arguments.push_back(option);
      arguments.push_back(address);
    }
  };
  addresses("--to", mTo);
  addresses("--cc", mCc);
  addresses("--bcc", mBcc);
  // An empty value is a syntax error to xdg-email: left out instead.
  if (!mSubject.empty()) arguments.insert(arguments.end(), {"--subject", mSubject});
  if (!mBody.empty()) arguments.insert(arguments.end(), {"--body", mBody});
  for (std::string const & path : mAttachments)
    if (!path.empty()) arguments.insert(arguments.end(), {"--attach", path});
  return arguments;
}

bool VxSendMail::Fail(unsigned stringId) {
  mLastError = LoadResourceString(stringId).ToStdWstring();
  return false;
}

bool VxSendMail::Send() {
  std::string const program = MailProgram();
  if (program.empty()) return Fail(kNoMailProgram);
  if (!HasMailHandler()) return Fail(kNoMailHandler);
  if (mBody.size() > kMaxBody) return Fail(kSendFailed);

  std::vector<std::string> const arguments = Arguments();
  std::vector<char const *> argv{program.c_str()};
  for (std::string const & argument : arguments) argv.push_back(argument.c_str());
  argv.push_back(nullptr);

  auto * process = new MailProcess;
  long const pid = wxExecute(argv.data(), wxEXEC_ASYNC, process);
  if (pid <= 0) {
    delete process;
    return Fail(kSendFailed);
  }
  bool ended = false;
  int status = 0;
  {
    // The windows stay painted, but take no input, while the mail program
    // has the message.
    wxWindowDisabler disabler;
    wxStopWatch watch;
    while (!process->Ended() && watch.Time() < kWaitMs) {
      if (wxTheApp != nullptr) wxTheApp->Yield(true);
      wxMilliSleep(5);
    }
    ended = process->Ended();
    status = process->Status();
  }
  if (!ended) {
    process->HandOver();
    return true;
  }
  delete process;
  if (status != 0) return Fail(kSendFailed);
  mLastError.clear();
  return true;
}
