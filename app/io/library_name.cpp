#include "app/io/library_name.h"

#include "app/io/system_failure.h"

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <string>
#include <system_error>

namespace App {

namespace fs = std::filesystem;

namespace {

bool IsFit(const Input& input) {
  if (input.IsDesign()) return input.path.has_extension();
  return input.path.extension() == ".mif" && input.mid == fs::path(input.path).replace_extension(".mid");
}

}  // namespace

LibraryName::LibraryName(const Input& input) : name_(input.path) {
  if (IsFit(input)) return;
  MakeFolder();
  const fs::path mid = folder_ / "input.mid";
  std::error_code error;
  name_ = folder_ / (input.IsDesign() ? "input.dgn" : "input.mif");
  fs::create_symlink(fs::absolute(input.path, error), name_, error);
  if (!error && !input.IsDesign()) {
    if (input.mid.empty()) {
      if (!std::ofstream(mid)) error = std::error_code(errno, std::generic_category());
    } else {
      fs::create_symlink(fs::absolute(input.mid, error), mid, error);
    }
  }
  if (error) {
    fs::remove_all(folder_);
    throw SystemFailure(input.path, "cannot be opened by way of a temporary folder", error.value());
  }
}

LibraryName::~LibraryName() {
  std::error_code ignored;
  if (!folder_.empty()) fs::remove_all(folder_, ignored);
}

void LibraryName::MakeFolder() {
  std::error_code error;
  fs::path parent = fs::temp_directory_path(error);
  if (error) parent = "/tmp";
  std::string name = (parent / "pelor-XXXXXX").string();
  if (::mkdtemp(name.data()) == nullptr) {
    throw SystemFailure(parent, "cannot take a temporary folder", errno);
  }
  folder_ = name;
}

}  // namespace App
