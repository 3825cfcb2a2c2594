#pragma once
// The keys with which a text editor of a property row gives the focus back
// to the property list: Tab, Return and Escape commit (Escape never
// cancels); Up and Down commit and are passed on, so the list moves a row.

class wxKeyEvent;
class wxWindow;

enum class InPlaceKeyAction { None, Commit, CommitAndPassOn };

InPlaceKeyAction InPlaceKeyActionFor(int keyCode);

// The list takes the focus (which commits through the editor's kill-focus)
// and, for CommitAndPassOn, the key as a wxEVT_KEY_DOWN of its own.
void HandKeyToList(wxWindow & list, wxKeyEvent const & key, InPlaceKeyAction action);
