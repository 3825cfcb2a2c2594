#pragma once
// The colours that give the family's displays their look: a table of named
// colours (the light ones chosen among candidates that the display shows
// exactly), the colours of a data sheet by meaning, and HSV arithmetic for
// colour ramps. Every value is a COLORREF, 0x00BBGGRR. The table is
// class-wide and filled on first use.

#include <functional>
#include <initializer_list>

#include <wx/colour.h>

#include "platform/WinGdi.h"

class StandardColor {
public:
  enum ColorDef {
    Blue = 0,
    Red,
    Green,
    Yellow,
    Gray,
    LightGray,
    White,
    Black,
    Cyan,
    Magenta,
    DarkYellow,
    Navy,
    Purple,
    Wine,
    Olive,
    DarkCyan,
    Royal,
    Orange,
    Violet,
    Pink,
    SoftPink,
    LightYellow,
    LightCyan,
    LightMagenta,
    ColorDefCount
  };

  // The colour of the number; white for a number outside the table.
  static COLORREF GetColor(int colorDef);

  static COLORREF GetColorBlue();
  static COLORREF GetColorRed();
  static COLORREF GetColorGreen();
  static COLORREF GetColorYellow();
  static COLORREF GetColorGray();
  static COLORREF GetColorLightGray();
  static COLORREF GetColorWhite();
  static COLORREF GetColorBlack();
  static COLORREF GetColorCyan();
  static COLORREF GetColorMagenta();
  static COLORREF GetColorDarkYellow();
  static COLORREF GetColorNavy();
  static COLORREF GetColorPurple();
  static COLORREF GetColorWine();
  static COLORREF GetColorOlive();
  static COLORREF GetColorDarkCyan();
  static COLORREF GetColorRoyal();
  static COLORREF GetColorOrange();
  static COLORREF GetColorViolet();
  static COLORREF GetColorPink();
  static COLORREF GetColorSoftPink();
  static COLORREF GetColorLightYellow();
  static COLORREF GetColorLightCyan();
  static COLORREF GetColorLightMagenta();

  // The colours of a data sheet.
  static COLORREF GetComment();
  static COLORREF GetData();
  static COLORREF GetMisVal();
  static COLORREF GetObsName();
  static COLORREF GetObsNumber();
  static COLORREF GetVarName();
  static COLORREF GetVarNumber();
  static COLORREF GetText();
  static void SetComment(COLORREF color);
  static void SetData(COLORREF color);
  static void SetMisVal(COLORREF color);
  static void SetObsName(COLORREF color);
  static void SetObsNumber(COLORREF color);
  static void SetVarName(COLORREF color);
  static void SetVarNumber(COLORREF color);
  static void SetText(COLORREF color);

  static COLORREF GetQualitative();
  static COLORREF GetYQualitative();
  static COLORREF GetPredictionCaption();
  static COLORREF GetPrediction();
  static COLORREF GetYVar();
  static COLORREF GetYVarData();
  static COLORREF GetTime();
  static COLORREF GetDateTime();
  static COLORREF GetMaturity();
  static COLORREF GetInitialCondition();
  static COLORREF GetBatchID();
  static COLORREF GetPhaseID();
  static COLORREF GetTalvoText();

  // Other names for colours above.
  static COLORREF GetMarking();
  static COLORREF GetObsPrimary();
  static COLORREF GetObsSecondary();
  static COLORREF GetVarPrimary();
  static COLORREF GetVarSecondary();

  // On paper a light display colour (blue, green, red, yellow) is replaced
  // by the first of its candidates; any other colour is returned as is.
  static COLORREF GetPrintColor(COLORREF color);

  // Hue 0 to 360, or NoHue for a gray; saturation and value 0 to 1.
  static constexpr double NoHue = -99;
  static void RGB2HSV(COLORREF color, double & h, double & s, double & v);
  // Black when s is 0 and h is not NoHue.
  static COLORREF HSV2RGB(double h, double s, double v);
  // A ramp of `count` colours through HSV space from `from` to `to`, both
  // included; hue moves linearly, not the short way around the circle.
  static void InterpolateColors(COLORREF from, COLORREF to, COLORREF * out, int count);

  // What the display shows for a colour asked for (GetNearestColor). The
  // default asks the screen's visual: exact at 24 bits and above, and
  // without a display. Replacing it refills the table on next use.
  using NearestColorFunction = std::function<COLORREF(COLORREF)>;
  static void SetNearestColorFunction(NearestColorFunction nearest);

private:
  static void Init();
  static COLORREF FirstExact(std::initializer_list<COLORREF> candidates);

  static bool bIsInitiated;
  static COLORREF Table[ColorDefCount];
  static COLORREF Comment, Data, MisVal, ObsName, ObsNumber, VarName, VarNumber, Text;
  static COLORREF Qualitative, YQualitative, PredictionCaption, Prediction, YVar, YVarData, Time,
      DateTime, Maturity, InitialCondition, BatchBackgound, PhaseID, TalvoText;
};

// A COLORREF as wx draws it.
inline wxColour ToWxColour(COLORREF color) {
  return wxColour(GetRValue(color), GetGValue(color), GetBValue(color));
}
inline COLORREF ToColorRef(wxColour const & color) {
  return RGB(color.Red(), color.Green(), color.Blue());
}
