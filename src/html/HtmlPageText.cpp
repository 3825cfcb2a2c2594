#include "html/HtmlPageText.h"

wxString EscapeHtmlText(wxString const & text) {
  wxString out;
  out.reserve(text.size());
  for (wxUniChar const c : text) {
    if (c == '&')
      out += "&amp;";
    else if (c == '<')
      out += "&lt;";
    else if (c == '>')
      out += "&gt;";
    else
      out += c;
  }
  return out;
}

wxString EscapeStyleText(wxString const & css) {
  wxString out = css;
  out.Replace("</", "<\\/");
  return out;
}

wxString ComposeHtmlPage(wxString const & html, wxString const & css) {
  wxString page;
  page.reserve(html.size() + css.size() + 128);
  page << "<!DOCTYPE html><html><head><meta charset=\"utf-8\"><style type=\"text/css\">"
       << EscapeStyleText(css) << "</style></head><body>" << html << "</body></html>";
  return page;
}

std::string ComposeSavedPage(wxString const & title, wxString const & css, wxString const & body) {
  wxString const trimmedBody = wxString(body).Trim(true).Trim(false);
  if (trimmedBody.Contains("<HTML>")) return trimmedBody.utf8_string();
  wxString page;
  page.reserve(trimmedBody.size() + css.size() + 256);
  page << "<!DOCTYPE html PUBLIC \"-//W3C//DTD HTML 4.01 Transitional//EN\">"
       << "<html><head><meta http-equiv=\"Content-Type\" content=\"text/html; charset=utf-8\">"
       << "<title>" << EscapeHtmlText(title) << "</title><style type=\"text/css\"><!--"
       << EscapeStyleText(wxString(css).Trim(true).Trim(false)) << "--></style></head>"
       << trimmedBody << "</html>";
  return page.utf8_string();
}
