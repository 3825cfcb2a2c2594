#pragma once
// The sample's "Run calculation" command: a nested calculation on the GUI
// thread that reports through Progress, shown in the break dialog, whose
// Stop button ends it early.

class wxWindow;

// Returns the checksum of what was computed, so that the work is real.
double RunSampleCalculation(wxWindow * parent);
