#include "PropertyEditorsDialog.h"

#include <wx/dcbuffer.h>
#include <wx/menu.h>
#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <boost/format.hpp>

#include "SampleCommands.h"
#include "platform/SysColor.h"
#include "platform/WindowMessage.h"
#include "properties/PropertyInPlaceBrowseForColor.h"
#include "properties/PropertyInPlaceEdit.h"
#include "properties/PropertyInPlaceMessages.h"
#include "properties/PropertyItemCategory.h"
#include "properties/PropertyItemColorPopup.h"
#include "properties/PropertyItemCustomList.h"
#include "properties/PropertyItemFloat.h"
#include "properties/PropertyItemListBool.h"
#include "properties/PropertyItemNumber.h"
#include "properties/PropertyItemPaths.h"
#include "properties/PropertyItemString.h"
#include "utl/Translation.h"

namespace {

int const kRowHeight = 24;
int const kNameWidth = 150;
int const kGridWidth = 460;

// The units a measurement may be given in, filled when first drawn.
class UnitList : public PropertyItemCustomList {
public:
  using PropertyItemCustomList::PropertyItemCustomList;
  PROPERTY_ITEM_CLONE(UnitList)
  void InitPropertyItemList(std::vector<wxString> & items, unsigned /*id*/) override {
    items = {L"mg/l", L"ppm", L"mmol/l", L"%"};
  }
};

// The value an item holds, for the log line.
wxString ValueText(PropertyItem & item) {
  if (auto * text = dynamic_cast<PropertyItemString *>(&item)) {
    wxString value;
    text->GetData(value);
    return value;
  }
  if (auto * number = dynamic_cast<PropertyItemNumber *>(&item)) return number->FormatValue();
  if (auto * real = dynamic_cast<PropertyItemFloat *>(&item)) return real->FormatValue();
  if (auto * list = dynamic_cast<PropertyItemList *>(&item)) {
    int index = 0;
    list->GetData(index);
    return list->GetItemData(static_cast<std::uint64_t>(static_cast<std::int64_t>(index)));
  }
  if (auto * path = dynamic_cast<PropertyItemPath *>(&item)) {
    wxString value;
    path->GetData(value);
    return value;
  }
  if (auto * color = dynamic_cast<PropertyItemColorPopup *>(&item)) {
    COLORREF value = 0;
    color->GetData(value);
    return PropertyInPlaceBrowseForColor::FormatEditString(value);
  }
  return wxString();
}

}  // namespace

PropertyEditorsDialog::PropertyEditorsDialog(wxWindow * parent)
    : wxDialog(parent, wxID_ANY, vx3::Tr("Property editors"), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE) {
  mItems.push_back(std::make_unique<PropertyItemCategory>(L"Measurement", 0, L""));
  auto * text = new PropertyItemString(L"Operator", 1, L"Who ran the measurement");
  text->SetData(wxString(L"Ana Berger"));
  auto * number = new PropertyItemNumber(L"Replicates", 2, L"Digits only");
  number->SetData(3);
  auto * offset = new PropertyItemNegNumber(L"Offset", 3, L"A whole number, may be negative");
  offset->SetData(-12);
  auto * gain = new PropertyItemFloat(L"Gain", 4, L"Empty when missing");
  gain->SetData(1.25F);
  auto * autosave = new PropertyItemListYesNo(L"Save automatically", 5, L"");
  autosave->SetData(true);
  auto * alarm = new PropertyItemListEnabledDisabled(L"Alarm", 6, L"");
  auto * validated = new PropertyItemListTrueFalse(L"Validated", 7, L"");
  auto * unit = new UnitList(L"Unit", 8, L"");
  unit->SetData(1);
  auto * folder = new PropertyItemFolderPath(L"Data folder", 9, L"");
  folder->SetData(wxString(L"/srv/data/laboratory/Messungen 2024/raw/station 7"));
  auto * folders = new PropertyItemFolderCollection(L"Search folders", 10, L"", L"Search Folders",
                                                    L"Folders to search:");
  folders->SetData(wxString(L"/srv/data;/mnt/lab-share/archive;"));
  auto * file = new PropertyItemFilePath(L"Report file", 11, L"");
  file->SetData(wxString(L"/home/ana/reports/2024/november/run 17 summary.pdf"));
  auto * color = new PropertyItemColorPopup(L"Trace colour", 12, L"");
  color->SetData(RGB(0x20, 0x80, 0xC0));
  for (PropertyItem * item :
       std::initializer_list<PropertyItem *>{text, number, offset, gain, autosave, alarm, validated,
                                             unit, folder, folders, file, color})
    mItems.emplace_back(item);

  mGrid = new wxPanel(this, wxID_ANY, wxDefaultPosition,
                      wxSize(kGridWidth, kRowHeight * GetRowCount() + 1));
  mGrid->SetBackgroundStyle(wxBG_STYLE_PAINT);
  mGrid->Bind(wxEVT_PAINT, &PropertyEditorsDialog::OnPaint, this);
  mGrid->Bind(wxEVT_LEFT_DOWN, &PropertyEditorsDialog::OnLeftDown, this);
  mGrid->Bind(VX_EVT_WINDOW_MESSAGE, &PropertyEditorsDialog::OnWindowMessage, this);
  mLog = new wxStaticText(this, wxID_ANY, vx3::Tr("Click a value to edit it."));

  auto * sizer = new wxBoxSizer(wxVERTICAL);
  sizer->Add(mGrid, 0, wxALL, 8);
  sizer->Add(mLog, 0, wxLEFT | wxRIGHT | wxEXPAND, 8);
  sizer->Add(CreateButtonSizer(wxCLOSE), 0, wxALL | wxEXPAND, 8);
  SetSizerAndFit(sizer);
  SetEscapeId(wxID_CLOSE);
}

