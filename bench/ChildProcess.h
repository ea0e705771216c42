#pragma once

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <string>
#include <vector>

extern char** environ;

namespace orvel {

// One run of another program, as the benchmarks that time whole programs
// measure it: its CPU time (user and system, from the kernel's account of
// the child) and the wall time until it ended.
struct ChildRun {
  int status = -1;  // the exit status; -1 when it could not start or was killed
  double cpuSeconds = 0;
  double wallSeconds = 0;
};

// Runs `argv` (argv[0] a path, or a name looked up in PATH) with standard
// input read from `input` and standard output written to `output` (both
// paths; "/dev/null" to give or keep nothing) and waits for it.
inline ChildRun RunChild(const std::vector<std::string>& argv, const std::string& input,
                         const std::string& output) {
  ChildRun run;
  std::vector<char*> args;
  for (const std::string& a : argv) args.push_back(const_cast<char*>(a.c_str()));
  args.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, input.c_str(), O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, output.c_str(),
                                   O_WRONLY | O_CREAT | O_TRUNC, 0644);
  const auto start = std::chrono::steady_clock::now();
  pid_t pid = 0;
  const int failed = posix_spawnp(&pid, args[0], &actions, nullptr, args.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (failed != 0) return run;
  int status = 0;
  rusage usage{};
  while (wait4(pid, &status, 0, &usage) < 0) {
  }
  run.wallSeconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  const auto seconds = [](const timeval& t) { return t.tv_sec + t.tv_usec / 1e6; };
  run.cpuSeconds = seconds(usage.ru_utime) + seconds(usage.ru_stime);
  run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return run;
}

// Whether `program` is found in PATH.
inline bool OnPath(const std::string& program) {
  return RunChild({"sh", "-c", "command -v " + program}, "/dev/null", "/dev/null").status == 0;
}

}  // namespace orvel
