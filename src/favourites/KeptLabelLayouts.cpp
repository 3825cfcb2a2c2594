#include "favourites/KeptLabelLayouts.h"

#include <wx/fontutil.h>
#include <wx/graphics.h>
#include <wx/hashmap.h>

#include <pango/pangocairo.h>

#include <unordered_map>
#include <utility>

namespace {

struct LayoutRelease {
  void operator()(PangoLayout * layout) const { g_object_unref(layout); }
};
using LayoutPtr = std::unique_ptr<PangoLayout, LayoutRelease>;

// Fonts seldom seen together under one tree: the normal and the bold one.
constexpr size_t kMaxFonts = 8;

}  // namespace

// What shaping depends on besides the font and the text, as pango reads it
// from a cairo context: the linear part of the matrix (not the
// translation) and the font options of the target merged with the
// context's own. Pango lays a layout out anew at every update, changed or
// not, so the changes are told here.
struct KeptLabelLayouts::Device {
  cairo_matrix_t matrix{};
  cairo_font_options_t * options = cairo_font_options_create();
  // Counts the changes: a layout laid out at an older count is updated.
  unsigned generation = 0;

  Device() = default;
  Device(Device const &) = delete;
  Device & operator=(Device const &) = delete;
  ~Device() { cairo_font_options_destroy(options); }

  void Look(cairo_t * cairo) {
    cairo_matrix_t now{};
    cairo_get_matrix(cairo, &now);
    cairo_font_options_t * const merged = cairo_font_options_create();
    cairo_surface_get_font_options(cairo_get_target(cairo), merged);
    cairo_font_options_t * const own = cairo_font_options_create();
    cairo_get_font_options(cairo, own);
    cairo_font_options_merge(merged, own);
    cairo_font_options_destroy(own);
    bool const same = now.xx == matrix.xx && now.yx == matrix.yx && now.xy == matrix.xy &&
                      now.yy == matrix.yy && cairo_font_options_equal(merged, options) != 0;
    if (same) {
      cairo_font_options_destroy(merged);
      return;
    }
    matrix = now;
    cairo_font_options_destroy(options);
    options = merged;
    ++generation;
  }
};

struct KeptLabelLayouts::Font {
  struct Kept {
    LayoutPtr layout;
    unsigned generation;
  };

  explicit Font(PangoFontDescription const * font)
      : description(pango_font_description_copy(font)) {}
  Font(Font const &) = delete;
  Font & operator=(Font const &) = delete;
  ~Font() { pango_font_description_free(description); }

  PangoFontDescription * description;
  std::unordered_map<wxString, Kept, wxStringHash, wxStringEqual> layouts;
};

KeptLabelLayouts::KeptLabelLayouts() : mDevice(std::make_unique<Device>()) {}

KeptLabelLayouts::~KeptLabelLayouts() = default;

size_t KeptLabelLayouts::Count() const {
  size_t count = 0;
  for (auto const & font : mFonts) count += font->layouts.size();
  return count;
}

KeptLabelLayouts::Font & KeptLabelLayouts::FontFor(wxFont const & font) {
  PangoFontDescription const * const wanted = font.GetNativeFontInfo()->description;
  for (auto const & kept : mFonts)
    if (pango_font_description_equal(kept->description, wanted) != 0) return *kept;
  if (mFonts.size() >= kMaxFonts) mFonts.clear();
  mFonts.push_back(std::make_unique<Font>(wanted));
  return *mFonts.back();
}

bool KeptLabelLayouts::CanDraw(wxDC & dc, wxFont const & font) {
  wxGraphicsContext * const graphics = dc.GetGraphicsContext();
  return graphics != nullptr && graphics->GetNativeContext() != nullptr &&
         dc.GetBackgroundMode() == wxBRUSHSTYLE_TRANSPARENT && dc.GetLogicalFunction() == wxCOPY &&
         font.IsOk() && !font.GetUnderlined() && !font.GetStrikethrough() &&
         font.GetNativeFontInfo() != nullptr && font.GetNativeFontInfo()->description != nullptr;
}

bool KeptLabelLayouts::Draw(wxDC & dc, wxString const & text, wxFont const & font,
                            wxColour const & colour, int x, int y) {
  if (!CanDraw(dc, font)) return false;
  if (text.empty()) return true;
  auto * const cairo = static_cast<cairo_t *>(dc.GetGraphicsContext()->GetNativeContext());
  mDevice->Look(cairo);
  Font & kept = FontFor(font);
  auto found = kept.layouts.find(text);
  if (found == kept.layouts.end()) {
    if (kept.layouts.size() >= kMaxPerFont) kept.layouts.clear();
    LayoutPtr layout(pango_cairo_create_layout(cairo));
    pango_layout_set_font_description(layout.get(), kept.description);
    wxScopedCharBuffer const utf8 = text.utf8_str();
    pango_layout_set_text(layout.get(), utf8.data(), static_cast<int>(utf8.length()));
    found = kept.layouts.emplace(text, Font::Kept{std::move(layout), mDevice->generation}).first;
  } else if (found->second.generation != mDevice->generation) {
    pango_cairo_update_layout(cairo, found->second.layout.get());
    found->second.generation = mDevice->generation;
  }
  cairo_set_source_rgba(cairo, colour.Red() / 255.0, colour.Green() / 255.0, colour.Blue() / 255.0,
                        colour.Alpha() / 255.0);
  cairo_move_to(cairo, x, y);
  pango_cairo_show_layout(cairo, found->second.layout.get());
  return true;
}
