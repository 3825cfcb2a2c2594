#pragma once
// Help > Send feedback: opens the user's mail program with a message to the
// sample's feedback address, its subject and body naming the application,
// its version and the system, for the user to complete and send. When no
// mail program takes it, the user is told why.

#include "controls/VxSendMail.h"

class wxFrame;
class wxMenu;

extern char const kFeedbackAddress[];

// The message the command hands over.
VxSendMail MakeFeedbackMail();

void AddSendFeedbackCommand(wxMenu & menu, wxFrame & frame);
