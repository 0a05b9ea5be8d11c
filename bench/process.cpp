#include "process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace tessera::bench {

namespace {

double Milliseconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
}

std::string ReadAll(int descriptor) {
  std::string all;
  std::array<char, 4096> piece;
  for (ssize_t count = 0; (count = read(descriptor, piece.data(), piece.size())) > 0;) {
    all.append(piece.data(), static_cast<std::size_t>(count));
  }
  return all;
}

// The bench's own memory is not copied for the program, so that its time is its own.
pid_t Spawn(const std::vector<std::string>& words, int output) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDWR, 0);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_RDWR, 0);
  posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
  std::vector<std::string> copies = words;
  std::vector<char*> arguments;
  arguments.reserve(copies.size() + 1);
  for (std::string& copy : copies) arguments.push_back(copy.data());
  arguments.push_back(nullptr);
  pid_t child = 0;
  const int error = posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error == 0) return child;
  std::fprintf(stderr, "bench: %s can't be started\n", arguments[0]);
  std::exit(1);
}

}  // namespace

Measured RunOnce(const std::vector<std::string>& words) {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) std::exit(1);
  const auto start = std::chrono::steady_clock::now();
  const pid_t child = Spawn(words, ends[1]);
  close(ends[1]);
  Measured measured;
  measured.output = ReadAll(ends[0]);
  close(ends[0]);
  int status = 0;
  rusage used{};
  wait4(child, &status, 0, &used);
  const std::chrono::duration<double, std::milli> elapsed = std::chrono::steady_clock::now() - start;
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
    std::fprintf(stderr, "bench: %s ended with status %d\n", words.back().c_str(), status);
    std::exit(1);
  }
  measured.busy = Milliseconds(used.ru_utime) + Milliseconds(used.ru_stime);
  measured.elapsed = elapsed.count();
  measured.peak = static_cast<double>(used.ru_maxrss) / 1024;
  return measured;
}

Measured Run(const std::vector<std::string>& words, int rounds) {
  Measured best = RunOnce(words);
  for (int i = 1; i < rounds; ++i) {
    Measured next = RunOnce(words);
    if (next.busy < best.busy) best = std::move(next);
  }
  return best;
}

}  // namespace tessera::bench
