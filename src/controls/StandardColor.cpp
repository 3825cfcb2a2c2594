#include "controls/StandardColor.h"

#include <gdk/gdk.h>

#include <cmath>

namespace {

// How many levels a channel of `precision` bits has; the display shows the
// nearest of them.
BYTE NearestLevel(BYTE channel, int precision) {
  if (precision <= 0 || precision >= 8) return channel;
  int const top = (1 << precision) - 1;
  int const level = int(std::lround(channel * top / 255.0));
  return BYTE(std::lround(level * 255.0 / top));
}

COLORREF NearestOnScreen(COLORREF color) {
  GdkScreen * screen = gdk_screen_get_default();
  if (screen == nullptr) return color;
  GdkVisual * visual = gdk_screen_get_system_visual(screen);
  if (visual == nullptr || gdk_visual_get_depth(visual) >= 24) return color;
  int red = 8, green = 8, blue = 8;
  gdk_visual_get_red_pixel_details(visual, nullptr, nullptr, &red);
  gdk_visual_get_green_pixel_details(visual, nullptr, nullptr, &green);
  gdk_visual_get_blue_pixel_details(visual, nullptr, nullptr, &blue);
  return RGB(NearestLevel(GetRValue(color), red), NearestLevel(GetGValue(color), green),
             NearestLevel(GetBValue(color), blue));
}

StandardColor::NearestColorFunction & Nearest() {
  static StandardColor::NearestColorFunction nearest = NearestOnScreen;
  return nearest;
}

}  // namespace

bool StandardColor::bIsInitiated = false;
COLORREF StandardColor::Table[ColorDefCount];
COLORREF StandardColor::Comment, StandardColor::Data, StandardColor::MisVal, StandardColor::ObsName,
    StandardColor::ObsNumber, StandardColor::VarName, StandardColor::VarNumber, StandardColor::Text;
COLORREF StandardColor::Qualitative, StandardColor::YQualitative, StandardColor::PredictionCaption,
    StandardColor::Prediction, StandardColor::YVar, StandardColor::YVarData, StandardColor::Time,
    StandardColor::DateTime, StandardColor::Maturity, StandardColor::InitialCondition,
    StandardColor::BatchBackgound, StandardColor::PhaseID, StandardColor::TalvoText;

void StandardColor::SetNearestColorFunction(NearestColorFunction nearest) {
  Nearest() = nearest ? std::move(nearest) : NearestColorFunction(NearestOnScreen);
  bIsInitiated = false;
}

COLORREF StandardColor::FirstExact(std::initializer_list<COLORREF> candidates) {
  COLORREF shown = 0;
  for (COLORREF const candidate : candidates) {
    shown = Nearest()(candidate);
    if (shown == candidate) break;
  }
  return shown;
}

void StandardColor::Init() {
  Table[Blue] = FirstExact({0xFF8080, 0xF0C8A4, 0xF0CAA6, 0xFF0000, 0x808080});
  Table[Red] = FirstExact({0x8080FF, 0x0000FF, 0x808080});
  Table[Green] = FirstExact({0x80FF80, 0xC0DCC0, 0x808000, 0x00FF00, 0x808080});
  Table[Yellow] = FirstExact({0x80FFFF, 0x00FFFF, 0x808080});
  Table[Gray] = Nearest()(0x808080);
  Table[LightGray] = Nearest()(0xC0C0C0);
  Table[White] = Nearest()(0xFFFFFF);
  Table[Black] = Nearest()(0x000000);
  Table[Cyan] = 0xFFFF00;
  Table[Magenta] = 0xFF00FF;
  Table[DarkYellow] = 0x008080;
  Table[Navy] = 0x800000;
  Table[Purple] = 0x800080;
  Table[Wine] = 0x000080;
  Table[Olive] = 0x008000;
  Table[DarkCyan] = 0x808000;
  Table[Royal] = 0xA00000;
  Table[Orange] = 0x0080FF;
  Table[Violet] = 0xFF0080;
  Table[Pink] = 0x8000FF;
  Table[SoftPink] = 0xB7BBFF;
  Table[LightYellow] = 0x80FFFF;
  Table[LightCyan] = 0xFFFF80;
  Table[LightMagenta] = 0xFF80FF;

  Comment = Table[LightGray];
  Data = Table[White];
  MisVal = 0xBFBFFF;
  ObsName = 0x00EBEB;
  ObsNumber = 0x00C0C0;
  VarName = 0x3CAA1E;
  VarNumber = 0x46E61E;
  Text = 0xFFFF00;
  Qualitative = 0xE9E9AC;
  YQualitative = 0xCBC77E;
  PredictionCaption = 0xFFA26F;
  Prediction = 0xFFE1A0;
  YVar = 0x3599C8;
  YVarData = 0xB3D9EB;
  Time = 0xB3D9EB;
  DateTime = 0x69B4D8;
  Maturity = 0xB2C8EC;
  InitialCondition = 0xDBDBE5;
  BatchBackgound = 0x43DEFF;
  PhaseID = 0xA3F8F8;
  TalvoText = 0xE6E6E6;
  bIsInitiated = true;
}

// Every access fills the table first; a setter too, so that the filling
// does not overwrite what was set.
#define TALVO_COLOR_GETTER(getter, field) \
  COLORREF StandardColor::getter() {      \
    if (!bIsInitiated) Init();            \
    return field;                         \
  }
