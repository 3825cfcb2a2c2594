// Both wraps are one walk over the text: sentences, then line-break pieces
// within each sentence, by ICU's break iterators (language-neutral rules of
// the root locale). Only the measure of a piece differs: grapheme clusters
// or pixels.
#include "dialogs/LimitLineLength.h"

#include <wx/dcmemory.h>

#include <unicode/brkiter.h>
#include <unicode/ubrk.h>
#include <unicode/unistr.h>

#include <wx/graphics.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <memory>
#include <stdexcept>
#include <unordered_map>
#include <vector>

namespace {

// A value that is no Unicode scalar (a lone surrogate, beyond U+10FFFF)
// stands as U+FFFD: neither ICU nor the text layout accepts it.
wchar_t CodePoint(wchar_t value) {
  auto const code = static_cast<uint32_t>(value);
  bool const valid = code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
  return valid ? value : wchar_t(0xFFFD);
}

// The text in UTF-16 for ICU, and where each UTF-16 offset starts in the
// original UTF-32 text. A value that is no code point becomes U+FFFD, one
// unit, so that every original character keeps a place.
class Utf16View {
public:
  explicit Utf16View(std::wstring const & text) {
    mToWide.reserve(text.size() + 1);
    for (size_t at = 0; at < text.size(); ++at) {
      mText.append(static_cast<UChar32>(CodePoint(text[at])));
      mToWide.resize(static_cast<size_t>(mText.length()), at);
    }
    mToWide.push_back(text.size());
  }

  icu::UnicodeString const & Text() const { return mText; }
  int32_t Length() const { return mText.length(); }
  size_t Wide(int32_t offset) const { return mToWide[static_cast<size_t>(offset)]; }

private:
  icu::UnicodeString mText;
  std::vector<size_t> mToWide;
};

// Made once per thread: building an iterator loads its rules.
using Maker = icu::BreakIterator * (*)(icu::Locale const &, UErrorCode &);

std::unique_ptr<icu::BreakIterator> MakeIterator(Maker make) {
  UErrorCode status = U_ZERO_ERROR;
  std::unique_ptr<icu::BreakIterator> made(make(icu::Locale::getRoot(), status));
  if (U_FAILURE(status) || !made) throw std::runtime_error("ICU's break rules are missing");
  return made;
}

icu::BreakIterator & SentenceBreaks() {
  thread_local auto const iterator = MakeIterator(&icu::BreakIterator::createSentenceInstance);
  return *iterator;
}
icu::BreakIterator & LineBreaks() {
  thread_local auto const iterator = MakeIterator(&icu::BreakIterator::createLineInstance);
  return *iterator;
}
icu::BreakIterator & ClusterBreaks() {
  thread_local auto const iterator = MakeIterator(&icu::BreakIterator::createCharacterInstance);
  return *iterator;
}

// The next boundary of `breaks` after `from`, no further than `end`.
int32_t NextBoundary(icu::BreakIterator & breaks, int32_t from, int32_t end) {
  int32_t const next = breaks.following(from);
  return next == icu::BreakIterator::DONE || next > end ? end : next;
}

// The measure of the UTF-16 range [begin, end): grapheme clusters or pixels.
using Measure = std::function<size_t(int32_t begin, int32_t end)>;

class Wrapper {
public:
  Wrapper(std::wstring const & text, Utf16View const & view, size_t limit, Measure measure)
      : mText(text), mView(view), mLimit(limit), mMeasure(std::move(measure)) {
    mResult.reserve(text.size() + text.size() / 16);
  }

  std::wstring Run() {
    icu::BreakIterator & sentences = SentenceBreaks();
    icu::BreakIterator & lines = LineBreaks();
    sentences.setText(mView.Text());
    lines.setText(mView.Text());
    ClusterBreaks().setText(mView.Text());
    int32_t const length = mView.Length();
    for (int32_t start = 0; start < length;) {
      int32_t const end = NextBoundary(sentences, start, length);
      // A sentence that ended at a hard separator (a line feed, a paragraph
      // end) rather than at a terminator starts a line of its own.
      int32_t const rule = sentences.getRuleStatus();
      if (end < length && rule >= UBRK_SENTENCE_SEP && rule < UBRK_SENTENCE_SEP_LIMIT)
        mLineLength = 0;
      for (int32_t piece = start; piece < end;) {
        int32_t const pieceEnd = NextBoundary(lines, piece, end);
        Place(piece, pieceEnd);
        piece = pieceEnd;
      }
      start = end;
    }
    return std::move(mResult);
  }

private:
  // One line-break piece: it joins the line when it fits; otherwise it
  // starts the next line; a piece too long for any line stands alone on
  // its line, whole: pieces are never split.
  void Place(int32_t begin, int32_t end) {
    size_t const before = mLineLength;
    size_t const measure = mMeasure(begin, end);
    mLineLength += measure;
    if (mLineLength <= mLimit) {
      Append(begin, end);
      return;
    }
    if (before != 0) {
      mResult += L'\n';
      mLineLength = measure;
      Append(begin, end);
      return;
    }
    Append(begin, end);
    mResult += L'\n';
    mLineLength = 0;
  }

