#pragma once
// A VxListCtrl whose subclass says which rows are disabled: those are drawn
// in the grey text colour and struck out through their first cell.

#include "lists/VxListCtrl.h"

class ListCtrlWithDisabledItems : public VxListCtrl {
public:
  using VxListCtrl::VxListCtrl;

  virtual bool IsItemDisabled(int item) = 0;

protected:
  void OnReflectedNotify(NotifyEvent & event) override;
};
