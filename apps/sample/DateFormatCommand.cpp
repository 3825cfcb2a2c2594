#include "DateFormatCommand.h"

#include <wx/frame.h>
#include <wx/menu.h>
#include <boost/format.hpp>

#include "SampleCommands.h"
#include "datetime/RecentDateFormats.h"
#include "datetime/UserFormatString.h"
#include "utl/Translation.h"
#include "utl/Utf.h"

char const kSampleDateText[] = "15.03.2024 14:30:05";

std::string AskSampleDateFormat() {
  std::vector<std::string> const recent = VxTimeUtl::ReadRecentDateFormats();
  std::string const initial = recent.empty() ? std::string() : recent.front();
  std::string format;
  std::string const heading =
      vx3::TranslateText("The dates of the imported runs could not be read.", std::locale());
  if (!VxTimeUtl::GetUserFormatString(heading, kSampleDateText, initial, format)) return {};
  return format;
}

void AddDateFormatCommand(wxMenu & menu, wxWindow & frame) {
  menu.Append(kDateFormatCommand, vx3::Tr("Menu command", "&Date format..."));
  frame.Bind(
      wxEVT_MENU,
      [&frame](wxCommandEvent &) {
        std::string const format = AskSampleDateFormat();
        auto * status = dynamic_cast<wxFrame *>(&frame);
        if (format.empty() || status == nullptr) return;
        std::string const text =
            (boost::format(vx3::TranslateText("Dates are read as %1%.", std::locale())) % format)
                .str();
        status->SetStatusText(wxString(vx3::Utf8ToWide(text)));
      },
      kDateFormatCommand);
}
