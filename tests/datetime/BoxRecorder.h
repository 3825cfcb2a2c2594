#pragma once
// Records the framework message boxes shown while it lives (answering each
// with OK), so that a test sees every box in order without a display.

#include <string>
#include <vector>

#include "platform/MessageBoxes.h"
#include "utl/Utf.h"

class BoxRecorder {
public:
  struct Box {
    std::string text;  // UTF-8
    UINT type;
    UINT helpId;
  };

  BoxRecorder()
      : mFormer(SetFrameworkMessageBoxHandler([this](wxString const & text, UINT type, UINT help) {
          mBoxes.push_back({vx3::WideToUtf8(text.ToStdWstring()), type, help});
          return IDOK;
        })) {}
  ~BoxRecorder() { SetFrameworkMessageBoxHandler(mFormer); }
  BoxRecorder(BoxRecorder const &) = delete;
  BoxRecorder & operator=(BoxRecorder const &) = delete;

  std::vector<Box> const & Boxes() const { return mBoxes; }
  std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (auto const & box : mBoxes) texts.push_back(box.text);
    return texts;
  }

private:
  std::vector<Box> mBoxes;
  FrameworkMessageBoxHandler mFormer;
};
