// Any bytes through the tree's text reader: either a clear Exception with
// nothing built, or a tree whose items hang below earlier items, one level
// at most below the item before, and which writes back to text that reads
// as the same tree.
#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include "lists/TreeText.h"
#include "utl/Exception.h"

namespace {

struct Model : TreeTextBuilder, TreeTextWalk {
  std::vector<Item> parents;
  std::vector<size_t> depths;
  std::vector<std::string> texts;
  size_t walked = 0;

  Item AddChild(Item parent, std::string_view text) override {
    if (parent > parents.size()) __builtin_trap();
    size_t const depth = parent == 0 ? 0 : depths[parent - 1] + 1;
    if (!depths.empty() && depth > depths.back() + 1) __builtin_trap();
    parents.push_back(parent);
    depths.push_back(depth);
    texts.emplace_back(text);
    return parents.size();
  }
  bool Next(size_t & depth, std::string & text) override {
    if (walked == texts.size()) return false;
    depth = depths[walked];
    text = texts[walked++];
    return true;
  }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const * data, size_t size) {
  std::string_view const text(reinterpret_cast<char const *>(data), size);
  Model model;
  try {
    ReadTreeText(text, model);
  } catch (Exception const &) {
    if (!model.parents.empty()) __builtin_trap();
    return 0;
  }
  std::ostringstream out;
  WriteTreeText(model, out);
  // A root item with an empty text writes an empty line, which reading
  // skips: the form cannot hold it, so such trees are not compared.
  for (size_t at = 0; at < model.texts.size(); ++at)
    if (model.depths[at] == 0 && model.texts[at].empty()) return 0;
  Model again;
  ReadTreeText(out.str(), again);
  if (again.parents != model.parents || again.texts != model.texts) __builtin_trap();
  return 0;
}
