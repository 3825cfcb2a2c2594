#include "printing/BackstagePagePrint.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/cmndata.h>
#include <wx/hyperlink.h>
#include <wx/menu.h>
#include <wx/statline.h>
#include <wx/stattext.h>

#include "controls/VxMenu.h"
#include "frame/AppProfile.h"
#include "platform/ResourceModule.h"
#include "platform/RunningApplication.h"
#include "platform/WinUser.h"
#include "printing/BackstagePaneUtils.h"
#include "printing/PrintOut.h"
#include "printing/PrintPreviewPane.h"
#include "printing/PrintSetupDialog.h"
#include "printing/PrintableView.h"
#include "printing/PrinterDeviceDefaults.h"
#include "utl/Translation.h"

namespace {

constexpr char kPrinterSection[] = "Printer";
constexpr char kPortraitEntry[] = "PortraitOrientation";
constexpr char kColorEntry[] = "PrintListInColor";
constexpr int kPreviewMargin = 12;

// The caption of a string "caption\ndescription".
wxString CaptionOf(unsigned stringId) { return LoadResourceString(stringId).BeforeFirst('\n'); }

wxWindow * MainWindow() { return AppMainWindow(); }

// The page's own control `id`. FindWindow would answer the page itself for
// 13422, which the page and its separator share.
template <typename Control>
Control * ChildById(wxWindow const & page, int id) {
  for (wxWindow * child : page.GetChildren())
    if (child->GetId() == id) return dynamic_cast<Control *>(child);
  return nullptr;
}

}  // namespace

BackstagePagePrint::BackstagePagePrint(boost::function<void(bool)> setColor,
                                       boost::function<bool()> hasColor)
    : mSetColor(std::move(setColor)), mHasColor(std::move(hasColor)) {
  mPortrait = AppProfile::GetProfileInt(kPrinterSection, kPortraitEntry, 0) == 0;
  mPrintListInColor = AppProfile::GetProfileInt(kPrinterSection, kColorEntry, 1) != 0;
}

BackstagePagePrint::~BackstagePagePrint() = default;

bool BackstagePagePrint::Create(wxWindow * parent) {
  if (!LoadPanelTemplate(*this, parent, kTemplate)) return false;
  DoDataExchange();
  if (mPrintButton == nullptr || mOrientationButton == nullptr || mPrintListInColorCheck == nullptr)
    return false;
  Bind(
      wxEVT_BUTTON, [this](wxCommandEvent &) { OnFilePrint(); }, kPrintButtonId);
  Bind(
      wxEVT_BUTTON, [this](wxCommandEvent &) { OnFilePrintPageOrientation(); }, kPageOrientationId);
  Bind(
      wxEVT_CHECKBOX, [this](wxCommandEvent &) { OnBnClickedPrintListInColor(); },
      kPrintListInColorId);
  // The link opens the print setup, never a browser.
  Bind(
      wxEVT_HYPERLINK, [this](wxHyperlinkEvent &) { OnFilePrintSetup(); }, kPrintSetupLinkId);
  Bind(wxEVT_SIZE, &BackstagePagePrint::OnSize, this);
  return OnInitDialog();
}

void BackstagePagePrint::DoDataExchange() {
  int const separators[] = {kTopSeparatorId, kPreviewSeparatorId, kSettingsSeparatorId};
  int const labels[] = {kCaptionId, kPrinterLabelId, kSettingsLabelId};
  for (int i = 0; i < 3; ++i) {
    mSeparator[i] = ChildById<wxStaticLine>(*this, separators[i]);
    mLabel[i] = ChildById<wxStaticText>(*this, labels[i]);
  }
  mPrintSetupLink = ChildById<wxHyperlinkCtrl>(*this, kPrintSetupLinkId);
  mPrintButton = ChildById<wxButton>(*this, kPrintButtonId);
  mOrientationButton = ChildById<wxButton>(*this, kPageOrientationId);
  mPrintListInColorCheck = ChildById<wxCheckBox>(*this, kPrintListInColorId);
}

