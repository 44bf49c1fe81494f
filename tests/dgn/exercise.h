#pragma once

#include <pelor/base/error.h>
#include <pelor/dgn/file.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <sstream>
#include <string>
#include <vector>

namespace dgn_test {

/// Asks a design file for everything that it offers for its current element, and clears the stream's state.
/// Writes nothing. The listings and texts go into the result, so that two runs can be compared.
inline std::string ReadEverything(Pelor::DGN::File& file) {
  const Tobri::Error::ScopedHandler ignore([](const Tobri::Error::Msg&) {});
  std::ostringstream listing;
  constexpr std::size_t kLargestBody = std::size_t{1} << 17U;
  const auto body = std::make_unique_for_overwrite<char[]>(kLargestBody);
  const auto again = [&file] {
    file.clear();
    return &file;
  };

  listing << file.CurrentPosition() << ' ' << file.NextPosition() << ' '
          << file.NextPositionSkippingComponents() << '\n';
  file.GetEHeader().Dump(listing);
  if (file.HasGraphicHeader()) file.GetGEHeader().Dump(listing);
  if (file.HasDisplayableHeader()) file.GetDEHeader().Dump(listing);

  again()->ReadEBody(body.get());
  again()->ReadGEBody(body.get());
  again()->ReadDEBody(body.get(), true);
  again()->ReadDEBody(body.get(), false);
  again()->DumpEBody(listing);
  again()->DumpGEBody(listing);
  again()->DumpDEBody(listing, true);
  again()->DumpDEBody(listing, false);

  again()->EBodyRPosition(0);
  listing << file.Readrad50(20) << '\n';
  again()->DEBodyRPosition(0);
  listing << file.ReadString(file.DEBodySize(true)).Length() << '\n';
  again()->GEBodyRPosition(0);
  std::array<std::int32_t, 40> longs{};
  listing << file.ReadLongs(
                 std::span(longs).first(std::min<std::size_t>(file.GEBodySize() / 4, longs.size())))
          << '\n';
  unsigned char byte = 0;
  unsigned short word = 0;
  long value = 0;
  double number = 0;
  again()->EBodyRPosition(7);
  file.Read(byte);
  file.Read(word);
  file.Read(value);
  file.Read(number);
  listing << +byte << ' ' << word << ' ' << value << ' ' << number << '\n';

  file.clear();
  int linkages = 0;
  while (file.HasAttributes()) {
    ++linkages;
    file.GetAHeader().Dump(listing);
    file.ReadABody(body.get());
    file.clear();
    file.DumpABody(listing);
    file.clear();
    if (!file.NextAttribute()) break;
  }
  listing << linkages << " linkages\n";
  file.clear();
  return listing.str();
}

/// Everything of every element from the current one on; stops after `limit` elements.
inline std::vector<std::string> WalkEverything(Pelor::DGN::File& file, bool skip_components,
                                               std::size_t limit = SIZE_MAX) {
  std::vector<std::string> elements;
  while (file && elements.size() < limit) {
    elements.push_back(ReadEverything(file));
    file.Next(skip_components);
  }
  return elements;
}

}  // namespace dgn_test
