#pragma once
// How a favourite document reaches the application, which lies above this
// layer: the application object implements this (VxApp does) and a file
// item finds it as wxTheApp.

class wxWindow;

class DocumentFileOpener {
public:
  // Opens a document as the recent-files list would; the frame it brought
  // up, or null.
  virtual wxWindow * OpenDocumentFile(wchar_t const * path) = 0;

protected:
  DocumentFileOpener() = default;
  DocumentFileOpener(DocumentFileOpener const &) = default;
  DocumentFileOpener & operator=(DocumentFileOpener const &) = default;
  ~DocumentFileOpener() = default;
};
