#include <pelor/base/hash.h>
#include <pelor/mif/keyword.h>
#include <pelor/mif/lexis.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace Pelor::MIF {

using Tobri::String;

namespace {

constexpr std::array<std::string_view, 46> kTexts = {
    "Version",  "Delimiter", "Unique",   "Index",      "CoordSys",  "Transform", "Columns", "Data",
    "Char",     "Integer",   "SmallInt", "Decimal",    "Float",     "Date",      "Logical", "Earth",
    "NonEarth", "Units",     "Bounds",   "Projection", "None",      "Point",     "Line",    "PLine",
    "Region",   "Arc",       "Text",     "Rect",       "RoundRect", "Ellipse",   "Symbol",  "Pen",
    "Brush",    "Font",      "Smooth",   "Center",     "Spacing",   "Justify",   "Angle",   "Label",
    "Simple",   "Arrow",     "Left",     "Right",      "CharSet",   "Multiple",
};

using Table = Tobri::AssocKeyH16<String, KeyWord>;

Table MakeTable() {
  Table table(Tobri::StrH16Rep::Get(), 45);
  for (std::size_t i = 0; i < kTexts.size(); ++i) {
    table.Set(Tobri::LocStr::UpperCase(kTexts[i]), static_cast<KeyWord>(i));
  }
  return table;
}

std::string_view TextOf(KeyWord keyword) {
  if (keyword < 0 || static_cast<std::size_t>(keyword) >= kTexts.size()) return {};
  return kTexts[static_cast<std::size_t>(keyword)];
}

const Tobri::IRefC<Tobri::ChrS<char>>& Letters() {
  static const auto letters = IDLetters();
  return letters;
}

// Whether `window` begins with the keyword's text, in any case. Keywords hold ASCII letters alone.
bool BeginsWith(std::string_view window, std::string_view text) {
  constexpr unsigned kCaseBit = 0x20;
  const auto same = [](char a, char b) {
    return (static_cast<unsigned char>(a) | kCaseBit) == (static_cast<unsigned char>(b) | kCaseBit);
  };
  return window.size() >= text.size() && std::equal(text.begin(), text.end(), window.begin(), same);
}

}  // namespace

String KeyWordText(KeyWord keyword) {
  return TextOf(keyword);
}

KeyWord KeyWordID(const String& text) {
  static const Table table = MakeTable();
  const KeyWord* const keyword = table.Find(Tobri::LocStr::UpperCase(text));
  return keyword != nullptr ? *keyword : NoKeyWord;
}

void ReadKW::Read(Tobri::IxText& in) {
  pos = in.GetPos();
  Tobri::TxtRdr::SkipWS(in);
  text = Tobri::TxtRdr::GetIdentifier(in, Letters(), false);
  id = KeyWordID(text);
}

bool ReadSpecifier(Tobri::IxText& in, KeyWord keyword) {
  const std::string_view text = TextOf(keyword);
  if (text.empty()) {
    ReadKW word;
    word.Read(in);
    if (word.id == keyword) return true;
    in.SetPos(word.pos);
    return false;
  }
  // Compared in place: most calls find another word, and need not know which.
  const Tobri::IBText::Pos before = in.GetPos();
  Tobri::TxtRdr::SkipWS(in);
  const std::string_view window = in.Window(text.size() + 1);
  if (BeginsWith(window, text) &&
      (window.size() == text.size() || !Letters()->Contains(window[text.size()]))) {
    in.Consume(text.size());
    return true;
  }
  in.SetPos(before);
  return false;
}

}  // namespace Pelor::MIF