  void Append(int32_t begin, int32_t end) {
    size_t const first = mView.Wide(begin);
    mResult.append(mText, first, mView.Wide(end) - first);
    if (EndsInLineFeed(end)) mLineLength = 0;
  }

  bool EndsInLineFeed(int32_t end) const {
    size_t const wideEnd = mView.Wide(end);
    return wideEnd > 0 && mText[wideEnd - 1] == L'\n';
  }

  std::wstring const & mText;
  Utf16View const & mView;
  size_t const mLimit;
  Measure const mMeasure;
  std::wstring mResult;
  size_t mLineLength = 0;
};

}  // namespace

std::wstring LimitLineLength::ByCharacters(std::wstring const & text, size_t limit) {
  if (text.empty()) return text;
  Utf16View const view(text);
  icu::BreakIterator & clusters = ClusterBreaks();
  return Wrapper(text, view, limit,
                 [&clusters](int32_t begin, int32_t end) {
                   size_t count = 0;
                   for (int32_t at = begin; at < end; at = NextBoundary(clusters, at, end)) ++count;
                   return count;
                 })
      .Run();
}

namespace {

// Widths in 1/64 pixel, so that a line's width is a sum without rounding.
size_t const SubPixels = 64;

// The advance of each distinct grapheme cluster, laid out once a call. Laying
// out every piece costs a shaping of the whole text, several milliseconds for
// a page; a sum of isolated cluster advances leaves out kerning and joining,
// which for most scripts makes a line a little wider than drawn, never
// narrower than the limit allows.
class ClusterWidths {
public:
  explicit ClusterWidths(wxDC & dc) : mDc(dc), mContext(dc.GetGraphicsContext()) {}

  size_t Of(std::wstring const & text, Utf16View const & view, int32_t begin, int32_t end) {
    icu::BreakIterator & clusters = ClusterBreaks();
    size_t width = 0;
    for (int32_t cluster = begin; cluster < end;) {
      // An ASCII character but a carriage return, followed by ASCII (not by
      // a combining mark), is a cluster of its own: no iterator, no hashing.
      size_t const at = view.Wide(cluster);
      wchar_t const single = text[at];
      bool const alone = cluster + 1 == end || static_cast<uint32_t>(text[at + 1]) < 0x80;
      if (single < 0x80 && single != L'\r' && alone) {
        if (mAscii[single] == Unknown) {
          mKey.assign(1, single);
          mAscii[single] = Advance();
        }
        width += mAscii[single];
        ++cluster;
        continue;
      }
      int32_t const clusterEnd = NextBoundary(clusters, cluster, end);
      size_t const first = view.Wide(cluster);
      mKey.assign(text, first, view.Wide(clusterEnd) - first);
      width += Advance();
      cluster = clusterEnd;
    }
    return width;
  }

private:
  size_t Advance() {
    auto found = mWidths.find(mKey);
    if (found != mWidths.end()) return found->second;
    std::wstring shown = mKey;
    for (wchar_t & c : shown) c = c == L'\n' || c == L'\r' ? L' ' : CodePoint(c);
    if (shown == L" " && mKey != L" ") shown.clear();  // a line feed takes no width
    double width = 0;
    if (!shown.empty()) {
      if (mContext) {
        mContext->GetTextExtent(wxString(shown), &width, nullptr);
      } else {
        wxCoord whole = 0;
        mDc.GetTextExtent(wxString(shown), &whole, nullptr);
        width = whole;
      }
    }
    auto const measured = static_cast<size_t>(std::ceil(std::max(width, 0.0) * SubPixels));
    mWidths.emplace(mKey, measured);
    return measured;
  }

  static constexpr size_t Unknown = SIZE_MAX;

  wxDC & mDc;
  wxGraphicsContext * const mContext;
  std::vector<size_t> mAscii = std::vector<size_t>(0x80, Unknown);
  std::wstring mKey;
  std::unordered_map<std::wstring, size_t> mWidths;
};

}  // namespace

std::wstring LimitLineLength::ByPixels(std::wstring const & text, wxDC & dc, size_t limit) {
  if (text.empty()) return text;
  Utf16View const view(text);
  ClusterWidths widths(dc);
  size_t const scaledLimit = limit > SIZE_MAX / SubPixels ? SIZE_MAX : limit * SubPixels;
  return Wrapper(text, view, scaledLimit,
                 [&](int32_t begin, int32_t end) { return widths.Of(text, view, begin, end); })
      .Run();
}

wxRect LimitLineLength::GetBoundsRect(wchar_t const * text, wxFont const & font) {
  if (!text || !*text) return wxRect(0, 0, 0, 0);
  // A memory context measures as the screen does, without a window.
  wxBitmap bitmap(1, 1);
  wxMemoryDC dc(bitmap);
  dc.SetFont(font);
  wxCoord width = 0;
  wxCoord height = 0;
  dc.GetMultiLineTextExtent(wxString(text), &width, &height);
  return wxRect(0, 0, width, height);
}
