#include "app/inspect/scanner_place.h"

#include <algorithm>
#include <string_view>

namespace App {

TextPlace PlaceOf(const Tobri::IxText& in) {
  const Tobri::IBText::LineState state = in.Line();
  return {static_cast<std::int64_t>(state.line),
          static_cast<std::int64_t>(in.Offset() - state.line_start) + 1};
}

TextPlace PlaceOf(Tobri::IxText& in, const Tobri::IBText::Pos& position) {
  const Tobri::IBText::Pos here = in.GetPos();
  in.SetPos(position);
  const TextPlace place = PlaceOf(in);
  in.SetPos(here);
  return place;
}

TextPlace PlaceOfWord(Tobri::IxText& in, const Tobri::IBText::Pos& position) {
  const Tobri::IBText::Pos here = in.GetPos();
  in.SetPos(position);
  Tobri::TxtRdr::SkipWS(in);
  const TextPlace place = PlaceOf(in);
  in.SetPos(here);
  return place;
}

void SkipLine(Tobri::IxText& in) {
  while (!in.AtEnd() && !in.SkipLineEnd()) {
    const std::string_view window = in.Window(1);
    in.Consume(std::max<std::size_t>(1, std::min(window.find_first_of("\r\n"), window.size())));
  }
}

}  // namespace App
