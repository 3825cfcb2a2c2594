#include "PictureCommands.h"

#include <wx/frame.h>
#include <wx/menu.h>
#include <wx/panel.h>
#include <wx/scrolwin.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>

#include "SampleCommands.h"
#include "dialogs/VxFileDialog.h"
#include "pictures/DibBitmap.h"
#include "pictures/DibFile.h"
#include "pictures/DibJpeg.h"
#include "pictures/PngCoder.h"
#include "pictures/VxJpeg.h"
#include "pictures/WindowToDib.h"
#include "platform/MessageBoxes.h"
#include "platform/WinUser.h"
#include "utl/AtomicFile.h"
#include "utl/Exception.h"
#include "utl/Translation.h"

using vx3::Tr;

namespace {

struct DibFree {
  void operator()(DibBlock * dib) const { GlobalFree(dib); }
};
using OwnedDib = std::unique_ptr<DibBlock, DibFree>;
using PngRecord = std::unique_ptr<VxPngInfo, decltype(&VxPngFree)>;

wxString Extension(wxString const & path) { return path.AfterLast('/').AfterLast('.').Lower(); }

// Writes the DIB as the extension asks; an empty text on success, else why not.
wxString WritePicture(HDIB dib, wxString const & path) {
  wxString const extension = Extension(path);
  if (extension == "bmp") {
    std::ostringstream bytes;
    try {
      if (SaveDIB(dib, bytes) == 0) return Tr("The window could not be made into a picture.");
      vx3::WriteFileAtomically(path.utf8_string(), bytes.str());
    } catch (Exception const & failure) {
      return wxString::FromUTF8(failure.Why());
    }
    return wxString();
  }
  if (extension == "jpg" || extension == "jpeg")
    return SaveDIBAsJPEG(dib, path.utf8_str()) == 1 ? wxString()
                                                    : Tr("The JPEG file could not be written.");
  PngRecord png(VxPngCreate(VX_PNG_DIB_TO_PNG), VxPngFree);
  png->write.dib = GlobalLock(dib);
  png->write.dibSize = GlobalSize(dib);
  VxPngSetOutputFile(png.get(), path.wc_str());
  VxPngSetSoftware(png.get(), L"TALVOutlwin sample");
  if (VxDibToPng(png.get()) == VX_PNG_OK) return wxString();
  return wxString(png->errorText);
}

void OnSaveWindowPicture(wxFrame & frame) {
  VxFileDialog dialog(VxFileDialog::eExportDir, 0, L"png", L"window.png", OFN_OVERWRITEPROMPT,
                      L"PNG (*.png)|*.png|BMP (*.bmp)|*.bmp|JPEG (*.jpg)|*.jpg;*.jpeg||", &frame);
  if (dialog.DoModal() != IDOK) return;
  wxString const path = dialog.GetPathName();
  OwnedDib const dib(DDBToDIB(CaptureWindowBitmap(frame), BI_RGB, nullptr));
  wxString const failure =
      dib != nullptr ? WritePicture(dib.get(), path) : Tr("The window shows nothing to save.");
  if (!failure.empty()) {
    AfxMessageBox(failure + "\n" + path, MB_ICONHAND);
    return;
  }
  frame.SetStatusText(Tr("Saved ") + path);
}

wxString PngFacts(VxPngFileFacts const & facts) {
  static char const * const kColorTypes[] = {"grey",           "?", "RGB", "palette",
                                             "grey and alpha", "?", "RGBA"};
  wxString text = wxString::Format(
      Tr("PNG: %s, %d bits per sample, %d bits per pixel, %s"),
      facts.colorType >= 0 && facts.colorType <= 6 ? kColorTypes[facts.colorType] : "?",
      facts.bitDepth, facts.bitsPerPixel,
      facts.interlace != 0 ? Tr("interlaced") : Tr("not interlaced"));
  if (facts.hasResolution)
    text +=
        "\n" + wxString::Format(Tr("Resolution: %u x %u %s"), facts.resolutionX, facts.resolutionY,
                                facts.resolutionUnit == 1 ? Tr("pixels a metre") : Tr("(no unit)"));
  if (facts.hasGamma) text += "\n" + wxString::Format(Tr("Gamma: %.5f"), facts.gamma);
  if (facts.hasBackground)
    text += "\n" + wxString::Format(Tr("Background: %d, %d, %d"), facts.backgroundRed,
                                    facts.backgroundGreen, facts.backgroundBlue);
  return text;
}

struct LoadedPicture {
  wxBitmap bitmap;
  wxString facts;
  wxString failure;
};

LoadedPicture LoadPng(wxString const & path) {
  LoadedPicture picture;
  PngRecord png(VxPngCreate(VX_PNG_PNG_TO_DIB), VxPngFree);
  VxPngSetInputFile(png.get(), path.wc_str());
  if (VxPngToDib(png.get()) != VX_PNG_OK) {
    picture.failure = wxString(png->errorText);
    return picture;
  }
  HDIB const dib = GlobalAlloc(png->read.dibSize);
  if (dib != nullptr) {
    std::memcpy(GlobalLock(dib), png->read.dib, png->read.dibSize);
    picture.bitmap = DIBToDDB(dib);
    GlobalFree(dib);
  }
  picture.facts = PngFacts(png->read.facts);
  VxPngFreeDib(png.get());
  return picture;
}

LoadedPicture LoadBmp(wxString const & path) {
  LoadedPicture picture;
  std::ifstream in(path.utf8_string(), std::ios::binary);
  std::string const bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  BITMAPFILEHEADER header{};
  if (bytes.size() > sizeof header) std::memcpy(&header, bytes.data(), sizeof header);
  if (header.bfType != kBmpSignature) {
    picture.failure = Tr("The file is no BMP picture.");
    return picture;
  }
  OwnedDib const dib(GlobalAlloc(bytes.size() - sizeof header));
  if (dib != nullptr) {
    std::memcpy(GlobalLock(dib.get()), bytes.data() + sizeof header, bytes.size() - sizeof header);
    picture.bitmap = DIBToDDB(dib.get());
  }
  if (!picture.bitmap.IsOk()) picture.failure = Tr("The BMP picture is damaged.");
  return picture;
}

LoadedPicture LoadJpeg(wxString const & path) {
  LoadedPicture picture;
  std::ifstream in(path.utf8_string(), std::ios::binary);
  VxJpeg jpeg(in);
  picture.bitmap = jpeg.GetBitMap();
  if (!picture.bitmap.IsOk()) picture.failure = wxString::FromUTF8(jpeg.GetErrorMessage());
  return picture;
}

void ShowPicture(wxFrame & owner, wxString const & path, LoadedPicture const & picture) {
  auto * window = new wxFrame(&owner, wxID_ANY, path.AfterLast('/'), wxDefaultPosition,
                              wxSize(640, 480), wxDEFAULT_FRAME_STYLE, kPictureWindowName);
  auto * sizer = new wxBoxSizer(wxVERTICAL);
  auto * scrolled = new wxScrolledWindow(window);
  new wxStaticBitmap(scrolled, wxID_ANY, picture.bitmap);
  scrolled->SetVirtualSize(picture.bitmap.GetSize());
  scrolled->SetScrollRate(10, 10);
  sizer->Add(scrolled, 1, wxEXPAND);
  wxString const facts = wxString::Format(Tr("%d x %d pixels"), picture.bitmap.GetWidth(),
                                          picture.bitmap.GetHeight()) +
                         (picture.facts.empty() ? wxString() : "\n" + picture.facts);
  sizer->Add(new wxStaticText(window, wxID_ANY, facts, wxDefaultPosition, wxDefaultSize, 0,
                              kPictureFactsName),
             0, wxALL, 8);
  window->SetSizer(sizer);
  window->Show();
}

void OnOpenPicture(wxFrame & frame) {
  VxFileDialog dialog(VxFileDialog::eImportDir, 1, nullptr, nullptr, OFN_FILEMUSTEXIST,
                      L"Pictures (*.png;*.jpg;*.jpeg;*.bmp)|*.png;*.jpg;*.jpeg;*.bmp|"
                      L"All files (*.*)|*.*||",
                      &frame);
  if (dialog.DoModal() != IDOK) return;
  wxString const path = dialog.GetPathName();
  wxString const extension = Extension(path);
  LoadedPicture const picture = extension == "png"   ? LoadPng(path)
                                : extension == "bmp" ? LoadBmp(path)
                                                     : LoadJpeg(path);
  if (!picture.failure.empty() || !picture.bitmap.IsOk()) {
    AfxMessageBox(Tr("The picture could not be opened.") + "\n" + path + "\n" + picture.failure,
                  MB_ICONHAND);
    return;
  }
  ShowPicture(frame, path, picture);
}

}  // namespace

void AddSaveWindowPictureCommand(wxMenu & tools, wxFrame & frame) {
  tools.Append(kSaveWindowPictureCommand,
               Tr("Menu command", "Save window as &picture (BMP, PNG or JPEG)..."));
  frame.Bind(
      wxEVT_MENU, [&frame](wxCommandEvent &) { OnSaveWindowPicture(frame); },
      kSaveWindowPictureCommand);
}

void AddOpenPictureCommand(wxMenu & file, wxFrame & frame) {
  file.Append(kOpenPictureCommand, Tr("Menu command", "Open &picture..."));
  frame.Bind(
      wxEVT_MENU, [&frame](wxCommandEvent &) { OnOpenPicture(frame); }, kOpenPictureCommand);
}
