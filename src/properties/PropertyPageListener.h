#pragma once
// A view that wants to hear when the data behind a group of property pages
// changed: it connects to their helper and gets ListenerUpdate after an
// apply. Either side may go first; the other forgets it.

class BasePropertyPageHelper;

class PropertyPageListener {
public:
  PropertyPageListener() = default;
  PropertyPageListener(PropertyPageListener const &) = delete;
  PropertyPageListener & operator=(PropertyPageListener const &) = delete;
  // Leaves the helper's list.
  virtual ~PropertyPageListener();

  // The helper went away; the pointer is already cleared.
  virtual void OnDisconnect() {}
  // True passes this listener over when the helper updates.
  virtual bool IsIgnoreListenerUpdates() const { return mIgnoreUpdates; }
  virtual void ListenerUpdate() {}

  // Leaves the present helper and joins `helper` (null only leaves). Joining
  // the same helper again changes nothing: a listener is in a list once.
  void Connect(BasePropertyPageHelper * helper);
  // `helperGoing` true only forgets the helper (it is being destroyed and
  // clears its list itself); false also leaves its list.
  void Disconnect(bool helperGoing = false);
  bool IsConnected() const { return mHelper != nullptr; }
  BasePropertyPageHelper * GetHelper() const { return mHelper; }

  // Runs the helper's Update without this listener hearing its own change;
  // true without a helper.
  bool UpdateHelper();

  void SetIgnoreListenerUpdates(bool ignore) { mIgnoreUpdates = ignore; }

private:
  BasePropertyPageHelper * mHelper = nullptr;
  bool mIgnoreUpdates = false;
};