bool BackstagePagePrint::OnInitDialog() {
  // Tab moves between the page's own controls, not into its parent's.
  SetWindowStyleFlag(GetWindowStyleFlag() & ~wxTAB_TRAVERSAL);
  wxFont regular;
  wxFont caption;
  BackstagePaneUtils::InitFonts(regular, caption);
  if (mLabel[0] != nullptr) mLabel[0]->SetFont(caption);

  mPrintButton->SetBitmap(LoadResourceBitmap(CommandFromMenuItemId(kPrintButtonId)), wxTOP);
  mPrintButton->SetToolTip(vx3::Tr("Print options", "Send the document to a printer."));
  mOrientationButton->SetBitmapPosition(wxLEFT);
  mOrientationButton->SetToolTip(
      vx3::Tr("Print options",
              "Select whether the document should be oriented vertically or horizontally."));
  mPrintListInColorCheck->Show(false);  // until a view that offers colours comes
  // The orientation the profile kept becomes the printer's.
  UpdatePageOrientationButtonImageAndCaption();

  for (int id : {kCaptionId, kPrintButtonId, kTopSeparatorId, kPrinterLabelId, kPrintSetupLinkId,
                 kSettingsSeparatorId, kSettingsLabelId, kPageOrientationId, kPrintListInColorId})
    mLayout.AddAnchor(id, TOP_LEFT);
  if (mSeparator[1] != nullptr) mLayout.AddAnchor(mSeparator[1], TOP_LEFT, BOTTOM_LEFT);
  return true;
}

bool BackstagePagePrint::OnSetActive() {
  mFrame = wxGetTopLevelParent(this);
  auto * site = dynamic_cast<PrintViewFrame *>(mFrame);
  if (site == nullptr) {
    mFrame = MainWindow();
    site = dynamic_cast<PrintViewFrame *>(mFrame);
  }
  mActiveView = site != nullptr ? site->GetActivePrintView() : nullptr;

  mPrintButton->Enable(false);
  mOrientationButton->Enable(false);
  mPrintListInColorCheck->Enable(false);
  if (mActiveView != nullptr && CreatePrintPreview()) {
    mPrintButton->Enable(true);
    mOrientationButton->Enable(true);
    mPrintListInColorCheck->Enable(true);
    mPrintListInColorCheck->Show(mHasColor && mHasColor());
    mPrintListInColorCheck->SetValue(mPrintListInColor);
    if (mSetColor) mSetColor(!mPrintListInColor);
    UpdatePageOrientation(false);
    UpdatePageOrientationButtonImageAndCaption();
    // The colour and orientation are known only now: draw with them.
    RefreshPrintPreview();
    return true;
  }
  mPrintListInColorCheck->Show(false);
  return false;
}

bool BackstagePagePrint::OnKillActive() {
  if (mPreview != nullptr && mActiveView != nullptr) mActiveView->OnEndPrintPreview();
  DestroyPreview();
  mActiveView = nullptr;
  return true;
}

void BackstagePagePrint::DestroyPreview() {
  if (mPreview == nullptr) return;
  mPreview->Destroy();
  mPreview = nullptr;
}

bool BackstagePagePrint::CreatePrintPreview() {
  DestroyPreview();
  std::unique_ptr<PrintOut> printOut = mActiveView->CreatePrintOut();
  if (!printOut) return false;
  mPreview = new PrintPreviewPane(this, kPreviewId, std::move(printOut));
  mPreview->SetSize(PreviewArea());
  return true;
}

void BackstagePagePrint::RefreshPrintPreview() {
  if (mPreview == nullptr) return;
  // A new printout of the view, so that what changed (the colours) is in it.
  if (mActiveView != nullptr)
    if (std::unique_ptr<PrintOut> printOut = mActiveView->CreatePrintOut())
      mPreview->SetPrintOut(std::move(printOut));
  mPreview->Render(PrinterDeviceDefaults());
}

wxRect BackstagePagePrint::PreviewArea() const {
  wxSize const client = GetClientSize();
  int left = kPreviewMargin;
  if (mSeparator[1] != nullptr) left += mSeparator[1]->GetRect().GetRight();
  return {left, kPreviewMargin, std::max(0, client.x - left - kPreviewMargin),
          std::max(0, client.y - 2 * kPreviewMargin)};
}

