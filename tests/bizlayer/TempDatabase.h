#pragma once

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

// A database file in a fresh temporary folder, removed with its WAL files.
class TempDatabase {
 public:
  TempDatabase() {
    char pattern[] = "/tmp/orvel-db-XXXXXX";
    const char* folder = mkdtemp(pattern);
    folder_ = folder ? folder : "/tmp";
    path_ = folder_ + "/orvel.db";
  }
  ~TempDatabase() {
    for (const char* suffix : {"", "-wal", "-shm"}) std::remove((path_ + suffix).c_str());
    rmdir(folder_.c_str());
  }
  TempDatabase(const TempDatabase&) = delete;
  TempDatabase& operator=(const TempDatabase&) = delete;

  const std::string& Path() const { return path_; }

 private:
  std::string folder_;
  std::string path_;
};
