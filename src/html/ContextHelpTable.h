#pragma once
// The pairs of control identifier and context help identifier of one dialog,
// which the help engine uses to pick the pop-up text for the control that
// help was asked for. At most 99 controls are listed, in the order of the
// dialog's children; the table always ends with a zero pair, as the engine
// expects, and controls past the 99th have no pop-up.
//
// The OK, Cancel and Help buttons (identifiers 1, 2 and 9) never get an
// entry: their pop-up is the engine's own.

#include <cstdint>
#include <optional>
#include <vector>

struct ContextHelpPair {
  int32_t controlId = 0;
  uint32_t contextHelpId = 0;

  bool operator==(ContextHelpPair const & other) const {
    return controlId == other.controlId && contextHelpId == other.contextHelpId;
  }
};

class ContextHelpTable {
public:
  static constexpr size_t MaxControls = 99;

  ContextHelpTable() = default;

  // Refills the table from `children` in order: OK, Cancel and Help are
  // passed over, and children past the 99th entry are dropped.
  void Fill(std::vector<ContextHelpPair> const & children);

  // The entries, ending with the zero pair.
  std::vector<ContextHelpPair> const & Pairs() const { return m_pairs; }

  // The entries without the zero pair.
  size_t ControlCount() const { return m_pairs.size() - 1; }

  // The context help identifier of `controlId`, as the engine looks it up:
  // the first entry with that identifier; none for a control not listed
  // and for 0, which ends the table.
  std::optional<uint32_t> Lookup(int32_t controlId) const;

private:
  std::vector<ContextHelpPair> m_pairs{ContextHelpPair{}};
};
