#pragma once
// The twelve fonts of the family's displays, class-wide, made together on
// first use. Most derive from the desktop's message font (the GUI font the
// toolkit reports); three name their own face. UnloadFonts frees them; the
// next use makes them again.

#include "platform/WinGdi.h"

class wxFont;

class StandardFont {
public:
  enum FontType {
    Normal = 0,
    Large,
    Bold,
    LargeBold,
    TitleItalic,
    Headline,
    Italic,
    Small,
    Tiny,
    FixedBold,
    FixedLight,
    Underline,
    FontTypeCount
  };

  // Null for a number outside the table.
  static wxFont const * GetFont(int fontType);
  // The description of the font without making it: the height is the
  // negative pixel height on the screen; false for a number outside the
  // table.
  static bool GetLogFont(int fontType, LOGFONTW & logFont);
  static void UnloadFonts();

  // Points to pixels on the screen, rounded as MulDiv rounds.
  static LONG PointsToHeight(double points);

private:
  static void InitFonts();
};
