#pragma once
// A wx assertion fails the running test instead of showing a dialog.
void InstallWxAssertHandler();
