#pragma once
// Scope guard that makes a module the current resource module: the
// constructor saves the current handle and installs `module`, the
// destructor puts the saved handle back. A copy takes over the saved handle
// without changing the current one, so a copy's destruction restores too.

#include "platform/ResourceModule.h"

class SetResourceInstance {
public:
  explicit SetResourceInstance(HINSTANCE module);
  SetResourceInstance(SetResourceInstance const & other) = default;
  SetResourceInstance & operator=(SetResourceInstance const & other) = default;
  virtual ~SetResourceInstance();

  HINSTANCE SavedHandle() const { return mSaved; }

private:
  HINSTANCE mSaved;
};