PropertyEditorsDialog::~PropertyEditorsDialog() = default;

RECT PropertyEditorsDialog::ValueCell(int row) const {
  return RECT{kNameWidth, row * kRowHeight, kGridWidth, (row + 1) * kRowHeight};
}

wxString PropertyEditorsDialog::GetLog() const { return mLog->GetLabel(); }

void PropertyEditorsDialog::OnPaint(wxPaintEvent & /*event*/) {
  wxAutoBufferedPaintDC dc(mGrid);
  dc.SetBackground(wxBrush(GetSysColour(COLOR_WINDOW)));
  dc.Clear();
  dc.SetFont(mGrid->GetFont());
  dc.SetTextForeground(GetSysColour(COLOR_WINDOWTEXT));
  dc.SetPen(wxPen(GetSysColour(COLOR_BTNFACE)));
  for (int row = 0; row < GetRowCount(); ++row) {
    RECT const cell = ValueCell(row);
    PropertyItem & item = GetItem(row);
    bool const heading = dynamic_cast<PropertyItemCategory *>(&item) != nullptr;
    wxFont const font = heading ? mGrid->GetFont().Bold() : mGrid->GetFont();
    wxDCFontChanger const changer(dc, font);
    dc.DrawText(item.GetName(), 6, cell.top + (kRowHeight - dc.GetCharHeight()) / 2);
    item.DrawValue(dc, cell);
    dc.DrawLine(0, cell.bottom, kGridWidth, cell.bottom);
  }
  dc.DrawLine(kNameWidth - 1, 0, kNameWidth - 1, kRowHeight * GetRowCount());
}

void PropertyEditorsDialog::OnLeftDown(wxMouseEvent & event) {
  int const row = event.GetY() / kRowHeight;
  if (event.GetX() >= kNameWidth && row >= 0 && row < GetRowCount()) OpenEditor(row);
  event.Skip();
}

void PropertyEditorsDialog::CloseEditor() {
  if (mEditor == nullptr) return;
  // Going while focused, an edit hears no kill-focus: it hands its value
  // back now.
  if (auto * edit = dynamic_cast<PropertyInPlaceEdit *>(mEditor))
    edit->Commit();
  else if (auto * browse = dynamic_cast<PropertyInPlaceEditAndBrowse *>(mEditor))
    browse->Commit();
  wxWindow * const going = mEditor;
  mEditor = nullptr;
  mEditorRow = -1;
  going->Destroy();
  mGrid->Refresh();
}

void PropertyEditorsDialog::OpenEditor(int row) {
  if (row == mEditorRow) return;
  CloseEditor();
  mEditor = GetItem(row).CreateInPlaceControl(mGrid, ValueCell(row));
  mEditorRow = mEditor != nullptr ? row : -1;
}

void PropertyEditorsDialog::OnWindowMessage(WindowMessageEvent & event) {
  if (event.GetMessage() != kInPlaceDataChanged || mEditor == nullptr) {
    event.Skip();
    return;
  }
  PropertyItem & item = GetItem(mEditorRow);
  item.SetData(mEditor);
  mLog->SetLabel((boost::format(vx3::Tr("%1%: %2%").ToStdString(wxConvUTF8)) %
                  item.GetName().utf8_string() % ValueText(item).utf8_string())
                     .str());
  RECT const cell = ValueCell(mEditorRow);
  mGrid->RefreshRect(wxRect(0, cell.top, kGridWidth, kRowHeight), false);
}

void AddPropertyEditorsCommand(wxMenu & menu, wxWindow & frame) {
  menu.Append(kPropertyEditorsCommand, vx3::Tr("Menu command", "&Property editors..."));
  frame.Bind(
      wxEVT_MENU,
      [&frame](wxCommandEvent &) {
        PropertyEditorsDialog dialog(&frame);
        dialog.ShowModal();
      },
      kPropertyEditorsCommand);
}
