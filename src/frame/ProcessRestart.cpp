#include "frame/ProcessRestart.h"

#include <spawn.h>
#include <unistd.h>

#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

extern char ** environ;

namespace {

// The arguments this process was started with, as the kernel keeps them.
std::vector<std::string> OwnArguments() {
  std::ifstream in("/proc/self/cmdline", std::ios::binary);
  std::string const all((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  std::vector<std::string> arguments;
  for (size_t start = 0; start < all.size();) {
    size_t end = all.find('\0', start);
    if (end == std::string::npos) end = all.size();
    arguments.emplace_back(all, start, end - start);
    start = end + 1;
  }
  return arguments;
}

void SpawnSelf() {
  std::vector<std::string> arguments = OwnArguments();
  if (arguments.empty()) arguments.emplace_back("/proc/self/exe");
  std::vector<char *> argv;
  argv.reserve(arguments.size() + 1);
  for (std::string & argument : arguments) argv.push_back(argument.data());
  argv.push_back(nullptr);
  pid_t child = 0;
  posix_spawn(&child, "/proc/self/exe", nullptr, nullptr, argv.data(), environ);
}

RestartLauncher & Launcher() {
  static RestartLauncher launcher = SpawnSelf;
  return launcher;
}

ProcessExit & Exit() {
  static ProcessExit exit = [](int status) { _exit(status); };
  return exit;
}

}  // namespace

RestartLauncher SetRestartLauncher(RestartLauncher launcher) {
  if (!launcher) launcher = SpawnSelf;
  return std::exchange(Launcher(), std::move(launcher));
}

ProcessExit SetProcessExit(ProcessExit exit) {
  if (!exit) exit = [](int status) { _exit(status); };
  return std::exchange(Exit(), std::move(exit));
}

void LaunchRestart() { Launcher()(); }

void EndProcessNow(int status) { Exit()(status); }
