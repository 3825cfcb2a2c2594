#include "PropertyListDialog.h"

#include <initializer_list>
#include <vector>

#include <wx/menu.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <boost/format.hpp>

#include "SampleCommands.h"
#include "properties/PropertyItemCategory.h"
#include "properties/PropertyItemColorPopup.h"
#include "properties/PropertyItemCustomList.h"
#include "properties/PropertyItemFloat.h"
#include "properties/PropertyItemListBool.h"
#include "properties/PropertyItemManager.h"
#include "properties/PropertyItemNumber.h"
#include "properties/PropertyItemPaths.h"
#include "properties/PropertyItemString.h"
#include "properties/PropertyListCtrl.h"
#include "utl/Translation.h"

namespace {

// The detectors of the sample's instruments, listed when first drawn.
class DetectorList : public PropertyItemCustomList {
public:
  using PropertyItemCustomList::PropertyItemCustomList;
  PROPERTY_ITEM_CLONE(DetectorList)
  void InitPropertyItemList(std::vector<wxString> & items, unsigned /*id*/) override {
    items = {L"UV 254 nm", L"Fluorescence", L"Conductivity", L"Refractive index"};
  }
};

}  // namespace

// The settings of one run as categories of items; each commit is shown.
class SampleRunSettings : public PropertyItemManager {
public:
  explicit SampleRunSettings(PropertyListDialog & dialog) : mDialog(dialog) {
    PropertyItemCategory * run = AddPropertyCategory(
        L"Run", L"What identifies the run and who is responsible for it.", true);
    auto * title = new PropertyItemString(L"Title", 1, L"Shown on every report of the run.");
    title->SetData(wxString(L"Calibration, station 7"));
    auto * replicates =
        new PropertyItemNumber(L"Replicates", 2, L"How often each sample is measured.");
    replicates->SetData(3);
    auto * offset =
        new PropertyItemNegNumber(L"Baseline offset of the detector signal in counts", 3,
                                  L"Subtracted from every reading; may be negative.");
    offset->SetData(-12);
    auto * gain = new PropertyItemFloat(L"Gain", 4, L"Empty when the instrument gives none.");
    gain->SetData(1.25F);
    auto * archive = new PropertyItemListYesNo(
        L"Archive the raw data of every injection once the run has been validated", 5,
        L"Keeps the raw files beside the results.");
    archive->SetData(true);
    for (PropertyItem * item :
         std::initializer_list<PropertyItem *>{title, replicates, offset, gain, archive})
      run->AddPropertyItem(item);

    PropertyItemCategory * acquisition =
        AddPropertyCategory(L"Acquisition", L"How the instrument records the signal.", true);
    auto * detector = new DetectorList(L"Detector", 6, L"The detector whose signal is kept.");
    detector->SetData(0);
    acquisition->AddPropertyItem(detector);
    acquisition->AddPropertyItem(new PropertyItemListEnabledDisabled(L"Alarm", 7, L""));
    acquisition->AddPropertyItem(new PropertyItemListTrueFalse(L"Validated", 8, L""));
    auto * colour = new PropertyItemColorPopup(L"Trace colour", 9, L"The colour of the trace.");
    colour->SetData(RGB(0x20, 0x80, 0xC0));
    acquisition->AddPropertyItem(colour);

    PropertyItemCategory * files =
        AddPropertyCategory(L"Files and folders", L"Where the run reads and writes.", false);
    auto * folder = new PropertyItemFolderPath(L"Data folder", 10, L"Raw data are written here.");
    folder->SetData(wxString(L"/srv/data/laboratory/2024/station 7/raw"));
    auto * search = new PropertyItemFolderCollection(L"Search folders", 11, L"", L"Search Folders",
                                                     L"Folders to search:");
    search->SetData(wxString(L"/srv/data;/mnt/lab-share/archive;"));
    auto * report = new PropertyItemFilePath(L"Report file", 12, L"");
    report->SetData(wxString(L"/home/ana/reports/run 17 summary.pdf"));
    for (PropertyItem * item : std::initializer_list<PropertyItem *>{folder, search, report})
      files->AddPropertyItem(item);
    files->AddPropertyItem(new PropertyItem(
        L"Files are named after the run and the date on which it was started", 13, L""));
  }

  void OnDataChanged(PropertyItem * item, PropertyListCtrl *, int) override {
    mDialog.ShowCommitted(item->GetName());
  }
  void LoadProperties() override {}
  void StoreProperties() override {}

private:
  PropertyListDialog & mDialog;
};

PropertyListDialog::PropertyListDialog(wxWindow * parent)
    : wxDialog(parent, wxID_ANY, vx3::Tr("Run settings"), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER),
      mSettings(new SampleRunSettings(*this)) {
  mList = new PropertyListCtrl(this, wxID_ANY, wxDefaultPosition, wxSize(440, 420));
  mStatus = new wxStaticText(this, wxID_ANY, vx3::Tr("Select a row to edit its value."));
  auto * sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(mList, 1, wxEXPAND | wxALL, 8);
  sizer->Add(mStatus, 0, wxEXPAND | wxLEFT | wxRIGHT, 8);
  sizer->Add(CreateButtonSizer(wxOK), 0, wxEXPAND | wxALL, 8);
  SetSizerAndFit(sizer);
  mList->SetPropertyItemManager(mSettings);
}

PropertyListDialog::~PropertyListDialog() {
  // The rows point at the manager's items: the list goes first.
  mList->ResetContent();
  delete mSettings;
}

void PropertyListDialog::ShowCommitted(wxString const & text) {
  mStatus->SetLabel(wxString::FromUTF8(
      (boost::format(vx3::Tr("Committed: %1%").utf8_string()) % text.utf8_string()).str()));
}

wxString PropertyListDialog::GetStatus() const { return mStatus->GetLabel(); }

void AddPropertyListCommand(wxMenu & menu, wxWindow & frame) {
  menu.Append(kPropertyListCommand, vx3::Tr("Menu command", "Property &list..."));
  frame.Bind(
      wxEVT_MENU,
      [&frame](wxCommandEvent &) {
        PropertyListDialog dialog(&frame);
        dialog.ShowModal();
      },
      kPropertyListCommand);
}
