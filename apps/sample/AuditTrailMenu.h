#pragma once
// The sample's Audit Trail menu: the settings page in a sheet, the trail's
// window, Clear, Save As and the user's extended information. The sample
// keeps one trail, "Sample Audit Trail.xml" in its per-user data folder,
// with its settings in the sample's settings file (the administrator's
// policy merged in); it is on at level 1 until the settings page turns it
// off.

class AuditTrail;
class wxFrame;
class wxMenu;
class wxString;

// The menu, handled by `frame`.
wxMenu * CreateAuditTrailMenu(wxFrame & frame);
// The sample's trail, made on first use.
AuditTrail & SampleAuditTrail();
// Records an event in the sample's trail when it is on.
void RecordSampleAuditEvent(wxString const & text, wxString const & detail);
