#include "favourites/FavouritesView.h"

#include <wx/sizer.h>

#include "favourites/FavouritesTree.h"
#include "platform/ResourceModule.h"
#include "platform/commctrl/TreeViewTypes.h"

FavouritesView::FavouritesView() = default;

bool FavouritesView::Create(wxWindow * parent) {
  if (!LoadPanelTemplate(*this, parent, kTemplate)) return false;
  Bind(wxEVT_UPDATE_UI, &FavouritesView::OnUpdateFavouritesTree, this, kTreeId);
  return true;
}

void FavouritesView::OnInitialUpdate() {
  if (mTree != nullptr) return;
  mTree = new FavouritesTree(this, kTreeId,
                             TVS_HASBUTTONS | TVS_EDITLABELS | TVS_SHOWSELALWAYS | TVS_NOTOOLTIPS);
  // The tree fills the pane as the pane is resized.
  if (GetSizer() == nullptr) SetSizer(new wxBoxSizer(wxVERTICAL));
  GetSizer()->Add(mTree, 1, wxEXPAND);
  mTree->EnableMultiSelect(true);
  mTree->EnableDelete(true);
  mTree->DragAcceptFiles(true);
  if (!mCommandItems.empty())
    mTree->EnableCommandItems(mCommandItems.data(),
                              static_cast<unsigned int>(mCommandItems.size()));
  mTree->SetFavouritesManager(mManager);
  Layout();
}

void FavouritesView::OnActivateView(bool activate) {
  if (activate && mTree != nullptr) mTree->SetFocus();
}

void FavouritesView::SetFavouritesManager(FavouritesManager * manager) {
  mManager = manager;
  if (mTree != nullptr) mTree->SetFavouritesManager(manager);
}

void FavouritesView::EnableCommandItems(unsigned int const * ids, unsigned int count) {
  mCommandItems.assign(ids, ids + count);
  if (mTree != nullptr) mTree->EnableCommandItems(ids, count);
}

bool FavouritesView::TryBefore(wxEvent & event) {
  // Commands from elsewhere (a frame's menu, a tool bar) go to the tree
  // first; the tree's own have been there already.
  bool const command =
      event.GetEventType() == wxEVT_MENU || event.GetEventType() == wxEVT_UPDATE_UI;
  if (command && mTree != nullptr && event.GetEventObject() != mTree && event.GetId() != kTreeId &&
      mTree->GetEventHandler()->ProcessEventLocally(event))
    return true;
  return wxPanel::TryBefore(event);
}

void FavouritesView::OnUpdateFavouritesTree(wxUpdateUIEvent & /*event*/) {
  if (mTree != nullptr && mTree->IsShownOnScreen()) mTree->UpdateAllItems();
}
