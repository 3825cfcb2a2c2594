#pragma once
// The style a page brings along: when a caller gives HTML without a style
// of its own, the text of the page's first <style> element becomes the
// view's style.

#include <string>
#include <string_view>

// The text between the first "<style ...>" and the "</style>" after it
// (both case-sensitive, as pages of the family write them); empty when
// there is no such pair or the start tag is not closed. A "</style>" before
// the "<style" closes nothing.
std::wstring ExtractStyleFromHtml(std::wstring_view html);
