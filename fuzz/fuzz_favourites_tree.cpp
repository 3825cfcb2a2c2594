// Favourites files from anywhere, read into a real favourites tree: any
// levels, old-form rows and styles give a tree without a crash or a hang,
// and the tree saved and read again has the same rows at the same depths.
// Needs a display (the replay runs under Xvfb); without one it reads nothing.
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/modalhook.h>

#include "favourites/FavouritesTree.h"
#include "utl/Exception.h"
#include "utl/XercesXMLSection.h"

namespace {

// Every message box a damaged file provokes is answered at once.
class AnswerEveryDialog : public wxModalDialogHook {
protected:
  int Enter(wxDialog * /*dialog*/) override { return wxID_OK; }
  void Exit(wxDialog * /*dialog*/) override {}
};

wxFrame * gFrame = nullptr;

// The window and the toolkit go before the process ends, so that what they
// hold is not taken for a leak.
void CleanUp() {
  if (gFrame != nullptr) gFrame->Destroy();
  wxTheApp->ProcessIdle();
  wxEntryCleanup();
}

FavouritesTree * Tree() {
  static FavouritesTree * const tree = []() -> FavouritesTree * {
    wxApp::SetInstance(new wxApp);
    static char name[] = "fuzz_favourites_tree";
    static char * argv[] = {name, nullptr};
    int argc = 1;
    if (!wxEntryStart(argc, argv) || !wxTheApp->CallOnInit()) return nullptr;
    static AnswerEveryDialog answers;
    answers.Register();
    gFrame = new wxFrame(nullptr, wxID_ANY, "fuzz");
    std::atexit(CleanUp);
    auto * const made = new FavouritesTree(gFrame, wxID_ANY);
    made->EnableMultiSelect(true);
    return made;
  }();
  return tree;
}

std::vector<int> Depths(FavouritesTree const & tree) {
  std::vector<int> depths;
  for (HTREEITEM row = tree.GetRootItem(); row; row = tree.GetNextItem(row))
    depths.push_back(tree.GetIndentLevel(row));
  return depths;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  FavouritesTree * const tree = Tree();
  if (tree == nullptr) return 0;
  std::string const input(reinterpret_cast<char const *>(data), size);
  std::unique_ptr<XercesXMLSection> file;
  try {
    file.reset(XercesXMLSection::CreateXMLSectionFromString(input.c_str()));
  } catch (Exception const &) {
    return 0;
  }
  tree->DeleteTree();
  tree->Serialize(file.get(), false, -1);
  for (HTREEITEM row = tree->GetRootItem(); row; row = tree->GetNextItem(row))
    if (tree->GetFavouriteItem(row) == nullptr) __builtin_trap();  // a row without its item
  std::vector<int> const loaded = Depths(*tree);

  XercesXMLSection saved;
  tree->Serialize(&saved, true, -1);
  tree->DeleteTree();
  tree->Serialize(&saved, false, -1);
  if (Depths(*tree) != loaded) __builtin_trap();
  tree->DeleteTree();
  return 0;
}
