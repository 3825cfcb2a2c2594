#pragma once
// wx menus take item ids below 0x7fff only, but the family's standard
// commands lie from 0xE000 up (57634 copy, 57636 find, 57642 select all).
// Those commands stand in menus as the ids 0x7000 + (command - 0xE000), a
// block kept for them; everything below 0x7000 is its own id. Whoever
// receives a menu event of a loaded menu reads the command back with
// CommandFromMenuItemId.

constexpr unsigned kFirstStandardCommand = 0xE000;
constexpr unsigned kLastStandardCommand = 0xEFFE;
constexpr int kFirstStandardCommandItemId = 0x7000;

// The menu item id of `command`, or -1 when a menu cannot hold it.
constexpr int MenuItemIdFromCommand(unsigned command) {
  if (command < static_cast<unsigned>(kFirstStandardCommandItemId))
    return static_cast<int>(command);
  if (command >= kFirstStandardCommand && command <= kLastStandardCommand)
    return kFirstStandardCommandItemId + static_cast<int>(command - kFirstStandardCommand);
  return -1;
}

// The command a menu item id stands for (ids outside the block are
// themselves; negative ids, wx's own, stay as they are).
constexpr int CommandFromMenuItemId(int id) {
  if (id >= kFirstStandardCommandItemId &&
      id <= kFirstStandardCommandItemId +
                static_cast<int>(kLastStandardCommand - kFirstStandardCommand))
    return static_cast<int>(kFirstStandardCommand) + (id - kFirstStandardCommandItemId);
  return id;
}
