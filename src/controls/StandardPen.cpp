#include "controls/StandardPen.h"

#include <memory>

#include <wx/gdicmn.h>
#include <wx/pen.h>

#include "controls/StandardColor.h"

namespace {

struct MadePens {
  std::unique_ptr<wxPen> dash, dashDot, dot, lightGray, thick;
};

MadePens & Made() {
  static MadePens pens;
  return pens;
}

}  // namespace

bool StandardPen::bIsInitialized = false;

void StandardPen::Initialize() {
  // Width 0 is a one-pixel line at any scale, as a cosmetic pen was.
  wxColour const black = ToWxColour(StandardColor::GetColorBlack());
  MadePens & made = Made();
  made.dash = std::make_unique<wxPen>(black, 0, wxPENSTYLE_LONG_DASH);
  made.dashDot = std::make_unique<wxPen>(black, 0, wxPENSTYLE_DOT_DASH);
  made.dot = std::make_unique<wxPen>(black, 0, wxPENSTYLE_DOT);
  made.lightGray =
      std::make_unique<wxPen>(ToWxColour(StandardColor::GetColorLightGray()), 0, wxPENSTYLE_SOLID);
  made.thick = std::make_unique<wxPen>(black, 2, wxPENSTYLE_SOLID);
  bIsInitialized = true;
}

void StandardPen::UnloadPens() {
  Made() = MadePens();
  bIsInitialized = false;
}

wxPen const * StandardPen::GetPen(int penStyle) {
  if (!bIsInitialized) Initialize();
  MadePens const & made = Made();
  switch (penStyle) {
    case Solid: return wxBLACK_PEN;
    case Dash: return made.dash.get();
    case DashDot: return made.dashDot.get();
    case Dot: return made.dot.get();
    case LightGray: return made.lightGray.get();
    case White: return wxWHITE_PEN;
    case Thick: return made.thick.get();
    case None: return wxTRANSPARENT_PEN;
    default: return nullptr;
  }
}

wxPen const * StandardPen::GetSolidPen() { return GetPen(Solid); }
wxPen const * StandardPen::GetDashPen() { return GetPen(Dash); }
wxPen const * StandardPen::GetDashDotPen() { return GetPen(DashDot); }
wxPen const * StandardPen::GetDotPen() { return GetPen(Dot); }
wxPen const * StandardPen::GetLightGrayPen() { return GetPen(LightGray); }
wxPen const * StandardPen::GetWhitePen() { return GetPen(White); }
wxPen const * StandardPen::GetThickPen() { return GetPen(Thick); }
wxPen const * StandardPen::GetNonePen() { return GetPen(None); }
