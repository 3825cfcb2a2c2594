// The break dialog's three faces, with and without a gauge: every control
// inside the client area with the margin around it, none over another, the
// stop button at the right, the gauge across the bottom.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "work/BreakDialogLayout.h"

namespace {

constexpr int kMargin = 10;

BreakDialogMeasures Measures(BreakDialogFace face, int gaugeHeight) {
  BreakDialogMeasures m;
  m.face = face;
  m.margin = kMargin;
  m.button = wxSize(88, 34);
  m.spinner = wxSize(32, 32);
  m.placeholder = wxSize(230, 17);
  m.painting = wxSize(400, 300);
  m.portrait = wxSize(90, 120);
  m.artistText = wxSize(160, 34);
  m.paintingTextHeight = 17;
  m.gaugeHeight = gaugeHeight;
  m.minWidth = 320;
  return m;
}

struct Named {
  char const * name;
  wxRect rect;
};

std::vector<Named> Shown(BreakDialogLayout const & layout) {
  std::vector<Named> all{{"spinner", layout.spinner},
                         {"placeholder", layout.placeholder},
                         {"painting", layout.painting},
                         {"portrait", layout.portrait},
                         {"artist text", layout.artistText},
                         {"painting text", layout.paintingText},
                         {"gauge", layout.gauge},
                         {"button", layout.button}};
  std::vector<Named> shown;
  for (Named const & n : all)
    if (!n.rect.IsEmpty()) shown.push_back(n);
  return shown;
}

TEST(BreakDialogLayout, ControlsOfEveryFaceSitInsideTheMarginsAndApart) {
  using Names = std::vector<std::string>;
  struct Case {
    BreakDialogFace face;
    Names expected;  // the controls that must be shown; a gauge goes before the button
  };
  for (Case const & c : {Case{BreakDialogFace::kSpinner, {"spinner", "button"}},
                         Case{BreakDialogFace::kPlain, {"placeholder", "button"}},
                         Case{BreakDialogFace::kArt,
                              {"painting", "portrait", "artist text", "painting text", "button"}}})
    for (int gaugeHeight : {0, 18}) {
      SCOPED_TRACE(testing::Message() << int(c.face) << " gauge " << gaugeHeight);
      BreakDialogLayout const layout = LayOutBreakDialog(Measures(c.face, gaugeHeight));
      std::vector<Named> const shown = Shown(layout);
      Names names, expected = c.expected;
      if (gaugeHeight > 0) expected.insert(expected.end() - 1, "gauge");
      for (Named const & n : shown) names.push_back(n.name);
      EXPECT_EQ(names, expected);

      wxRect const inner(kMargin, kMargin, layout.client.x - 2 * kMargin,
                         layout.client.y - 2 * kMargin);
      for (size_t i = 0; i < shown.size(); ++i) {
        EXPECT_TRUE(inner.Contains(shown[i].rect)) << shown[i].name;
        for (size_t j = i + 1; j < shown.size(); ++j)
          EXPECT_FALSE(shown[i].rect.Intersects(shown[j].rect))
              << shown[i].name << " over " << shown[j].name;
      }
      EXPECT_GE(layout.client.x, 320);
      if (gaugeHeight > 0) {
        EXPECT_EQ(layout.gauge.GetBottom() + 1, layout.client.y - kMargin);
        EXPECT_EQ(layout.gauge.width, layout.client.x - 2 * kMargin);
        EXPECT_EQ(layout.gauge.height, gaugeHeight);
      }
      EXPECT_EQ(layout.button.GetSize(), wxSize(88, 34));  // the measured size is kept
      if (c.face != BreakDialogFace::kArt) {
        EXPECT_EQ(layout.button.GetRight() + 1, layout.client.x - kMargin);
      }
    }
}

TEST(BreakDialogLayout, ArtFaceKeepsRoomForTheLargestPictures) {
  BreakDialogMeasures m = Measures(BreakDialogFace::kArt, 18);
  BreakDialogLayout const layout = LayOutBreakDialog(m);
  EXPECT_EQ(layout.painting.GetSize(), m.painting);
  EXPECT_EQ(layout.portrait.GetSize(), m.portrait);
  // The column beside the painting is centred: portrait and button alike.
  EXPECT_EQ(layout.portrait.GetLeft() - layout.artistText.GetLeft(),
            layout.artistText.GetRight() - layout.portrait.GetRight());
  // The painting's name below the painting and centred on it.
  EXPECT_GT(layout.paintingText.GetTop(), layout.painting.GetBottom());
  EXPECT_EQ(layout.paintingText.GetLeft(), layout.painting.GetLeft());
  EXPECT_EQ(layout.paintingText.width, layout.painting.width);

  // A tall column (big portrait) sets the height; the painting is centred on it.
  m.portrait = wxSize(90, 400);
  BreakDialogLayout const tall = LayOutBreakDialog(m);
  EXPECT_EQ(tall.painting.GetTop() - kMargin, tall.button.GetBottom() - tall.painting.GetBottom());
}

TEST(BreakDialogLayout, ButtonTallerThanTheSpinnerSetsTheHeight) {
  BreakDialogMeasures m = Measures(BreakDialogFace::kSpinner, 0);
  m.button = wxSize(88, 50);
  BreakDialogLayout const layout = LayOutBreakDialog(m);
  EXPECT_EQ(layout.client.y, 50 + 2 * kMargin);
  EXPECT_EQ(layout.spinner.GetTop() - layout.button.GetTop(),
            layout.button.GetBottom() - layout.spinner.GetBottom());
}

TEST(BreakDialogLayout, PlacedCentredOnTheOwnerAndKeptOnTheScreen) {
  wxRect const screen(0, 0, 1280, 1024);
  struct Case {
    wxRect owner;
    wxSize size;
    wxPoint expected;
  };
  for (Case const & c : {Case{{100, 100, 600, 400}, {200, 100}, {300, 250}},
                         Case{{0, 0, 600, 300}, {400, 500}, {100, 0}},         // owner at the top
                         Case{{1000, 900, 600, 300}, {400, 300}, {880, 724}},  // at the far corner
                         Case{{0, 0, 600, 300}, {1400, 1100}, {0, 0}}})  // larger than the screen
    EXPECT_EQ(PlaceOnScreen(c.owner, c.size, screen), c.expected) << c.owner.x << "," << c.owner.y;
  // A second screen on the left of the first.
  EXPECT_EQ(PlaceOnScreen({-1000, 0, 400, 300}, {600, 200}, {-1280, 0, 1280, 1024}),
            wxPoint(-1100, 50));
}

TEST(BreakDialogLayout, PicturesCentredOrStandingInTheirBoxes) {
  EXPECT_EQ(CentreIn(wxRect(10, 20, 100, 50), wxSize(40, 10)), wxRect(40, 40, 40, 10));
  EXPECT_EQ(CentreIn(wxRect(10, 20, 100, 50), wxSize(120, 50)), wxRect(0, 20, 120, 50));
  EXPECT_EQ(StandOn(wxRect(10, 20, 100, 50), wxSize(40, 10)), wxRect(40, 60, 40, 10));
  EXPECT_EQ(StandOn(wxRect(10, 20, 100, 50), wxSize(100, 50)), wxRect(10, 20, 100, 50));
}

}  // namespace
