#pragma once
// Runs the tests of a `gui` binary with `application` as the process's wx
// application object: starts wx on the display, calls OnInit, runs every
// test, cleans up. The harness's main() uses it with a plain wxApp; a binary
// whose tests need an application object of their own passes theirs.

class wxApp;

int RunGuiTests(int argc, char ** argv, wxApp * application);
