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

namespace child_detail {

// The arguments as posix_spawn takes them; they point into `argv`.
inline std::vector<char*> Arguments(const std::vector<std::string>& argv) {
  std::vector<char*> args;
  for (const std::string& a : argv) args.push_back(const_cast<char*>(a.c_str()));
  args.push_back(nullptr);
  return args;
}

// Waits for the child and fills in its CPU time and exit status.
inline void Wait(pid_t pid, ChildRun& run) {
  int status = 0;
  rusage usage{};
  while (wait4(pid, &status, 0, &usage) < 0) {
  }
  const auto seconds = [](const timeval& t) { return t.tv_sec + t.tv_usec / 1e6; };
  run.cpuSeconds = seconds(usage.ru_utime) + seconds(usage.ru_stime);
  run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace child_detail

// Runs `argv` (argv[0] a path, or a name looked up in PATH) with standard
// input read from `input` and standard output written to `output` (both
// paths; "/dev/null" to give or keep nothing) and waits for it.
inline ChildRun RunChild(const std::vector<std::string>& argv, const std::string& input,
                         const std::string& output) {
  ChildRun run;
  std::vector<char*> args = child_detail::Arguments(argv);
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
  child_detail::Wait(pid, run);
  run.wallSeconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  return run;
}

// Whether `program` is found in PATH.
inline bool OnPath(const std::string& program) {
  return RunChild({"sh", "-c", "command -v " + program}, "/dev/null", "/dev/null").status == 0;
}

}  // namespace orvel

namespace orvel {

// Starts `argv` with pipes on its standard input and output, reads its
// output until `prompt` appears (a program that reads a pipe may show no
// prompt of its own: then the text it puts out before it waits), then closes
// its input and waits for it.
// wallSeconds is the time to the prompt; status that of its end (-1 when it
// never showed the prompt).
inline ChildRun RunToPrompt(const std::vector<std::string>& argv, const std::string& prompt) {
  ChildRun run;
  int in[2];
  int out[2];
  if (pipe(in) != 0) return run;
  if (pipe(out) != 0) {
    close(in[0]);
    close(in[1]);
    return run;
  }
  std::vector<char*> args = child_detail::Arguments(argv);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, in[0], STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
  for (int fd : {in[0], in[1], out[0], out[1]}) posix_spawn_file_actions_addclose(&actions, fd);
  const auto start = std::chrono::steady_clock::now();
  pid_t pid = 0;
  const int failed = posix_spawnp(&pid, args[0], &actions, nullptr, args.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  close(in[0]);
  close(out[1]);
  bool prompted = false;
  if (failed == 0) {
    std::string seen;
    char buffer[4096];
    for (;;) {
      const ssize_t got = read(out[0], buffer, sizeof buffer);
      if (got <= 0) break;
      seen.append(buffer, static_cast<size_t>(got));
      if (seen.find(prompt) != std::string::npos) {
        prompted = true;
        break;
      }
    }
    run.wallSeconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  }
  close(in[1]);
  if (failed != 0) {
    close(out[0]);
    return run;
  }
  // Whatever it says after its input ends goes nowhere.
  char drain[4096];
  while (read(out[0], drain, sizeof drain) > 0) {
  }
  close(out[0]);
  child_detail::Wait(pid, run);
  if (!prompted) run.status = -1;
  return run;
}

}  // namespace orvel
