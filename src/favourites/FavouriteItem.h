#pragma once
// A favourite: a named thing the user keeps at hand (a command, a document,
// a folder of further favourites), stored in a ConfigurationSection.
//
// The virtual operations are a fixed order of slots that applications'
// derived classes rely on; nothing is inserted, removed or reordered.

#include <wx/string.h>

class ConfigurationSection;
class wxWindow;

class FavouriteItem {
public:
  FavouriteItem() = default;
  FavouriteItem(FavouriteItem const &) = default;
  FavouriteItem & operator=(FavouriteItem const &) = default;

  virtual ~FavouriteItem();
  // Writes "Name" and "Type".
  virtual void Save(ConfigurationSection * section) const;
  // Reads "Name" and "Type"; a missing key leaves its field as it was.
  virtual void Load(ConfigurationSection const * section);
  // A new item of the same class; the caller owns it.
  virtual FavouriteItem * Copy() const = 0;
  // The type key of the class, as stored in "Type".
  virtual wxString GetType() const = 0;
  virtual bool IsGlobal() const;
  virtual bool IsDraggable() const;
  // Whether the item can be used now.
  virtual bool Enable();
  // Carries out the item; the frame it brought up, or null.
  virtual wxWindow * Open();
  virtual wxString GetToolTipText() const;

  wxString const & GetName() const { return mName; }
  void SetName(wchar_t const * name) { mName = name != nullptr ? name : L""; }
  // The type text as last read from a section.
  wxString const & GetStoredType() const { return mStoredType; }

private:
  wxString mStoredType;
  wxString mName;
};

// Holds another item and owns it. Only Copy and GetType reach the held item;
// the other operations are the base's. Copying a handle hands the pointer
// over: the source is left empty, so nothing is ever deleted twice.
class FavouriteItemHandle : public FavouriteItem {
public:
  FavouriteItemHandle() = default;
  // Takes `item` over.
  explicit FavouriteItemHandle(FavouriteItem * item) : mItem(item) {}
  // Stores item.Copy().
  explicit FavouriteItemHandle(FavouriteItem const & item);
  FavouriteItemHandle(FavouriteItemHandle const & other);
  FavouriteItemHandle & operator=(FavouriteItemHandle const & other);
  // Deletes what it held, then stores item.Copy().
  FavouriteItemHandle & operator=(FavouriteItem const & item);
  ~FavouriteItemHandle() override;

  FavouriteItem * Copy() const override;
  wxString GetType() const override;

  FavouriteItem const * Get() const { return mItem; }

private:
  // Mutable: copying takes the pointer over from a const source.
  mutable FavouriteItem * mItem = nullptr;
};
