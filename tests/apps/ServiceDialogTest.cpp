// The sample's service dialog against a service manager on a private bus:
// each button's answer in the log, the unit it installs, and the codes a
// person sees when an operation fails.
#include <gtest/gtest.h>

#include <unistd.h>

#include <wx/frame.h>

#include "ServiceDialog.h"
#include "service/MockServiceManager.h"
#include "service/ServiceUnit.h"

namespace {

TEST(ServiceDialog, EachButtonAddsItsAnswerToTheLog) {
  MockServiceManager manager;
  ASSERT_TRUE(manager.IsReady());
  wxFrame frame(nullptr, wxID_ANY, "service");
  auto * dialog = new ServiceDialog(&frame);
  EXPECT_EQ(dialog->ServiceName(), "talvo-sample-service");

  dialog->Run(ServiceDialog::kStart);
  dialog->Run(ServiceDialog::kInstall);
  // "-" stands for "/" in unit names, so the name escapes it.
  EXPECT_EQ(VxService::UnitNameOf(L"talvo-sample-service"), "talvo\\x2dsample\\x2dservice.service");
  EXPECT_EQ(
      ::access(
          (manager.UnitFolder() + "/" + VxService::UnitNameOf(L"talvo-sample-service")).c_str(),
          F_OK),
      0);
  dialog->Run(ServiceDialog::kStart);
  dialog->Run(ServiceDialog::kStatus);
  dialog->Run(ServiceDialog::kUninstall);
  dialog->Run(ServiceDialog::kStop);
  dialog->Run(ServiceDialog::kUninstall);
  EXPECT_EQ(dialog->GetLog().utf8_string(),
            "Start: 1060 The specified service does not exist as an installed service.\n"
            "Install: done\n"
            "Start: done\n"
            "Status: The service is running\n"
            "Uninstall: 1056 An instance of the service is already running.\n"
            "Stop: done\n"
            "Uninstall: done\n");
  dialog->Destroy();
}

}  // namespace
