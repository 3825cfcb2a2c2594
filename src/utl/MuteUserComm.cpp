#include "utl/MuteUserComm.h"

#include <string>

#include "utl/Log.h"

namespace {

int AnswerYesNo(int defaultAnswer) {
  return defaultAnswer == UserCommYes || defaultAnswer == UserCommYesToAll ? UserCommYes
                                                                           : UserCommNo;
}

int AnswerYesCancel(int defaultAnswer) {
  return defaultAnswer == UserCommYes || defaultAnswer == UserCommYesToAll ? UserCommYes
                                                                           : UserCommCancel;
}

int AnswerYesYesToAllCancel(int defaultAnswer) {
  return defaultAnswer == UserCommYes || defaultAnswer == UserCommYesToAll ? defaultAnswer
                                                                           : UserCommCancel;
}

int AnswerAll(int defaultAnswer) {
  return defaultAnswer >= UserCommYes && defaultAnswer <= UserCommCancel ? defaultAnswer
                                                                         : UserCommCancel;
}

std::string Join(UserCommMessage const & caption, UserCommMessage const & header,
                 UserCommMessage const & text) {
  std::locale const locale;
  std::string line = caption.ToString(locale);
  for (auto const * part : {&header, &text}) {
    std::string const piece = part->ToString(locale);
    if (piece.empty()) continue;
    if (!line.empty()) line += ": ";
    line += piece;
  }
  return line;
}

int Answered(char const * function, int answer, UserCommMessage const & caption,
             UserCommMessage const & header, UserCommMessage const & text) {
  Log::WriteMessage("MuteUserComm", function,
                    Join(caption, header, text) + " -> answered " + std::to_string(answer),
                    Log::Routine, false);
  return answer;
}

}  // namespace

MuteUserComm::~MuteUserComm() = default;

int MuteUserComm::AskUserYesNo(UserCommMessage const & header, UserCommMessage const & text,
                               UserCommMessage const & caption, int defaultAnswer) {
  return Answered("AskUserYesNo", AnswerYesNo(defaultAnswer), caption, header, text);
}

int MuteUserComm::AskUserYesNo(UserCommMessage const & text, UserCommMessage const & caption,
                               int defaultAnswer) {
  return Answered("AskUserYesNo", AnswerYesNo(defaultAnswer), caption, UserCommMessage(), text);
}

int MuteUserComm::AskUserYesYesToAllNoNoToAllCancel(UserCommMessage const & header,
                                                    UserCommMessage const & text,
                                                    UserCommMessage const & caption,
                                                    int defaultAnswer) {
  return Answered("AskUserYesYesToAllNoNoToAllCancel", AnswerAll(defaultAnswer), caption, header,
                  text);
}

int MuteUserComm::AskUserYesYesToAllCancel(UserCommMessage const & header,
                                           UserCommMessage const & text,
                                           UserCommMessage const & caption, int defaultAnswer) {
  return Answered("AskUserYesYesToAllCancel", AnswerYesYesToAllCancel(defaultAnswer), caption,
                  header, text);
}

int MuteUserComm::AskUserYesCancel(UserCommMessage const & header, UserCommMessage const & text,
                                   UserCommMessage const & caption, int defaultAnswer) {
  return Answered("AskUserYesCancel", AnswerYesCancel(defaultAnswer), caption, header, text);
}

void MuteUserComm::InformUser(UserCommMessage const & text, UserCommMessage const & caption,
                              unsigned long id) {
  Log::WriteMessage("MuteUserComm", "InformUser", Join(caption, UserCommMessage(), text),
                    Log::Normal, false);
}
