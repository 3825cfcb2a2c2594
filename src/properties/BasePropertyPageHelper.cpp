#include "properties/BasePropertyPageHelper.h"

#include <algorithm>

#include "properties/PropertyPageListener.h"

BasePropertyPageHelper::~BasePropertyPageHelper() {
  // Taken out first: an OnDisconnect that connects elsewhere must not find
  // itself still listed here.
  std::vector<PropertyPageListener *> const listeners = std::move(mListeners);
  mListeners.clear();
  for (PropertyPageListener * listener : listeners) {
    listener->Disconnect(true);
    listener->OnDisconnect();
  }
}

bool BasePropertyPageHelper::Update() {
  UpdateListeners();
  return true;
}

void BasePropertyPageHelper::UpdateListeners() {
  std::vector<PropertyPageListener *> const listeners = mListeners;
  for (PropertyPageListener * listener : listeners) {
    // A listener destroyed or disconnected by an earlier one's update is
    // gone from the live list and must not be reached through the copy.
    if (!Has(listener)) continue;
    if (!listener->IsIgnoreListenerUpdates()) listener->ListenerUpdate();
  }
}

void BasePropertyPageHelper::Join(PropertyPageListener * listener) {
  if (!Has(listener)) mListeners.push_back(listener);
}

void BasePropertyPageHelper::Leave(PropertyPageListener * listener) {
  mListeners.erase(std::remove(mListeners.begin(), mListeners.end(), listener), mListeners.end());
}

bool BasePropertyPageHelper::Has(PropertyPageListener const * listener) const {
  return std::find(mListeners.begin(), mListeners.end(), listener) != mListeners.end();
}
