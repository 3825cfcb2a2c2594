#pragma once
// The sample's part of Help > About: details about its build behind the
// details button. The maker's page is the customization package's when the
// package sits beside the program, else the library's own.

class AboutDialog;

void PrepareSampleAbout(AboutDialog & dialog);
