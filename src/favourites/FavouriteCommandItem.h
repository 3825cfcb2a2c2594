#pragma once
// A favourite that runs an application command: its id is sent to the main
// window as a menu command.

#include "favourites/FavouriteItem.h"

class FavouriteCommandItem : public FavouriteItem {
public:
  FavouriteCommandItem(wchar_t const * name, int commandId);
  // Named from the command's string resource (see the constructor's body).
  explicit FavouriteCommandItem(unsigned int commandId);

  void Save(ConfigurationSection * section) const override;
  void Load(ConfigurationSection const * section) override;
  FavouriteItem * Copy() const override;
  wxString GetType() const override;
  bool IsGlobal() const override;
  // The application's command-update routing decides. A command that no
  // update handler enables stays disabled: that keeps ids imported from a
  // foreign favourites file from running unknown commands.
  bool Enable() override;
  // Sends the command synchronously (ids above 0 only); the MDI child it made
  // active, or null.
  wxWindow * Open() override;
  // The name, then the command's short text when it says something else.
  wxString GetToolTipText() const override;

  int GetCommandID() const { return mCommandId; }

  static constexpr char const * kType = "CommandItem";

protected:
  // The prototype registered with FavouriteBuilder.
  FavouriteCommandItem();

private:
  int mCommandId = 0;
};
