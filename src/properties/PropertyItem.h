#pragma once
// One row of a property grid: a named value that draws itself into the value
// cell, makes the editor that lies over the cell while the row is selected,
// and takes the edited value back from that editor. The base class is a row
// without a value (its three operations do nothing); the value classes
// derive from it, and PropertyListCtrl shows them.
//
// Every class has two constructors: with texts (name, identifier,
// description), or with three numbers in the same order, where name and
// description are string resources loaded then.

#include <wx/string.h>

#include "platform/WinGeometry.h"

class wxDC;
class wxWindow;

class PropertyItem {
public:
  PropertyItem(wchar_t const * name, unsigned id, wchar_t const * description);
  PropertyItem(unsigned nameId, unsigned id, unsigned descriptionId);
  PropertyItem(PropertyItem const &) = default;
  PropertyItem & operator=(PropertyItem const &) = default;
  virtual ~PropertyItem() = default;

  // Draws the value into `rect`, the value cell in the coordinates of `dc`.
  virtual void DrawValue(wxDC & dc, RECT rect);
  // Makes the editor over `rect` (the value cell, in `parent`'s client
  // coordinates), a child of `parent`; the caller owns and destroys it.
  // Null: the row has no editor.
  virtual wxWindow * CreateInPlaceControl(wxWindow * parent, RECT rect);
  // Takes the value back from the editor CreateInPlaceControl made.
  virtual void SetData(wxWindow * control);
  // A copy of the same class. A category's copy holds copies of its items,
  // made through this; an application's own item class overrides it.
  virtual PropertyItem * Clone() const;

  wxString const & GetName() const { return mName; }
  // The name as the list shows it, rewrapped to the name column.
  wxString const & GetShowName() const { return mShowName; }
  void SetShowName(wxString const & showName) { mShowName = showName; }
  unsigned GetPropertyID() const { return mId; }
  wxString const & GetDescription() const { return mDescription; }

protected:
  // The cell's text as the value classes draw it: 3 pixels in from the
  // left and right, one line, centred vertically, clipped to the cell.
  static void DrawValueText(wxDC & dc, RECT rect, wxString const & text);
  // `text` with line breaks, tabs and other control characters as blanks:
  // a value cell is one line.
  static wxString SingleLine(wxString const & text);

private:
  wxString mName;
  wxString mShowName;
  unsigned mId;
  wxString mDescription;
};

// Declares Clone for a value class: a copy of the object's own class.
#define PROPERTY_ITEM_CLONE(Class) \
  PropertyItem * Clone() const override { return new Class(*this); }
