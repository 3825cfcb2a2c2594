#pragma once
// The sample's picture commands: Tools > Save window as picture writes the
// main window as a BMP, PNG or JPEG file (by the chosen name's extension),
// and File > Open picture shows a BMP, PNG or JPEG file in a window of its
// own, with what a PNG says of itself.

class wxFrame;
class wxMenu;

// Names of the picture window and its facts text, for tests.
constexpr char const * kPictureWindowName = "SamplePicture";
constexpr char const * kPictureFactsName = "SamplePictureFacts";

void AddSaveWindowPictureCommand(wxMenu & tools, wxFrame & frame);
void AddOpenPictureCommand(wxMenu & file, wxFrame & frame);
