#pragma once
// The pane that holds one favourites tree (control 16258), laid out by the
// panel template 16260. Commands reach the tree before the pane, and the
// pane keeps the tree tidy at idle time.

#include <vector>

#include <wx/panel.h>

class FavouritesManager;
class FavouritesTree;

class FavouritesView : public wxPanel {
public:
  static constexpr unsigned int kTemplate = 16260;
  static constexpr int kTreeId = 16258;

  FavouritesView();
  // The pane from its template; false when the template is missing.
  bool Create(wxWindow * parent);

  // On the first call only: makes the tree (filling the pane), its styles,
  // multiple selection, deletion and file drops, and hands it the manager.
  virtual void OnInitialUpdate();
  // The tree takes the focus when the pane becomes active.
  virtual void OnActivateView(bool activate);

  void SetFavouritesManager(FavouritesManager * manager);
  FavouritesTree * GetTreeCtrl() const { return mTree; }
  void EnableCommandItems(unsigned int const * ids, unsigned int count);
  void SetToolBarIDs(int const * ids, unsigned int count) { mToolBars.assign(ids, ids + count); }
  std::vector<int> GetToolbarIDs() const { return mToolBars; }

protected:
  bool TryBefore(wxEvent & event) override;

private:
  void OnUpdateFavouritesTree(wxUpdateUIEvent & event);

  FavouritesTree * mTree = nullptr;
  FavouritesManager * mManager = nullptr;
  std::vector<unsigned int> mCommandItems;
  std::vector<int> mToolBars;
};
