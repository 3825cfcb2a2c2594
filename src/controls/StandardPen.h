#pragma once
// The pens of the family's displays, class-wide, made on first use. Five are
// made here (dashes, dots, light gray, thick); three are wx's stock pens.
// UnloadPens frees the made ones; the next use makes them again.

class wxPen;

class StandardPen {
public:
  enum PenStyle { Solid = 1, Dash, DashDot, Dot, LightGray, White, Thick, None };

  // Null for a number outside the table.
  static wxPen const * GetPen(int penStyle);

  static wxPen const * GetSolidPen();
  static wxPen const * GetDashPen();
  static wxPen const * GetDashDotPen();
  static wxPen const * GetDotPen();
  static wxPen const * GetLightGrayPen();
  static wxPen const * GetWhitePen();
  static wxPen const * GetThickPen();
  static wxPen const * GetNonePen();

  static void UnloadPens();

private:
  static void Initialize();
  static bool bIsInitialized;
};
