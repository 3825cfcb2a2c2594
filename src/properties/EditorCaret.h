#pragma once
// Readying an item's new text editor for typing: the caret at the end of
// the text, scrolled into view, and the focus in the edit.

class wxWindow;

// `edit` is a text control (PropertyInPlaceEdit, or the edit of a browse
// editor); anything else only gets the focus. Null is ignored.
void ReadyForTyping(wxWindow * edit);
