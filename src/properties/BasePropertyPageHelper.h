#pragma once
// The object behind a group of property pages: it counts how many of them
// hold changes (VxPropertyPage::Changed / Unchanged) and, when the last of
// them applies, runs Update, which tells every connected listener (the views
// that show the same data) to refresh.

#include <vector>

class PropertyPageListener;

class BasePropertyPageHelper {
public:
  BasePropertyPageHelper() = default;
  BasePropertyPageHelper(BasePropertyPageHelper const &) = delete;
  BasePropertyPageHelper & operator=(BasePropertyPageHelper const &) = delete;
  // Every listener still connected is told (OnDisconnect) and forgets it.
  virtual ~BasePropertyPageHelper();

  // True while a page holds changes.
  virtual bool IsChanged() const { return mChangedPages > 0; }
  // Called once per apply, by the last changed page; the base tells the
  // listeners. False keeps that page changed.
  virtual bool Update();

  // Calls ListenerUpdate of every listener that does not ignore updates.
  // Works on a copy of the list, so a listener may connect or leave from
  // its update; one that left meanwhile is passed over.
  void UpdateListeners();

  void AddUpdate() { ++mChangedPages; }
  // Stops at 0.
  void RemoveUpdate() {
    if (mChangedPages > 0) --mChangedPages;
  }
  // The number of pages holding changes.
  int Connected() const { return mChangedPages; }

private:
  friend class PropertyPageListener;
  void Join(PropertyPageListener * listener);
  void Leave(PropertyPageListener * listener);
  bool Has(PropertyPageListener const * listener) const;

  int mChangedPages = 0;
  std::vector<PropertyPageListener *> mListeners;  // not owned
};
