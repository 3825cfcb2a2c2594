// The baseline of the start-up figure: the barest wx application with a
// main window (a frame with a page, a menu bar and a status bar, like the
// sample's), which prints "painted" once its page has been painted, then
// exits.
#include <cstdio>

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/panel.h>

namespace {

class BareFrameApp : public wxApp {
public:
  bool OnInit() override {
    auto * frame = new wxFrame(nullptr, wxID_ANY, "bare", wxDefaultPosition, wxSize(720, 480));
    auto * menu = new wxMenu;
    menu->Append(wxID_EXIT, "E&xit");
    auto * bar = new wxMenuBar;
    bar->Append(menu, "&File");
    frame->SetMenuBar(bar);
    frame->CreateStatusBar();
    auto * page = new wxPanel(frame);
    page->Bind(wxEVT_PAINT, [this, frame](wxPaintEvent & event) {
      event.Skip();
      if (mPainted) return;
      mPainted = true;
      std::printf("painted\n");
      std::fflush(stdout);
      CallAfter([frame] { frame->Close(true); });
    });
    frame->Show();
    return true;
  }

private:
  bool mPainted = false;
};

}  // namespace

wxIMPLEMENT_APP(BareFrameApp);
