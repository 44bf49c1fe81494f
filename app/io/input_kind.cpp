#include "app/io/input_kind.h"

#include "app/io/failure.h"
#include "app/io/system_failure.h"
#include <pelor/dgn.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace App {

namespace {

namespace fs = std::filesystem;
namespace DGN = Pelor::DGN;

// A file opened for looking into it.
class Probe {
 public:
  explicit Probe(const fs::path& name) : name_(name) {
    struct stat status = {};
    if (::stat(name.c_str(), &status) != 0) {
      if (errno == ENOENT) throw Failure(name.string() + " does not exist");
      throw SystemFailure(name, "cannot be read", errno);
    }
    if (S_ISDIR(status.st_mode)) throw Failure(name.string() + " is a folder");
    if (!S_ISREG(status.st_mode)) throw Failure(name.string() + " is not a regular file");
    descriptor_ = ::open(name.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor_ < 0) throw SystemFailure(name, "cannot be read", errno);
    size_ = status.st_size;
  }
  Probe(const Probe&) = delete;
  Probe& operator=(const Probe&) = delete;
  ~Probe() { ::close(descriptor_); }

  [[nodiscard]] std::int64_t Size() const noexcept { return size_; }

  /// The bytes at an offset, as many as there are.
  [[nodiscard]] std::string_view At(std::int64_t offset, std::span<char> buffer) const {
    const ssize_t count = ::pread(descriptor_, buffer.data(), buffer.size(), offset);
    if (count < 0) throw SystemFailure(name_, "cannot be read", errno);
    return {buffer.data(), static_cast<std::size_t>(count)};
  }

 private:
  const fs::path& name_;
  int descriptor_ = -1;
  std::int64_t size_ = 0;
};

constexpr std::string_view kCompoundDocument = "\xD0\xCF\x11\xE0";
constexpr std::string_view kZip = "PK\x03\x04";
constexpr std::string_view kEmptyZip = "PK\x05\x06";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// The first element of a design made in two and in three dimensions: the header, on level 8, of 766 words to
// follow. In three dimensions the bits 6 and 7 are set as well.
constexpr std::string_view kHeader2D("\x08\x09\xFE\x02", 4);
constexpr std::string_view kHeader3D("\xC8\x09\xFE\x02", 4);
constexpr std::int64_t kDimensionByte = 1214;
constexpr unsigned char kDimensionBit3D = 0x40;

bool IsKnown(const DGN::EHeader& element) {
  if (element.IsEndOfDesign()) return true;
  switch (element.Type()) {
    case DGN::DimensionType:
    case DGN::SharedCellDefinitionType:
    case DGN::SharedCellType:
    case DGN::MultilineType:
    case DGN::TextArrayType:
    case DGN::TextStackType:
    case DGN::RasterHeaderType:
      return true;
    default:
      return DGN::TypeClass(element.Type()) != DGN::UnknownTypeClass;
  }
}

std::optional<DGN::EHeader> ElementAt(const Probe& probe, std::int64_t offset) {
  std::array<char, DGN::EHeader::kBytes> buffer = {};
  const std::string_view bytes = probe.At(offset, buffer);
  if (bytes.size() < 2) return std::nullopt;
  DGN::EHeader element;
  element.Decode(bytes);
  return element;
}

// Whether elements begin at the file's begin: the first one is of a known type, or the second one is, so that
// one damaged byte does not make a design unreadable.
bool LooksLikeElements(const Probe& probe) {
  const std::optional<DGN::EHeader> first = ElementAt(probe, 0);
  if (!first) return false;
  if (IsKnown(*first)) return true;
  const std::optional<DGN::EHeader> second =
      ElementAt(probe, static_cast<std::int64_t>(DGN::EHeader::kBytes) + 2 * first->words_to_follow);
  return second && IsKnown(*second);
}

InputKind Dimension(const Probe& probe, std::string_view begin) {
  const std::optional<DGN::EHeader> first = ElementAt(probe, 0);
  if (!first || first->IsEndOfDesign() || first->Type() != DGN::DesignHeaderType) return InputKind::kDesign2D;
  std::array<char, 1> flags = {};
  if (!probe.At(kDimensionByte, flags).empty()) {
    const bool is_3d = (static_cast<unsigned char>(flags[0]) & kDimensionBit3D) != 0;
    return is_3d ? InputKind::kDesign3D : InputKind::kDesign2D;
  }
  return begin.starts_with(kHeader3D) ? InputKind::kDesign3D : InputKind::kDesign2D;
}

char ToLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool BeginsWithVersion(std::string_view text) {
  constexpr std::string_view kVersion = "version";
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n\v\f"), text.size()));
  if (text.size() < kVersion.size()) return false;
  for (std::size_t i = 0; i < kVersion.size(); ++i) {
    if (ToLower(text[i]) != kVersion[i]) return false;
  }
  return true;
}

Input Pair(const fs::path& mif) {
  return {InputKind::kPair, mif, FindCompanion(mif, ".mid")};
}

}  // namespace

std::string LowerExtension(const fs::path& name) {
  std::string extension = name.extension().string();
  for (char& c : extension) c = ToLower(c);
  return extension;
}

fs::path FindCompanion(const fs::path& name, std::string_view extension) {
  std::error_code error;
  fs::path lower = name;
  lower.replace_extension(extension);
  if (fs::exists(lower, error)) return lower;
  const fs::path folder = name.has_parent_path() ? name.parent_path() : fs::path(".");
  const fs::path stem = name.stem();
  // In the order of the names, so that the same folder always gives the same answer.
  fs::path found;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
    const fs::path candidate = entry.path().filename();
    if (candidate.stem() != stem || LowerExtension(candidate) != extension) continue;
    if (found.empty() || candidate < found) found = candidate;
  }
  return found.empty() ? found : fs::path(name).replace_filename(found);
}

Input RecogniseInput(const fs::path& name) {
  const Probe probe(name);
  // A pair whose objects have no rows has an empty MID file.
  const bool is_rows = LowerExtension(name) == ".mid" && !FindCompanion(name, ".mif").empty();
  if (probe.Size() == 0 && !is_rows) throw Failure(name.string() + " is empty");
  std::array<char, 256> buffer = {};
  const std::string_view begin = probe.At(0, buffer);
  if (begin.starts_with(kCompoundDocument)) {
    throw Failure(name.string() + " is a version 8 design file; save it as version 7");
  }
  if (begin.starts_with(kZip) || begin.starts_with(kEmptyZip)) {
    throw Failure(name.string() + " is a ZIP archive; unpack it first");
  }
  if (begin.starts_with(kHeader2D) || begin.starts_with(kHeader3D))
    return {Dimension(probe, begin), name, {}};
  if (BeginsWithVersion(begin)) return Pair(name);

  const std::string extension = LowerExtension(name);
  if (extension == ".mif") return Pair(name);
  if (extension == ".mid") {
    const fs::path mif = FindCompanion(name, ".mif");
    if (mif.empty()) throw Failure(name.string() + " has no MIF file beside it");
    const Input input = RecogniseInput(mif);
    return input.IsDesign() ? input : Input{InputKind::kPair, mif, name};
  }
  if (extension == ".dgn") {
    if (LooksLikeElements(probe)) return {Dimension(probe, begin), name, {}};
    throw Failure(name.string() + " is not a design file: no elements begin in it");
  }
  throw Failure(name.string() + " is neither a design file nor an interchange pair");
}

}  // namespace App
