#pragma once

#include "app/io/failure.h"

#include <cstdint>
#include <filesystem>
#include <ios>
#include <string>
#include <vector>

namespace App {

/// Files that appear together and whole, or not at all. Each is written under a temporary name in the folder
/// where it will stand; `Commit` gives all of them their names. Without it, so after an error, an exception
/// or an interrupt, the temporary files are removed and what stood there before is as it was.
class OutputFiles {
 public:
  /// With `overwrite`, existing files are replaced; otherwise they are refused.
  explicit OutputFiles(bool overwrite) : overwrite_(overwrite) {}
  OutputFiles(const OutputFiles&) = delete;
  OutputFiles& operator=(const OutputFiles&) = delete;
  ~OutputFiles();

  /// Names a file that is read, so that no output may replace it, under whatever name.
  void AddInput(const std::filesystem::path& name);

  /// Makes an empty file that will stand under `name`, and gives its temporary name, which has the extension
  /// of `name` in small letters. The temporary names of one object differ in the extension alone as long as
  /// the extensions do. Throws `Failure`.
  std::filesystem::path Add(const std::filesystem::path& name);

  /// Gives the files, which must be closed, their names. Throws `Failure`, and then all is as before.
  void Commit();

 private:
  struct File {
    std::filesystem::path name;    // as the user gave it
    std::filesystem::path target;  // behind symbolic links
    std::filesystem::path temporary;
    std::filesystem::path backup;  // a second name of the file that is replaced, during Commit
    bool replaces = false;         // something stood there when the file was added
    bool committed = false;
  };
  struct Identity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
  };

  void MakeTemporary(File& file);
  void KeepBackup(File& file);
  void GiveName(File& file);
  void TakeBack();

  bool overwrite_;
  std::vector<File> files_;
  std::vector<Identity> inputs_;
  std::string mark_;  // what is in the temporary names
};

/// Throws `Failure` with the reason when the stream, which writes the file `name`, has failed; for after its
/// last flush or its close.
void ThrowIfNotWritten(const std::ios& stream, const std::filesystem::path& name);

}  // namespace App
