#include "app/design/design_header.h"

#include "app/design/d_float.h"

#include <algorithm>
#include <string_view>

namespace App {

using namespace Pelor;

namespace {

constexpr std::size_t kSubsPerMaster = 1112;
constexpr std::size_t kUorsPerSub = 1116;
constexpr std::size_t kMasterName = 1120;
constexpr std::size_t kSubName = 1122;
constexpr std::size_t kDimension = 1214;
constexpr std::uint16_t k3DBit = 0x0040;
constexpr std::size_t kOrigin = 1240;
// A header of a 3D design has both of its element's flag bits set: C8 09 in place of 08 09.
constexpr std::uint16_t kMagicFlags = DGN::EHeader::kComponentBit | DGN::EHeader::kReservedBit;

std::string UnitName(const char* bytes) {
  std::string_view name(bytes, 2);
  const auto is_filler = [](char c) { return c == ' ' || c == '\0'; };
  while (!name.empty() && is_filler(name.back())) name.remove_suffix(1);
  while (!name.empty() && is_filler(name.front())) name.remove_prefix(1);
  return std::string(name);
}

}  // namespace

DesignHeader DesignHeader::Decode(std::span<const char> element) {
  DesignHeader header;
  const auto reaches = [&](std::size_t offset, std::size_t count) {
    return offset + count <= element.size();
  };
  DGN::EHeader words;
  words.Decode(element);
  if (words.Type() != DGN::DesignHeaderType || words.IsEndOfDesign()) return header;
  header.found = true;
  header.is_3d = (words.type_level & kMagicFlags) == kMagicFlags;
  if (reaches(kSubsPerMaster, 4)) header.subs_per_master = DGN::LoadLong(&element[kSubsPerMaster]);
  if (reaches(kUorsPerSub, 4)) header.uors_per_sub = DGN::LoadLong(&element[kUorsPerSub]);
  if (reaches(kMasterName, 2)) header.master_name = UnitName(&element[kMasterName]);
  if (reaches(kSubName, 2)) header.sub_name = UnitName(&element[kSubName]);
  if (reaches(kDimension, 2) && (DGN::LoadWord(&element[kDimension]) & k3DBit) != 0) header.is_3d = true;
  for (std::size_t i = 0; i < header.origin.size(); ++i) {
    if (reaches(kOrigin + 8 * i, 8)) header.origin[i] = DecodeDFloat(&element[kOrigin + 8 * i]);
  }
  return header;
}

DesignHeader DesignHeader::Find(DGN::File& file) {
  DesignHeader header;
  std::array<char, kBytes> bytes{};
  for (file.Restart(); file; file.Next(false)) {
    // It comes first. Who has not met it before the first graphics will not.
    if (DGN::TypeClass(file.GetEHeader().Type()) == DGN::Displayable) break;
    if (file.GetEHeader().Type() != DGN::DesignHeaderType) continue;
    DGN::StoreWord(bytes.data(), file.GetEHeader().type_level);
    DGN::StoreWord(bytes.data() + 2, file.GetEHeader().words_to_follow);
    const std::size_t wanted = std::min<std::size_t>(file.EBodySize(), kBytes - DGN::EHeader::kBytes);
    file.EBodyRPosition(0);
    file.read(bytes.data() + DGN::EHeader::kBytes, static_cast<std::streamsize>(wanted));
    const auto got = static_cast<std::size_t>(file.gcount());
    header = Decode(std::span(bytes).first(DGN::EHeader::kBytes + got));
    break;
  }
  file.clear();
  file.Restart();
  return header;
}

double DesignHeader::UorsPerSub() const noexcept {
  return HasUnits() ? uors_per_sub : 1.0;
}

double DesignHeader::UorsPerMaster() const noexcept {
  return HasUnits() ? static_cast<double>(subs_per_master) * uors_per_sub : 1.0;
}

double DesignHeader::UorsPer(DesignUnits units) const noexcept {
  switch (units) {
    case DesignUnits::kMaster:
      return UorsPerMaster();
    case DesignUnits::kSub:
      return UorsPerSub();
    case DesignUnits::kUor:
      break;
  }
  return 1.0;
}

DesignScale::DesignScale(const DesignHeader& header, DesignUnits units) noexcept
    : uors_per_unit(header.UorsPer(units)) {
  if (units == DesignUnits::kUor) return;
  origin_x = header.origin[0];
  origin_y = header.origin[1];
  origin_z = header.origin[2];
}

}  // namespace App
