#include "app/io/output_files.h"

#include "app/io/input_kind.h"
#include "app/io/system_failure.h"

#include <array>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <fcntl.h>
#include <random>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace App {

namespace {

namespace fs = std::filesystem;

constexpr mode_t kNewFileMode = 0666;  // less what the user's mask takes away
constexpr mode_t kPermissions = 07777;

// Part of the temporary names of one object, which no other process and no other object has.
std::string NewMark() {
  std::random_device random;
  const std::uint64_t number = (std::uint64_t{random()} << 32U) ^ random();
  std::array<char, 16> digits = {};
  const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number, 36).ptr;
  return ".pelor-" + std::string(digits.data(), static_cast<std::size_t>(end - digits.data()));
}

// The name of a new file with its folder as that of an existing one is given, so that files that come to
// stand side by side have names in one folder. A folder that cannot be found stays: making the file will
// tell.
fs::path BesideOthers(const fs::path& name) {
  const fs::path parent = name.parent_path();
  std::error_code error;
  const fs::path folder = fs::canonical(parent.empty() ? fs::path(".") : parent, error);
  return error ? name : folder / name.filename();
}

void Remove(const fs::path& name) {
  if (!name.empty()) ::unlink(name.c_str());
}

}  // namespace

OutputFiles::~OutputFiles() {
  TakeBack();
  for (const File& file : files_) Remove(file.temporary);
}

void OutputFiles::AddInput(const fs::path& name) {
  struct stat status = {};
  if (::stat(name.c_str(), &status) == 0) inputs_.push_back({status.st_dev, status.st_ino});
}

fs::path OutputFiles::Add(const fs::path& name) {
  File file;
  file.name = name;
  struct stat status = {};
  if (::stat(name.c_str(), &status) == 0) {
    for (const Identity& input : inputs_) {
      if (input.device == status.st_dev && input.inode == status.st_ino) {
        throw Failure(name.string() + " is an input as well; write to another file");
      }
    }
    if (S_ISDIR(status.st_mode)) throw Failure(name.string() + " is a folder");
    if (!S_ISREG(status.st_mode)) throw Failure(name.string() + " is not a regular file");
    if (!overwrite_) throw Failure(name.string() + " exists; --overwrite replaces it");
    if (::access(name.c_str(), W_OK) != 0) throw SystemFailure(name, "cannot be replaced", errno);
    file.replaces = true;
  }
  std::error_code error;
  file.target = file.replaces ? fs::canonical(name, error) : BesideOthers(name);
  if (error) throw SystemFailure(name, "cannot be replaced", error.value());
  if (file.target.filename().empty()) throw Failure(name.string() + " does not name a file");
  MakeTemporary(file);
  if (file.replaces) ::chmod(file.temporary.c_str(), status.st_mode & kPermissions);
  files_.push_back(file);
  return file.temporary;
}

void OutputFiles::MakeTemporary(File& file) {
  const std::string extension = LowerExtension(file.target);
  if (mark_.empty()) mark_ = NewMark();
  std::string stem = mark_;
  while (true) {
    file.temporary = file.target;
    file.temporary.replace_filename(stem + extension);
    const int descriptor =
        ::open(file.temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kNewFileMode);
    if (descriptor >= 0) {
      ::close(descriptor);
      return;
    }
    if (errno == ENOENT) {
      throw Failure(file.name.string() + " cannot be written: its folder does not exist");
    }
    if (errno != EEXIST) throw SystemFailure(file.name, "cannot be written", errno);
    stem = NewMark();
  }
}

void OutputFiles::Commit() {
  for (File& file : files_) KeepBackup(file);
  for (File& file : files_) GiveName(file);
  for (const File& file : files_) Remove(file.backup);
  files_.clear();
}

// A single file is replaced in one step; only of several ones may a later one fail.
void OutputFiles::KeepBackup(File& file) {
  if (!file.replaces || files_.size() == 1) return;
  fs::path backup = file.temporary;
  backup += ".old";
  // On a file system without second names the file is replaced without a backup.
  if (::link(file.target.c_str(), backup.c_str()) == 0) file.backup = backup;
}

void OutputFiles::GiveName(File& file) {
  const char* const from = file.temporary.c_str();
  const char* const to = file.target.c_str();
  int failed = 0;
  if (file.replaces) {
    failed = ::rename(from, to);
  } else {
    // What has come to stand there meanwhile is not replaced. Some file systems cannot look and rename in
    // one.
    failed = ::renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE);
    if (failed != 0 && (errno == EINVAL || errno == ENOSYS)) failed = ::rename(from, to);
  }
  if (failed != 0) {
    const int error = errno;
    TakeBack();
    throw SystemFailure(file.name, "cannot be written", error);
  }
  file.committed = true;
}

// Undoes a Commit that did not come to its end.
void OutputFiles::TakeBack() {
  for (File& file : files_) {
    if (file.committed && !file.backup.empty()) {
      ::rename(file.backup.c_str(), file.target.c_str());
    } else if (file.committed && !file.replaces) {
      Remove(file.target);
    } else {
      Remove(file.backup);
    }
    file.backup.clear();
    file.committed = false;
  }
}

void ThrowIfNotWritten(const std::ios& stream, const fs::path& name) {
  if (stream) return;
  // Streams keep no reason. The last error is the reason, unless it is one that no write gives.
  const int error = errno;
  const bool is_reason = error == ENOSPC || error == EDQUOT || error == EFBIG || error == EIO;
  throw SystemFailure(name, "cannot be written", is_reason ? error : 0);
}

}  // namespace App
