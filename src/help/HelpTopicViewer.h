#pragma once
// The right-hand side of the help window: what shows a topic of a compiled
// help file. The help control (CHHCtrl) does it in the application; tests
// give a viewer that records what it was asked to show.

#include <functional>
#include <memory>
#include <string>

class wxWindow;

class HelpTopicViewer {
public:
  virtual ~HelpTopicViewer() = default;

  virtual wxWindow * GetWindow() const = 0;
  // Shows `innerPath` ("/a.htm") of the help file at `chmPath`.
  virtual void Show(std::string const & chmPath, std::string const & innerPath) = 0;
};

// Makes a viewer in `parent`; null when none can be made.
using HelpTopicViewerFactory = std::function<std::unique_ptr<HelpTopicViewer>(wxWindow * parent)>;

// A viewer on the help control: pages served under "its:" addresses, links
// between topics and "app:" links as the control follows them.
std::unique_ptr<HelpTopicViewer> MakeHelpControlViewer(wxWindow * parent);
