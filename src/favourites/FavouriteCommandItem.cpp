#include "favourites/FavouriteCommandItem.h"

#include <string>

#include <wx/app.h>
#include <wx/mdi.h>
#include <boost/format.hpp>

#include "controls/Enabler.h"
#include "controls/GUIUtilities.h"
#include "favourites/FavouriteBuilder.h"
#include "platform/ResourceModule.h"
#include "utl/CaseFolding.h"
#include "utl/ConfigurationSection.h"
#include "utl/Translation.h"

namespace {

wxWindow * MainWindow() { return wxTheApp != nullptr ? wxTheApp->GetTopWindow() : nullptr; }

std::u32string Folded(wxString const & text) {
  std::u32string out;
  vx3::AppendFoldedFull(text.utf8_string(), out);
  return out;
}

wxMDIChildFrame * ActiveMdiChild(wxWindow * main) {
  auto * const parent = dynamic_cast<wxMDIParentFrame *>(main);
  return parent != nullptr ? parent->GetActiveChild() : nullptr;
}

}  // namespace

FavouriteCommandItem::FavouriteCommandItem(wchar_t const * name, int commandId)
    : mCommandId(commandId) {
  SetName(name);
}

FavouriteCommandItem::FavouriteCommandItem(unsigned int commandId)
    : mCommandId(static_cast<int>(commandId)) {
  wxString name = LoadResourceString(commandId);
  if (name.empty()) name = vx3::Tr("Favorites");
  // The command strings keep "long\nshort"; the count is the position of the
  // line feed plus one, as the stored favourites of the family were named.
  size_t const lineFeed = name.find(L'\n');
  if (lineFeed != wxString::npos) name = name.Right(lineFeed + 1);
  SetName(name.wc_str());
}

FavouriteCommandItem::FavouriteCommandItem() { FavouriteBuilder::Instance()->Add(kType, this); }

void FavouriteCommandItem::Save(ConfigurationSection * section) const {
  FavouriteItem::Save(section);
  section->WriteInt("CommandID", mCommandId);
}

void FavouriteCommandItem::Load(ConfigurationSection const * section) {
  FavouriteItem::Load(section);
  section->ReadInt("CommandID", mCommandId);
}

FavouriteItem * FavouriteCommandItem::Copy() const { return new FavouriteCommandItem(*this); }

wxString FavouriteCommandItem::GetType() const {
  // Asked for every row drawn or loaded: converted once.
  static wxString const type = wxString::FromAscii(kType);
  return type;
}

bool FavouriteCommandItem::IsGlobal() const { return true; }

bool FavouriteCommandItem::Enable() {
  if (wxTheApp == nullptr || MainWindow() == nullptr || mCommandId <= 0) return false;
  GUI::Enabler enabler;
  return enabler.IsEnable(static_cast<unsigned int>(mCommandId));
}

wxWindow * FavouriteCommandItem::Open() {
  wxWindow * const main = MainWindow();
  if (main == nullptr) return nullptr;
  wxMDIChildFrame * const before = ActiveMdiChild(main);
  if (mCommandId > 0) {
    wxCommandEvent command(wxEVT_MENU, mCommandId);
    command.SetEventObject(main);
    main->GetEventHandler()->ProcessEvent(command);
  }
  if (dynamic_cast<wxMDIParentFrame *>(main) == nullptr) return nullptr;
  wxMDIChildFrame * const after = ActiveMdiChild(main);
  return after != before ? after : nullptr;
}

wxString FavouriteCommandItem::GetToolTipText() const {
  if (mCommandId <= 0) return GetName();
  wxString const text = GUIUtilities::LoadStringPart(static_cast<unsigned int>(mCommandId), false);
  if (text.empty() || Folded(text) == Folded(GetName())) return GetName();
  return wxString::FromUTF8(
      (boost::format("%1%\n\n%2%") % GetName().utf8_string() % text.utf8_string()).str());
}
