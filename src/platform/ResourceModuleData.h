#pragma once
// The tables that the build-time resource generator writes for one resource
// module (see cmake/TalvoResources.cmake): plain constant data, so that a
// module costs nothing before it is used.

#include <cstddef>

// Resource types by number, with Windows' values.
constexpr unsigned RT_BITMAP = 2;
constexpr unsigned RT_MENU = 4;
constexpr unsigned RT_DIALOG = 5;
constexpr unsigned RT_STRING = 6;
constexpr unsigned RT_ACCELERATOR = 9;
constexpr unsigned RT_RCDATA = 10;
constexpr unsigned RT_HTML = 23;

// One embedded file: an XRC dialog template (RT_DIALOG) or menu (RT_MENU),
// an accelerator table's text (RT_ACCELERATOR), a PNG (RT_BITMAP) or a text
// resource (RT_HTML).
struct ResourceItem {
  unsigned type;
  unsigned id;
  unsigned char const * data;
  size_t size;
};

// An English message id, with its translation context or null.
struct ResourceMessage {
  char const * context;
  char const * text;
};

struct ResourceStringItem {
  unsigned id;
  ResourceMessage message;
};

struct ResourceModuleData {
  char const * name;
  ResourceItem const * items;  // sorted by type, then id
  size_t itemCount;
  ResourceStringItem const * strings;  // sorted by id
  size_t stringCount;
};
