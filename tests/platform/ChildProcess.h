#pragma once
// Starts a test helper as a process of its own, with its standard output on
// a pipe and some environment variables changed.

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <map>
#include <string>
#include <vector>

extern char ** environ;

struct ChildProcess {
  pid_t pid = -1;
  int output = -1;  // read end of the child's stdout

  // argv[0] is the program's path. False when it could not be started.
  bool Start(std::vector<std::string> const & argv,
             std::map<std::string, std::string> const & environment = {}) {
    std::vector<std::string> variables;
    for (char ** at = environ; *at != nullptr; ++at) {
      std::string const entry = *at;
      if (environment.count(entry.substr(0, entry.find('='))) == 0) variables.push_back(entry);
    }
    for (auto const & [name, value] : environment) variables.push_back(name + "=" + value);
    std::vector<char *> args, envp;
    for (auto const & arg : argv) args.push_back(const_cast<char *>(arg.c_str()));
    for (auto const & variable : variables) envp.push_back(const_cast<char *>(variable.c_str()));
    args.push_back(nullptr);
    envp.push_back(nullptr);

    int pipe[2];
    if (::pipe2(pipe, O_CLOEXEC) != 0) return false;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, pipe[1], STDOUT_FILENO);
    int const rc = posix_spawn(&pid, args[0], &actions, nullptr, args.data(), envp.data());
    posix_spawn_file_actions_destroy(&actions);
    ::close(pipe[1]);
    output = pipe[0];
    return rc == 0;
  }

  // Everything the child writes until it closes its output.
  std::string ReadAll() {
    std::string text;
    char buffer[4096];
    for (ssize_t got; (got = ::read(output, buffer, sizeof buffer)) > 0;) text.append(buffer, got);
    return text;
  }

  // Reads exactly `count` bytes; false if the output ends first.
  bool ReadBytes(size_t count) {
    char buffer[256];
    while (count > 0) {
      ssize_t const got = ::read(output, buffer, count < sizeof buffer ? count : sizeof buffer);
      if (got <= 0) return false;
      count -= static_cast<size_t>(got);
    }
    return true;
  }

  // The exit code, or 128 + the signal that ended it.
  int Wait() {
    int status = 0;
    ::waitpid(pid, &status, 0);
    if (output >= 0) ::close(output);
    output = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  }
};
