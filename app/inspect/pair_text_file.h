#pragma once

#include "app/io/system_failure.h"
#include <pelor/mif.h>

#include <cerrno>
#include <filesystem>
#include <fstream>

namespace App {

/// A file of a pair, open under the conventions for its text.
class PairTextFile {
 public:
  /// Throws `Failure` when the file cannot be opened.
  PairTextFile(const std::filesystem::path& name, const Tobri::TxtSeparators& separators)
      : stream_(name, std::ios::binary) {
    if (!stream_) throw SystemFailure(name, "cannot be read", errno);
    in_.Set(stream_, name.string());
    in_.Def(Pelor::MIF::Quotes());
    in_.Def(Pelor::MIF::NoComments(), false);
    in_.Def(separators);
  }

  Tobri::IxText& operator*() { return in_; }

 private:
  std::ifstream stream_;
  Tobri::IxText in_;
};

}  // namespace App
