#pragma once
// The sample's batch command, "Archive runs": one question per measurement
// run through the process's UserComm channel. "Yes to all" or "No to all"
// answers the rest of the run at once; what was done is collected and shown
// in one message at the end (MemoryUserComm).

class wxMenu;
class wxWindow;

// Installs the sample's channel: a StandardUserComm that lives as long as
// the process.
void InstallStandardUserComm();

// Appends the command to `menu`; `frame` handles it.
void AddBatchCommand(wxMenu & menu, wxWindow & frame);

// Asks about `runCount` runs; returns how many were archived. Cancel stops.
int RunArchiveBatch(int runCount);
