#pragma once
// The sample's details and information dialogs, at the end of its Messages
// menu: a failure report with its details open or closed, one that can be
// silenced, information in plain text, HTML and rich text with a
// remembered answer, a message box whose long text scrolls, and the mute
// switch of a batch run, which lists what it caught.

class wxFrame;
class wxMenu;

// Appends the commands to `menu` and binds them on `frame`.
void AppendDetailsCommands(wxMenu & menu, wxFrame & frame);

// The keys under which the sample's dialogs keep a "don't show" answer.
extern wchar_t const kSampleDetailsKey[];
extern wchar_t const kSampleInfoKey[];
