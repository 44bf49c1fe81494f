#include <pelor/dgn/dump.h>
#include <pelor/dgn/header.h>
#include <pelor/dgn/types.h>

#include <cstdint>
#include <iomanip>
#include <istream>
#include <ostream>
#include <string>

namespace Pelor::DGN {

namespace {

// Numbers go out as texts, so that neither the stream's base nor its locale has a say.
void DumpInterval(std::ostream& out, const char* label, std::int32_t low, std::int32_t high) {
  constexpr int kWidth = 11;
  out << label << std::setw(kWidth) << std::to_string(low) << "   " << std::setw(kWidth)
      << std::to_string(high) << std::endl;
}

void AppendHex(std::string& text, std::uint64_t value, int digits) {
  for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4) {
    text += "0123456789abcdef"[value >> static_cast<unsigned>(shift) & 0xFU];
  }
}

}  // namespace

void EHeader::Dump(std::ostream& out) const {
  if (IsEndOfDesign()) {
    out << "** End of File **" << std::endl;
    return;
  }
  if ((type_level & kReservedBit) != 0) out << "** Reserved Bit is not 0!!! **" << std::endl;
  // Only a deleted element ends its line here: this is intended.
  if (IsDeleted()) {
    out << "** Deleted Element  " << std::endl;
  } else {
    out << "** Active Element   ";
  }
  out << " **Element Type: " << Name(Type()) << "** "
      << (IsComponent() ? "  -Component of Complex Element" : "  -Not Component of Complex Element")
      << std::endl;
  out << "   Level: " << std::to_string(Level()) << "   [Words to follow: " << std::to_string(words_to_follow)
      << " ]" << std::endl;
}

void GEHeader::Dump(std::ostream& out) const {
  EHeader::Dump(out);
  out.fill(' ');
  out << "** Range:" << std::endl;
  DumpInterval(out, "     X: Low: ", range.xlow, range.xhigh);
  DumpInterval(out, "     Y: Low: ", range.ylow, range.yhigh);
  DumpInterval(out, "     Z: Low: ", range.zlow, range.zhigh);
}

void DEHeader::Dump(std::ostream& out) const {
  GEHeader::Dump(out);
  out << "** Graphic Group Number: " << std::to_string(graphic_group)
      << "   <Index to Attributes: " << std::to_string(attribute_index) << " >" << std::endl;
  out << "   Class: " << Name(Class()) << std::endl;
  out << (IsLocked() ? "<Locked>" : "<Not Locked>") << (IsNew() ? " <New>" : " <Old>")
      << (HasAttributes() ? " <with Attributes>" : " <No Attributes>")
      << (IsScreenRelative() ? " <Screen Relative Orientation>" : " <DataBase Relative Orientation>")
      << std::endl;
  // A non-planar element has no word of its own: this is intended.
  out << (IsPlanar() ? " <Planar>" : "") << (IsSnappable() ? " <Snappable>" : " <NonSnappable>")
      << (IsHole() ? " <Hole>" : " <Solid>") << std::endl;
  out << "** Symbology:  [color=" << std::to_string(Color()) << "]   [style=" << Name(Style())
      << "]   [weight=" << std::to_string(Weight()) << "]" << std::endl;
}

void AHeader::Dump(std::ostream& out) const {
  out << "** Attribute Class: " << std::to_string(Class()) << std::endl;
  out << (IsUser() ? "  <User>" : "") << (IsModified() ? "  <Modified>" : "")
      << (IsRemote() ? "  <Remote>" : "") << (IsInfo() ? " <Info>" : "") << std::endl;
}

void HexDump(std::ostream& out, std::istream& in, unsigned count) {
  constexpr unsigned kRow = 16;
  out << "OFFSET | 00 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 0F" << std::endl;
  out << std::string(63, '-') << std::endl;
  out << std::setfill('0');
  std::string row;
  for (std::uint64_t offset = 0; count != 0; offset += kRow) {
    row.assign(1, ' ');
    AppendHex(row, offset, 8);
    row += " :  ";
    for (unsigned i = 0; i < kRow && count != 0; ++i) {
      if (i == kRow / 2) row += "  ";
      char byte = 0;
      if (in.get(byte)) {
        row += ' ';
        AppendHex(row, static_cast<unsigned char>(byte), 2);
        --count;
      } else {
        row += " EOF!\n";
        count = 0;
      }
    }
    out << row << std::endl;
  }
  out << std::dec;
}

}  // namespace Pelor::DGN
