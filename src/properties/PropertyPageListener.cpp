#include "properties/PropertyPageListener.h"

#include "properties/BasePropertyPageHelper.h"

PropertyPageListener::~PropertyPageListener() { Disconnect(false); }

void PropertyPageListener::Connect(BasePropertyPageHelper * helper) {
  if (helper == mHelper) return;
  Disconnect(false);
  mHelper = helper;
  if (mHelper != nullptr) mHelper->Join(this);
}

void PropertyPageListener::Disconnect(bool helperGoing) {
  if (mHelper != nullptr && !helperGoing) mHelper->Leave(this);
  mHelper = nullptr;
}

bool PropertyPageListener::UpdateHelper() {
  if (mHelper == nullptr) return true;
  BasePropertyPageHelper * const helper = mHelper;
  helper->Leave(this);
  bool const updated = helper->Update();
  // Join again unless a listener's update connected this one elsewhere.
  if (mHelper == helper) helper->Join(this);
  return updated;
}
