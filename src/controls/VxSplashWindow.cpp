#include "controls/VxSplashWindow.h"

#include <gtk/gtk.h>
#include <wx/control.h>
#include <wx/dcclient.h>
#include <wx/display.h>
#include <wx/frame.h>
#include <wx/timer.h>

#include <string>

#include "controls/SplashPicture.h"
#include "platform/ResourceModule.h"
#include "platform/WindowShape.h"

char const VxSplashWindow::kWindowClass[] = "VxSplashScreenClass";

namespace {

constexpr int kFadeTimerId = 1;
constexpr int kFadeStepMilliseconds = 16;

constexpr long kFrameStyle =
    wxFRAME_SHAPED | wxBORDER_NONE | wxSTAY_ON_TOP | wxFRAME_TOOL_WINDOW | wxFRAME_NO_TASKBAR;

}  // namespace

// The window itself. It owns the timers and, being the last to go, deletes
// its VxSplashWindow when wx destroys it (after Hide, or at exit).
class VxSplashWindow::Frame : public wxFrame {
public:
  explicit Frame(VxSplashWindow & owner) : mOwner(owner), mShowTimer(this, kShowTimerId) {
    mFadeTimer.SetOwner(this, kFadeTimerId);
  }
  ~Frame() override {
    if (!mOwnsOwner) return;
    mOwner.mWindow = nullptr;
    delete &mOwner;
  }
  Frame(Frame const &) = delete;
  Frame & operator=(Frame const &) = delete;

  void Bind() {
    SetBackgroundStyle(wxBG_STYLE_PAINT);  // the picture covers everything
    wxFrame::Bind(wxEVT_PAINT, [this](wxPaintEvent &) {
      wxPaintDC dc(this);
      mOwner.DrawWindow(dc);
    });
    wxFrame::Bind(wxEVT_TIMER, [this](wxTimerEvent & event) { mOwner.OnTimer(event.GetId()); });
    auto const press = [this](wxEvent & event) {
      if (!mOwner.PreTranslateMessage(event)) event.Skip();
    };
    wxFrame::Bind(wxEVT_KEY_DOWN, press);
    for (auto type : {wxEVT_LEFT_DOWN, wxEVT_RIGHT_DOWN, wxEVT_MIDDLE_DOWN, wxEVT_AUX1_DOWN,
                      wxEVT_AUX2_DOWN, wxEVT_LEFT_DCLICK, wxEVT_RIGHT_DCLICK, wxEVT_MIDDLE_DCLICK,
                      wxEVT_AUX1_DCLICK, wxEVT_AUX2_DCLICK})
      wxFrame::Bind(type, press);
  }

  VxSplashWindow & mOwner;
  bool mOwnsOwner = false;  // only once created: a failed window leaves it to the caller
  wxTimer mShowTimer;
  wxTimer mFadeTimer;
};

VxSplashWindow::VxSplashWindow() : mFadeClock([] { return std::chrono::steady_clock::now(); }) {}

VxSplashWindow::~VxSplashWindow() = default;

wxFrame * VxSplashWindow::GetWindow() const { return mWindow; }

bool VxSplashWindow::IsShowTimerRunning() const {
  return mWindow != nullptr && mWindow->mShowTimer.IsRunning();
}

int VxSplashWindow::Create(wxWindow * parent, unsigned long showTime, unsigned long style) {
  if (mWindow != nullptr) return 0;
  mParent = parent;
  mShowTime = showTime;
  mStyle = style;
  auto * window = new Frame(*this);
  if (!window->Create(parent, wxID_ANY, wxString(), wxPoint(0, 0), wxSize(1, 1), kFrameStyle,
                      kWindowClass)) {
    delete window;
    return 0;
  }
  mWindow = window;
  window->mOwnsOwner = true;
  window->Bind();
  // Before the window is realized: the class a window manager matches on,
  // and the splash type, which also lets a compositor draw its shadow.
  GtkWidget * widget = window->GetHandle();
  if (widget != nullptr && !gtk_widget_get_realized(widget)) {
    G_GNUC_BEGIN_IGNORE_DEPRECATIONS
    gtk_window_set_wmclass(GTK_WINDOW(widget), kWindowClass, kWindowClass);
    G_GNUC_END_IGNORE_DEPRECATIONS
    gtk_window_set_type_hint(GTK_WINDOW(widget), GDK_WINDOW_TYPE_HINT_SPLASHSCREEN);
  }
  return 1;
}

int VxSplashWindow::SetBitmap(unsigned int resourceId, COLORREF transparentColor) {
  return SetBitmap(LoadResourceBitmap(resourceId), transparentColor);
}

int VxSplashWindow::SetBitmap(wchar_t const * file, COLORREF transparentColor) {
  if (file == nullptr) return SetBitmap(wxBitmap(), transparentColor);
  return SetBitmap(LoadSplashPicture(wxString(file).utf8_string()), transparentColor);
}

