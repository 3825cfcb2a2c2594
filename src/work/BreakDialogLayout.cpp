#include "work/BreakDialogLayout.h"

#include <algorithm>

namespace {

// The button at the right margin, centred on the height of `beside`.
wxRect ButtonBeside(wxRect const & beside, wxSize button, int clientWidth, int margin) {
  return wxRect(clientWidth - margin - button.x, beside.y + (beside.height - button.y) / 2,
                button.x, button.y);
}

}  // namespace

wxRect CentreIn(wxRect const & box, wxSize bitmap) {
  return wxRect(box.x + (box.width - bitmap.x) / 2, box.y + (box.height - bitmap.y) / 2, bitmap.x,
                bitmap.y);
}

wxRect StandOn(wxRect const & box, wxSize bitmap) {
  return wxRect(box.x + (box.width - bitmap.x) / 2, box.y + box.height - bitmap.y, bitmap.x,
                bitmap.y);
}

wxPoint PlaceOnScreen(wxRect const & owner, wxSize size, wxRect const & screen) {
  auto place = [](int centre, int length, int low, int high) {
    return std::max(low, std::min(centre - length / 2, high - length));
  };
  return wxPoint(place(owner.x + owner.width / 2, size.x, screen.x, screen.GetRight() + 1),
                 place(owner.y + owner.height / 2, size.y, screen.y, screen.GetBottom() + 1));
}

BreakDialogLayout LayOutBreakDialog(BreakDialogMeasures const & in) {
  BreakDialogLayout out;
  int const m = in.margin;
  switch (in.face) {
    case BreakDialogFace::kSpinner:
      out.spinner = wxRect(wxPoint(m, m), in.spinner);
      out.client =
          wxSize(std::max(3 * m + in.spinner.x + in.button.x, in.minWidth), 2 * m + in.spinner.y);
      // A button taller than the spinner sets the height.
      if (in.button.y > in.spinner.y) {
        out.client.y = 2 * m + in.button.y;
        out.spinner.y = m + (in.button.y - in.spinner.y) / 2;
      }
      out.button = ButtonBeside(out.spinner, in.button, out.client.x, m);
      break;
    case BreakDialogFace::kPlain: {
      int const height = std::max(in.placeholder.y, in.button.y);
      out.placeholder =
          wxRect(m, m + (height - in.placeholder.y) / 2, in.placeholder.x, in.placeholder.y);
      out.client =
          wxSize(std::max(3 * m + in.placeholder.x + in.button.x, in.minWidth), 2 * m + height);
      out.button = ButtonBeside(wxRect(m, m, 0, height), in.button, out.client.x, m);
      break;
    }
    case BreakDialogFace::kArt: {
      // The column right of the painting: portrait, painter, stop button.
      int const column = std::max({in.artistText.x, in.portrait.x, in.button.x});
      int const columnLeft = 2 * m + in.painting.x;
      int const columnHeight = in.portrait.y + m + in.artistText.y + m + in.button.y;
      int const top = std::max(in.painting.y, columnHeight);
      out.painting = wxRect(wxPoint(m, m + (top - in.painting.y) / 2), in.painting);
      out.portrait =
          wxRect(columnLeft + (column - in.portrait.x) / 2, m, in.portrait.x, in.portrait.y);
      out.artistText =
          wxRect(columnLeft, out.portrait.GetBottom() + 1 + m, column, in.artistText.y);
      out.client = wxSize(3 * m + in.painting.x + column, 2 * m + top);
      // The button stands at the foot of the column, level with the
      // painting's lower edge.
      out.button = wxRect(columnLeft + (column - in.button.x) / 2, m + top - in.button.y,
                          in.button.x, in.button.y);
      // The painting's name under the painting, not under the whole dialog.
      out.paintingText = wxRect(m, m + top + 2, in.painting.x, in.paintingTextHeight);
      out.client.y += 2 + in.paintingTextHeight;
      break;
    }
  }
  if (in.gaugeHeight > 0) {
    out.client.y += m + in.gaugeHeight;
    out.gauge = wxRect(m, out.client.y - m - in.gaugeHeight, out.client.x - 2 * m, in.gaugeHeight);
  }
  return out;
}
