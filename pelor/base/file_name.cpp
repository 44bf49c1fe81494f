#include <pelor/base/file_name.h>

#include <filesystem>

namespace Tobri {

namespace {

std::filesystem::path Path(const String& name) {
  return std::filesystem::path(std::string_view(name));
}

}  // namespace

String FileSys::DefExt(const String& name, const String& extension) {
  return Path(name).has_extension() ? name : RepExt(name, extension);
}

String FileSys::RepExt(const String& name, const String& extension) {
  return Path(name).replace_extension(std::string_view(extension)).string();
}

}  // namespace Tobri
