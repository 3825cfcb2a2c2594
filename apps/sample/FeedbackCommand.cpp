#include "FeedbackCommand.h"

#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/utils.h>

#include "SampleCommands.h"
#include "utl/ExceptionMessage.h"
#include "utl/Translation.h"
#include "utl/UserComm.h"
#include "utl/Utf.h"
#include "utl/VxSystemInfo.h"

using vx3::Tr;

char const kFeedbackAddress[] = "feedback@example.org";

VxSendMail MakeFeedbackMail() {
  VxSendMail mail;
  mail.AddTo(kFeedbackAddress);
  std::string const name = VxSystemInfo::GetApplicationName();
  wxString subject = Tr("Feedback on %1%");
  subject.Replace("%1%", wxString::FromUTF8(name));
  mail.SetSubject(subject.utf8_string());
  wxString body;
  body << Tr("Application: ") << wxString::FromUTF8(name) << "\n"
       << Tr("Version: ") << wxString::FromUTF8(VxSystemInfo::GetApplicationVersionAndBuild())
       << "\n"
       << Tr("System: ") << wxGetOsDescription() << "\n\n";
  mail.SetBody(body.utf8_string());
  return mail;
}

void AddSendFeedbackCommand(wxMenu & menu, wxFrame & frame) {
  menu.Append(kSendFeedbackCommand, Tr("Menu command", "Send &feedback..."));
  frame.Bind(
      wxEVT_MENU,
      [&frame](wxCommandEvent &) {
        VxSendMail mail = MakeFeedbackMail();
        if (mail.Send()) {
          frame.SetStatusText(Tr("The feedback message is in your mail program."));
          return;
        }
        frame.SetStatusText(Tr("No feedback message was sent."));
        UserComm::GetUserComm()->InformUser(
            ExceptionMessage::translate("{1}") % vx3::WideToUtf8(mail.GetLastError()),
            ExceptionMessage::translate("Send feedback"), 0);
      },
      kSendFeedbackCommand);
}
