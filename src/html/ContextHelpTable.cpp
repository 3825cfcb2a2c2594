#include "html/ContextHelpTable.h"

#include "platform/WinUser.h"

void ContextHelpTable::Fill(std::vector<ContextHelpPair> const & children) {
  m_pairs.clear();
  for (ContextHelpPair const & child : children) {
    if (m_pairs.size() == MaxControls) break;
    if (child.controlId == IDOK || child.controlId == IDCANCEL || child.controlId == IDHELP)
      continue;
    m_pairs.push_back(child);
  }
  m_pairs.push_back(ContextHelpPair{});
}

std::optional<uint32_t> ContextHelpTable::Lookup(int32_t controlId) const {
  for (ContextHelpPair const & pair : m_pairs) {
    if (pair.controlId == 0) break;
    if (pair.controlId == controlId) return pair.contextHelpId;
  }
  return std::nullopt;
}
