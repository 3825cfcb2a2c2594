#pragma once
// The right-hand side of the help window: what shows a topic of a compiled
// help file. The help control (CHHCtrl) does it in the application; tests
// give a viewer that records what it was asked to show.

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include <wx/string.h>

class wxWindow;

class HelpTopicViewer {
public:
  virtual ~HelpTopicViewer() = default;

  virtual wxWindow * GetWindow() const = 0;
  // Shows `innerPath` ("/a.htm") of the help file at `chmPath`.
  virtual void Show(std::string const & chmPath, std::string const & innerPath) = 0;

  // Called with the file and topic the viewer arrived at, whether asked by
  // Show or reached by a link in a topic.
  using TopicReached =
      std::function<void(std::string const & chmPath, std::string const & innerPath)>;
  void SetTopicReached(TopicReached reached) { m_topicReached = std::move(reached); }

protected:
  void TellTopicReached(std::string const & chmPath, std::string const & innerPath) const {
    if (m_topicReached) m_topicReached(chmPath, innerPath);
  }

private:
  TopicReached m_topicReached;
};

// Makes a viewer in `parent`; null when none can be made.
using HelpTopicViewerFactory = std::function<std::unique_ptr<HelpTopicViewer>(wxWindow * parent)>;

// A viewer on the help control: pages served under "its:" addresses, links
// between topics and "app:" links as the control follows them.
std::unique_ptr<HelpTopicViewer> MakeHelpControlViewer(wxWindow * parent);

// The commands of "app:name" links in the help windows' topics (names
// compared with case), posted to the application's main window. The
// application sets them once; until then such links do nothing.
void SetHelpWindowCommands(std::map<wxString, unsigned int> const & commands);
