#pragma once
// The print page of the backstage view: the print button, the printer's
// setup, the page orientation (portrait or landscape, chosen from a popup
// below its button), an optional check box for printing lists in colour,
// and a live preview of the active view's printout beside them.
//
// The page is built from template 13422. OnSetActive, when the page comes
// up, finds the active view of its frame (PrintableView.h) and previews it;
// without one, the page's buttons stay disabled. OnKillActive ends the
// preview. The orientation is kept in the printer defaults
// (PrinterDeviceDefaults) and in the profile ("Printer",
// "PortraitOrientation": 0 portrait, 1 landscape), the colour choice in
// "Printer", "PrintListInColor" (1 by default).

#include <boost/function.hpp>

#include <wx/panel.h>

#include "dialogs/ResizableLayout.h"
#include "platform/MenuCommandIds.h"

class PrintPreviewPane;
class PrintableView;
class wxButton;
class wxCheckBox;
class wxHyperlinkCtrl;
class wxStaticLine;
class wxStaticText;

class BackstagePagePrint : public wxPanel {
public:
  static constexpr unsigned kTemplate = 13422;
  enum ControlId : int {
    kTopSeparatorId = 13431,
    kPreviewSeparatorId = 13422,
    kSettingsSeparatorId = 13423,
    kCaptionId = 13428,
    kPrinterLabelId = 13426,
    kSettingsLabelId = 13427,
    kPrintSetupLinkId = 13424,
    kPrintListInColorId = 13425,
    kPageOrientationId = 13430,
    // The print command 57607 as a window id (wx takes ids below 0x7fff).
    kPrintButtonId = MenuItemIdFromCommand(57607),
    kPreviewId = 9,
  };
  // The commands the page sends to the main window, and those of its
  // orientation popup (their strings read "caption\ndescription").
  static constexpr int kFilePrintCommand = 57608;
  static constexpr int kFilePrintPreviewCommand = 57609;
  static constexpr int kPortraitCommand = 13196;
  static constexpr int kLandscapeCommand = 13197;

  // setColor is called with true for black and white; hasColor tells whether
  // the active view offers the choice. Either may be empty.
  BackstagePagePrint(boost::function<void(bool)> setColor, boost::function<bool()> hasColor);
  ~BackstagePagePrint() override;

  // Makes the window from the template as a child of `parent` and runs
  // OnInitDialog. False when the template cannot be built.
  bool Create(wxWindow * parent);

  // The page comes up: true when there is a view to preview.
  virtual bool OnSetActive();
  // The page goes: the preview ends. Always true.
  virtual bool OnKillActive();

  void OnFilePrint();
  void OnFilePrintPreview();
  void OnFilePrintSetup();
  void OnFilePrintPageOrientation();
  void OnBnClickedPrintListInColor();

  bool IsPortrait() const { return mPortrait; }
  bool PrintListInColor() const { return mPrintListInColor; }
  // The preview while the page is active, else null.
  PrintPreviewPane * GetPreview() const { return mPreview; }

protected:
  virtual bool OnInitDialog();
  // Binds the members to the template's controls.
  virtual void DoDataExchange();

private:
  bool CreatePrintPreview();
  void RefreshPrintPreview();
  void UpdatePageOrientation(bool write);
  void UpdatePageOrientationButtonImageAndCaption();
  void DestroyPreview();
  void OnSize(wxSizeEvent & event);
  wxRect PreviewArea() const;

  boost::function<void(bool)> mSetColor;
  boost::function<bool()> mHasColor;
  wxStaticLine * mSeparator[3] = {};
  wxStaticText * mLabel[3] = {};
  wxHyperlinkCtrl * mPrintSetupLink = nullptr;
  wxButton * mPrintButton = nullptr;
  wxButton * mOrientationButton = nullptr;
  wxCheckBox * mPrintListInColorCheck = nullptr;
  PrintPreviewPane * mPreview = nullptr;
  PrintableView * mActiveView = nullptr;
  wxWindow * mFrame = nullptr;
  bool mPortrait = true;
  bool mPrintListInColor = true;
  CResizableLayout mLayout{this};
};
