#pragma once
// The sample's file commands, each through the library's file and folder
// dialogs: open measurement files, save the run list, choose the folder
// the file dialogs start in, and edit the folders searched for data.

#include <functional>
#include <string>
#include <vector>

class wxFrame;
class wxMenu;

// Appends the commands to `fileMenu` and handles them on `frame`; `rows`
// gives the lines that Save As writes.
void AddFileCommands(wxFrame & frame, wxMenu & fileMenu,
                     std::function<std::vector<std::string>()> rows);