#define TALVO_COLOR_SETTER(setter, field)      \
  void StandardColor::setter(COLORREF color) { \
    if (!bIsInitiated) Init();                 \
    (field) = color;                           \
  }

COLORREF StandardColor::GetColor(int colorDef) {
  if (!bIsInitiated) Init();
  return colorDef >= 0 && colorDef < ColorDefCount ? Table[colorDef] : Table[White];
}

TALVO_COLOR_GETTER(GetColorBlue, Table[Blue])
TALVO_COLOR_GETTER(GetColorRed, Table[Red])
TALVO_COLOR_GETTER(GetColorGreen, Table[Green])
TALVO_COLOR_GETTER(GetColorYellow, Table[Yellow])
TALVO_COLOR_GETTER(GetColorGray, Table[Gray])
TALVO_COLOR_GETTER(GetColorLightGray, Table[LightGray])
TALVO_COLOR_GETTER(GetColorWhite, Table[White])
TALVO_COLOR_GETTER(GetColorBlack, Table[Black])
TALVO_COLOR_GETTER(GetColorCyan, Table[Cyan])
TALVO_COLOR_GETTER(GetColorMagenta, Table[Magenta])
TALVO_COLOR_GETTER(GetColorDarkYellow, Table[DarkYellow])
TALVO_COLOR_GETTER(GetColorNavy, Table[Navy])
TALVO_COLOR_GETTER(GetColorPurple, Table[Purple])
TALVO_COLOR_GETTER(GetColorWine, Table[Wine])
TALVO_COLOR_GETTER(GetColorOlive, Table[Olive])
TALVO_COLOR_GETTER(GetColorDarkCyan, Table[DarkCyan])
TALVO_COLOR_GETTER(GetColorRoyal, Table[Royal])
TALVO_COLOR_GETTER(GetColorOrange, Table[Orange])
TALVO_COLOR_GETTER(GetColorViolet, Table[Violet])
TALVO_COLOR_GETTER(GetColorPink, Table[Pink])
TALVO_COLOR_GETTER(GetColorSoftPink, Table[SoftPink])
TALVO_COLOR_GETTER(GetColorLightYellow, Table[LightYellow])
TALVO_COLOR_GETTER(GetColorLightCyan, Table[LightCyan])
TALVO_COLOR_GETTER(GetColorLightMagenta, Table[LightMagenta])

TALVO_COLOR_GETTER(GetComment, Comment)
TALVO_COLOR_GETTER(GetData, Data)
TALVO_COLOR_GETTER(GetMisVal, MisVal)
TALVO_COLOR_GETTER(GetObsName, ObsName)
TALVO_COLOR_GETTER(GetObsNumber, ObsNumber)
TALVO_COLOR_GETTER(GetVarName, VarName)
TALVO_COLOR_GETTER(GetVarNumber, VarNumber)
TALVO_COLOR_GETTER(GetText, Text)
TALVO_COLOR_SETTER(SetComment, Comment)
TALVO_COLOR_SETTER(SetData, Data)
TALVO_COLOR_SETTER(SetMisVal, MisVal)
TALVO_COLOR_SETTER(SetObsName, ObsName)
TALVO_COLOR_SETTER(SetObsNumber, ObsNumber)
TALVO_COLOR_SETTER(SetVarName, VarName)
TALVO_COLOR_SETTER(SetVarNumber, VarNumber)
TALVO_COLOR_SETTER(SetText, Text)

TALVO_COLOR_GETTER(GetQualitative, Qualitative)
TALVO_COLOR_GETTER(GetYQualitative, YQualitative)
TALVO_COLOR_GETTER(GetPredictionCaption, PredictionCaption)
TALVO_COLOR_GETTER(GetPrediction, Prediction)
TALVO_COLOR_GETTER(GetYVar, YVar)
TALVO_COLOR_GETTER(GetYVarData, YVarData)
TALVO_COLOR_GETTER(GetTime, Time)
TALVO_COLOR_GETTER(GetDateTime, DateTime)
TALVO_COLOR_GETTER(GetMaturity, Maturity)
TALVO_COLOR_GETTER(GetInitialCondition, InitialCondition)
TALVO_COLOR_GETTER(GetBatchID, BatchBackgound)
TALVO_COLOR_GETTER(GetPhaseID, PhaseID)
TALVO_COLOR_GETTER(GetTalvoText, TalvoText)

TALVO_COLOR_GETTER(GetMarking, Table[Orange])
TALVO_COLOR_GETTER(GetObsPrimary, ObsNumber)
TALVO_COLOR_GETTER(GetObsSecondary, ObsName)
TALVO_COLOR_GETTER(GetVarPrimary, VarName)
TALVO_COLOR_GETTER(GetVarSecondary, VarNumber)

#undef TALVO_COLOR_GETTER
#undef TALVO_COLOR_SETTER

COLORREF StandardColor::GetPrintColor(COLORREF color) {
  if (!bIsInitiated) Init();
  if (color == Table[Blue]) return 0xFF8080;
  if (color == Table[Green]) return 0x80FF80;
  if (color == Table[Red]) return 0x8080FF;
  if (color == Table[Yellow]) return 0x80FFFF;
  return color;
}
