#pragma once
// A borderless picture window of any outline with text lines on it, shown
// at start-up while an application loads. It comes (and goes) with a fade
// where the desktop can blend windows, hides itself after its show time or,
// if asked, on the first key or mouse press, and then destroys itself:
// create it with new and never delete it yourself once Create succeeded.
//
//   auto * splash = new VxSplashWindow;
//   if (splash->Create(nullptr, 2000, VxSplashWindow::kCentreOnScreen) &&
//       splash->SetBitmap(picture, RGB(255, 0, 255)))
//     splash->Show();
//
// The window is a shaped wxFrame of the window class "VxSplashScreenClass"
// with the splash type hint, kept above other windows and off the taskbar,
// and it never takes the focus from the application starting behind it.

#include <wx/bitmap.h>
#include <wx/colour.h>
#include <wx/font.h>
#include <wx/gdicmn.h>
#include <wx/region.h>

#include <memory>
#include <string>
#include <vector>

#include "controls/SplashFade.h"
#include "controls/SplashRegion.h"
#include "controls/SplashText.h"
#include "platform/WinGdi.h"

class wxDC;
class wxEvent;
class wxFrame;
class wxWindow;

class VxSplashWindow {
public:
  enum Style : unsigned long {
    kFadeIn = 1,
    kFadeOut = 2,
    kShadow = 4,  // the splash type hint lets a compositor shadow it
    kCentreOnScreen = 8,
    kCentreOnParent = 16,
    kHideOnPress = 32,
  };
  static constexpr int kShowTimerId = 0;
  static char const kWindowClass[];

  struct TextLine {
    std::wstring text;
    wxFont * font = nullptr;  // not owned; null: the window's font
    wxRect rect;
    unsigned format = DT_LEFT;
    COLORREF color = 0;
  };

  VxSplashWindow();
  VxSplashWindow(VxSplashWindow const &) = delete;
  VxSplashWindow & operator=(VxSplashWindow const &) = delete;

  // 1 when the window exists (hidden, at 0,0); 0 when it could not be made
  // or already was.
  int Create(wxWindow * parent, unsigned long showTime, unsigned long style);

  // The picture from the application's resources, a bitmap or a PNG or BMP
  // file, with its outline cut along `transparentColor`
  // (kNoTransparentColor: rectangular). 0, and nothing to show, when there
  // is no usable picture.
  int SetBitmap(unsigned int resourceId, COLORREF transparentColor);
  int SetBitmap(wxBitmap const & picture, COLORREF transparentColor);
  int SetBitmap(wchar_t const * file, COLORREF transparentColor);

  void Show();
  // Hides (after a fade out where possible) and destroys the window, which
  // deletes this object; without a window (Create failed) it deletes it at
  // once, so Hide is how a splash always leaves.
  void Hide();

  // A point font; flags: 1 bold, 2 italic, 4 underline.
  static bool InitFont(wxFont & font, wchar_t const * face, int size, int flags);
  static wxRegion CreateRgnFromBitmap(wxBitmap const & picture, COLORREF transparentColor);

  // The picture, then each text line.
  void DrawWindow(wxDC & dc) const;
  // Timer 0 (the show time) hides; the fade timer steps the fade.
  void OnTimer(int id);
  // With kHideOnPress, a key or mouse-button press hides the window and is
  // swallowed (true); everything else goes on (false).
  bool PreTranslateMessage(wxEvent & event);

  // Null until Create; the window is gone once Hide has finished.
  wxFrame * GetWindow() const;
  wxRegion const & GetRegion() const { return mRegion; }
  wxPoint GetPosition() const { return {mLeft, mTop}; }
  unsigned long GetStyle() const { return mStyle; }
  unsigned long GetShowTime() const { return mShowTime; }
  bool IsShowTimerRunning() const;
  bool IsFading() const { return mFade != nullptr; }
  // For tests: the clock the fades read.
  void SetFadeClock(SplashFade::Clock clock) { mFadeClock = std::move(clock); }

protected:
  virtual ~VxSplashWindow();
  // After a new picture: subclasses lay their text out on it.
  virtual void OnPictureChanged() {}
  int GetPictureWidth() const { return mWidth; }
  int GetPictureHeight() const { return mHeight; }

  std::vector<TextLine> mTextLines;

private:
  class Frame;
  friend class Frame;

  void StartFade(bool in);
  void StepFade();
  void FinishHide();

  Frame * mWindow = nullptr;
  wxWindow * mParent = nullptr;
  wxBitmap mPicture;
  wxRegion mRegion;
  bool mEmptyShape = false;  // every pixel transparent: nothing to show
  bool mHiding = false;
  unsigned long mStyle = 0;
  unsigned long mShowTime = 2000;
  int mWidth = 0;
  int mHeight = 0;
  int mLeft = 0;
  int mTop = 0;
  SplashFade::Clock mFadeClock;
  std::unique_ptr<SplashFade> mFade;
};
