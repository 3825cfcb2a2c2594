#include "BatchCommand.h"

#include <wx/menu.h>
#include <wx/window.h>

#include "SampleCommands.h"
#include "frame/MemoryUserComm.h"
#include "frame/StandardUserComm.h"
#include "utl/ExceptionMessage.h"
#include "utl/Translation.h"

namespace {

constexpr int kSampleRunCount = 12;

}  // namespace

void InstallStandardUserComm() {
  static StandardUserComm channel;
  UserComm::SetUserComm(&channel);
}

void AddBatchCommand(wxMenu & menu, wxWindow & frame) {
  menu.Append(kArchiveRunsCommand, vx3::Tr("Menu command", "&Archive runs..."));
  frame.Bind(
      wxEVT_MENU, [](wxCommandEvent &) { RunArchiveBatch(kSampleRunCount); }, kArchiveRunsCommand);
}

int RunArchiveBatch(int runCount) {
  int archived = 0;
  // Questions and messages of the batch go through this scope's channel.
  MemoryUserComm batch;
  UserCommMessage const header = ExceptionMessage::translate("Archive this measurement run?");
  UserCommMessage const caption = ExceptionMessage::translate("Archive runs");
  for (int run = 1; run <= runCount; ++run) {
    UserComm * const comm = UserComm::GetUserComm();
    UserCommMessage const text =
        ExceptionMessage::translate("Run {1}: {2} samples, measured on line {3}.") % run %
        (40 + 7 * run) % (1 + run % 3);
    int const answer = comm->AskUserYesYesToAllNoNoToAllCancel(header, text, caption, UserCommYes);
    if (answer == UserCommCancel) {
      comm->InformUser(ExceptionMessage::translate("Stopped before run {1}.") % run, caption, 0);
      break;
    }
    if (answer == UserCommYes) {
      ++archived;
      comm->InformUser(ExceptionMessage::translate("Run {1} archived.") % run, caption, 0);
    } else {
      comm->InformUser(ExceptionMessage::translate("Run {1} kept.") % run, caption, 0);
    }
  }
  return archived;
}
