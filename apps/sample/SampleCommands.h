#pragma once
// Every command id of the sample's menus, in one enumeration: each command
// is one enumerator, so no two menus can ever share an id. (The stock ids
// the sample uses, wxID_EXIT and the family's about command, 57664, lie
// below wxID_HIGHEST and cannot meet these.)

#include <wx/defs.h>

enum SampleCommand : int {
  kFirstSampleCommand = wxID_HIGHEST + 1,
  // File
  kOpenCommand = kFirstSampleCommand,
  kSaveAsCommand,
  kDefaultFolderCommand,
  kSearchFoldersCommand,
  kOpenPictureCommand,
  kPrintPageCommand,
  // Tools
  kRunCalculationCommand,
  kArchiveRunsCommand,
  kDateFormatCommand,
  kTimeGridCommand,
  kPickRunCommand,
  kInstrumentsCommand,
  kCalibrationListCommand,
  kCopyRunsCommand,
  kReportCommand,
  kRunsByProjectCommand,
  kEditsCommand,
  kNotesCommand,
  kSeriesCommand,
  kPropertyEditorsCommand,
  kRunSettingsCommand,
  kNewRunWizardCommand,
  kSaveWindowPictureCommand,
  kRunInBackgroundCommand,
  kFailingBackgroundRunCommand,
  kBackgroundResultCommand,
  // View
  kPropertiesCommand,
  kServiceCommand,
  kPropertyListCommand,
  // Runs by project (its own window)
  kLoadTreeCommand,
  kSaveTreeCommand,
  kFindNextRunCommand,
  kDeleteRunsCommand,
  kTreeViewCommand,
  kOpenFavouritesCommand,
  kFavouritesPaneCommand,
  // Favourites
  kAddCommandToFavouritesCommand,
  // Messages
  kOkBoxCommand,
  kOkCancelBoxCommand,
  kYesNoBoxCommand,
  kRelabelledBoxCommand,
  kHelpBoxCommand,
  kCheckBoxCommand,
  kDontShowAgainCommand,
  kForgetAnswersCommand,
  kFailingHandlerCommand,
  kDetailsOpenCommand,
  kDetailsClosedCommand,
  kDetailsDontShowCommand,
  kInfoPlainCommand,
  kInfoHtmlCommand,
  kMuteDetailsCommand,
  kScrollBoxCommand,
  kInfoRtfCommand,
  kAskNumberCommand,
  kAskNameAndModelCommand,
  kAskModelCommand,
  kAskFilterCommand,
  kAskOneRunCommand,
  kAskSeveralRunsCommand,
  kAskRunsAndFormatCommand,
  kAskClassCommand,
  kAskPhaseCommand,
  // Audit Trail
  kAuditTrailSettingsCommand,
  kAuditTrailViewCommand,
  kAuditTrailClearCommand,
  kAuditTrailSaveAsCommand,
  kAuditTrailUserInfoCommand,
  // Help
  kReleaseNotesCommand,
  kSplashCommand,
  kHelpContentsCommand,
  kHelpIndexCommand,
  kHelpSearchCommand,
  kHelpOnRunsCommand,
  kPopupHelpDialogCommand,
  kHelpPaneCommand,
  kSendFeedbackCommand,
  kTourCommand,
  // File, printing (last, so that the ids before keep their numbers)
  kPrintCommand,
  kPrintWindowCommand,
  kCrashNullWriteCommand,
  kCrashAbortCommand,
  kCrashWorkerExceptionCommand,
  kEndOfSampleCommands
};