void BackstagePagePrint::OnSize(wxSizeEvent & event) {
  mLayout.ArrangeLayout();
  if (mPreview != nullptr) mPreview->SetSize(PreviewArea());
  event.Skip();
}

namespace {

// Closes the backstage view that holds the page: the page's own top-level
// window, unless that is the main window itself.
void CloseBackstage(wxWindow * page) {
  wxWindow * const top = wxGetTopLevelParent(page);
  if (top != nullptr && top != MainWindow()) top->Close();
}

void PostToMainWindow(int command) {
  wxWindow * const main = MainWindow();
  if (main != nullptr) main->GetEventHandler()->QueueEvent(new wxCommandEvent(wxEVT_MENU, command));
}

}  // namespace

void BackstagePagePrint::OnFilePrint() {
  CloseBackstage(this);
  PostToMainWindow(kFilePrintCommand);
}

void BackstagePagePrint::OnFilePrintPreview() {
  CloseBackstage(this);
  PostToMainWindow(kFilePrintPreviewCommand);
}

void BackstagePagePrint::OnFilePrintSetup() {
  if (RunPrintSetupDialog(this, PrinterDeviceDefaults()) != IDOK) return;
  UpdatePageOrientation(false);
  UpdatePageOrientationButtonImageAndCaption();
  RefreshPrintPreview();
}

void BackstagePagePrint::OnFilePrintPageOrientation() {
  wxMenu popup;
  for (int command : {kPortraitCommand, kLandscapeCommand}) {
    auto * item = new wxMenuItem(&popup, command, CaptionOf(static_cast<unsigned>(command)));
    item->SetBitmap(LoadResourceBitmap(static_cast<unsigned>(command)));
    popup.Append(item);
  }
  // Below the button, at its left edge.
  wxRect const button = mOrientationButton->GetScreenRect();
  int const chosen = VxMenu::TrackPopupMenu(&popup, TPM_LEFTALIGN | TPM_RETURNCMD, button.GetLeft(),
                                            button.GetBottom() + 1, this, nullptr);
  if (chosen != kPortraitCommand && chosen != kLandscapeCommand) return;
  bool const portrait = chosen == kPortraitCommand;
  if (portrait == mPortrait) return;
  mPortrait = portrait;
  PrinterDeviceDefaults().SetOrientation(mPortrait ? wxPORTRAIT : wxLANDSCAPE);
  UpdatePageOrientation(false);
  UpdatePageOrientationButtonImageAndCaption();
  RefreshPrintPreview();
}

void BackstagePagePrint::UpdatePageOrientation(bool write) {
  wxPrintData & device = PrinterDeviceDefaults();
  if (write) {
    device.SetOrientation(mPortrait ? wxPORTRAIT : wxLANDSCAPE);
    UpdatePageOrientationButtonImageAndCaption();
    return;
  }
  mPortrait = device.GetOrientation() != wxLANDSCAPE;
  AppProfile::WriteProfileInt(kPrinterSection, kPortraitEntry, mPortrait ? 0 : 1);
}

void BackstagePagePrint::UpdatePageOrientationButtonImageAndCaption() {
  unsigned const id = mPortrait ? kPortraitCommand : kLandscapeCommand;
  // The caption with the drop-down arrow after it, as a menu button shows.
  mOrientationButton->SetLabel(CaptionOf(id) + wxString::FromUTF8("  \u25BE"));
  mOrientationButton->SetBitmap(LoadResourceBitmap(id), wxLEFT);
  PrinterDeviceDefaults().SetOrientation(mPortrait ? wxPORTRAIT : wxLANDSCAPE);
}

void BackstagePagePrint::OnBnClickedPrintListInColor() {
  mPrintListInColor = mPrintListInColorCheck->GetValue();
  if (mSetColor) {
    mSetColor(!mPrintListInColor);
    RefreshPrintPreview();
  }
  AppProfile::WriteProfileInt(kPrinterSection, kColorEntry, mPrintListInColor ? 1 : 0);
}
