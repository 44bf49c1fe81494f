#include <pelor/base/hash.h>
#include <pelor/mif/keyword.h>
#include <pelor/mif/lexis.h>

#include <array>

namespace Pelor::MIF {

using Tobri::String;

namespace {

constexpr std::array<const char*, 46> kTexts = {
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

}  // namespace

String KeyWordText(KeyWord keyword) {
  if (keyword < 0 || static_cast<std::size_t>(keyword) >= kTexts.size()) return {};
  return kTexts[static_cast<std::size_t>(keyword)];
}

KeyWord KeyWordID(const String& text) {
  static const Table table = MakeTable();
  const KeyWord* const keyword = table.Find(Tobri::LocStr::UpperCase(text));
  return keyword != nullptr ? *keyword : NoKeyWord;
}

void ReadKW::Read(Tobri::IxText& in) {
  static const auto letters = IDLetters();
  pos = in.GetPos();
  Tobri::TxtRdr::SkipWS(in);
  text = Tobri::TxtRdr::GetIdentifier(in, letters, false);
  id = KeyWordID(text);
}

bool ReadSpecifier(Tobri::IxText& in, KeyWord keyword) {
  ReadKW word;
  word.Read(in);
  if (word.id == keyword) return true;
  in.SetPos(word.pos);
  return false;
}

}  // namespace Pelor::MIF