int VxSplashWindow::SetBitmap(wxBitmap const & picture, COLORREF transparentColor) {
  mPicture = picture;
  if (!mPicture.IsOk()) {
    mWidth = mHeight = 0;
    return 0;
  }
  mWidth = mPicture.GetWidth();
  mHeight = mPicture.GetHeight();
  wxRect area;
  if ((mStyle & kCentreOnScreen) != 0)
    area = wxDisplay().GetGeometry();  // the primary display
  else if ((mStyle & kCentreOnParent) != 0)
    area = mParent != nullptr ? mParent->GetScreenRect() : wxDisplay().GetGeometry();
  if (!area.IsEmpty()) {
    mLeft = area.x + (area.width - mWidth) / 2;
    mTop = area.y + (area.height - mHeight) / 2;
  }
  OnPictureChanged();
  if (transparentColor == kNoTransparentColor) return 1;

  mRegion = CreateRgnFromBitmap(mPicture, transparentColor);
  // An empty region would remove the shape and show the whole rectangle.
  mEmptyShape = mRegion.IsEmpty();
  // A shown window takes the new outline at once, a hidden one when shown.
  if (mWindow != nullptr && mWindow->IsShown() && !mEmptyShape) {
    mWindow->SetSize(mLeft, mTop, mWidth, mHeight);
    mWindow->SetShape(mRegion);
    mWindow->Refresh();
  }
  return 1;
}

void VxSplashWindow::Show() {
  if (mWindow == nullptr || mHiding) return;
  mWindow->SetSize(mLeft, mTop, mWidth, mHeight);
  if (!mEmptyShape && mPicture.IsOk()) {
    if (!mRegion.IsEmpty()) SetShapeBeforeMap(*mWindow, mRegion);
    bool const fade = (mStyle & kFadeIn) != 0 && mWindow->CanSetTransparent();
    if (fade) mWindow->SetTransparent(0);
    mWindow->ShowWithoutActivating();
    if (fade) StartFade(true);
  }
  if (mShowTime != 0) mWindow->mShowTimer.StartOnce(static_cast<int>(mShowTime));
}

void VxSplashWindow::Hide() {
  if (mHiding) return;
  if (mWindow == nullptr) {
    delete this;  // never created: no window will delete it
    return;
  }
  mHiding = true;
  mWindow->mShowTimer.Stop();
  if ((mStyle & kFadeOut) != 0 && mWindow->IsShown() && mWindow->CanSetTransparent()) {
    StartFade(false);
    return;
  }
  FinishHide();
}

void VxSplashWindow::FinishHide() {
  mFade.reset();
  mWindow->mFadeTimer.Stop();
  mWindow->wxFrame::Hide();
  mWindow->Destroy();  // deleted when idle, and this object with it
}

void VxSplashWindow::StartFade(bool in) {
  auto const duration = std::chrono::milliseconds(in ? SplashFade::kFadeInMilliseconds
                                                     : SplashFade::kFadeOutMilliseconds);
  mFade = std::make_unique<SplashFade>(in, duration, mFadeClock);
  mWindow->mFadeTimer.Start(kFadeStepMilliseconds);
}

void VxSplashWindow::StepFade() {
  if (mFade == nullptr || mWindow == nullptr) return;
  mWindow->SetTransparent(mFade->Alpha());
  if (!mFade->Finished()) return;
  mFade.reset();
  mWindow->mFadeTimer.Stop();
  if (mHiding) FinishHide();
}

void VxSplashWindow::OnTimer(int id) {
  if (id == kShowTimerId)
    Hide();
  else if (id == kFadeTimerId)
    StepFade();
}

bool VxSplashWindow::PreTranslateMessage(wxEvent & event) {
  if ((mStyle & kHideOnPress) == 0) return false;
  wxEventType const type = event.GetEventType();
  bool const press =
      type == wxEVT_KEY_DOWN || type == wxEVT_LEFT_DOWN || type == wxEVT_RIGHT_DOWN ||
      type == wxEVT_MIDDLE_DOWN || type == wxEVT_AUX1_DOWN || type == wxEVT_AUX2_DOWN ||
      type == wxEVT_LEFT_DCLICK || type == wxEVT_RIGHT_DCLICK || type == wxEVT_MIDDLE_DCLICK ||
      type == wxEVT_AUX1_DCLICK || type == wxEVT_AUX2_DCLICK;
  if (!press) return false;
  Hide();
  return true;
}

bool VxSplashWindow::InitFont(wxFont & font, wchar_t const * face, int size, int flags) {
  wxFontInfo info(size);
  if (face != nullptr && *face != L'\0') info.FaceName(face);
  info.Weight((flags & 1) != 0 ? wxFONTWEIGHT_BOLD : wxFONTWEIGHT_NORMAL);
  info.Italic((flags & 2) != 0).Underlined((flags & 4) != 0);
  font = wxFont(info);
  return font.IsOk();
}

wxRegion VxSplashWindow::CreateRgnFromBitmap(wxBitmap const & picture, COLORREF transparentColor) {
  return ::CreateRgnFromBitmap(picture, transparentColor);
}

void VxSplashWindow::DrawWindow(wxDC & dc) const {
  if (mPicture.IsOk()) dc.DrawBitmap(mPicture, 0, 0, false);
  for (TextLine const & line : mTextLines) {
    wxFont const old = dc.GetFont();
    if (line.font != nullptr && line.font->IsOk()) dc.SetFont(*line.font);
    dc.SetBackgroundMode(wxBRUSHSTYLE_TRANSPARENT);
    dc.SetTextForeground(
        wxColour(GetRValue(line.color), GetGValue(line.color), GetBValue(line.color)));
    DrawSplashText(dc, wxString(line.text), line.rect, line.format);
    dc.SetFont(old);
  }
}
