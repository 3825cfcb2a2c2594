#pragma once
// What the column tree asks of the frame that holds it: the frame owns the
// sideways scroll bar and fits it after every change of the rows.

class wxScrollBar;

class TreeListHost {
public:
  virtual ~TreeListHost() = default;
  // Fits the sideways bar, the tree and the header to the columns.
  virtual void ResetScrollBar() = 0;
  // The frame's sideways scroll bar (null while it has none).
  virtual wxScrollBar * GetSideScrollBar() = 0;

protected:
  TreeListHost() = default;
  TreeListHost(TreeListHost const &) = default;
  TreeListHost & operator=(TreeListHost const &) = default;
};
