#include "app/design/linkage.h"

#include <pelor/dgn.h>

#include <algorithm>
#include <iterator>

namespace App {

using Pelor::DGN::AHeader;

namespace {

constexpr std::size_t kDatabase4Words = 4;
constexpr std::size_t kDatabase8Words = 8;
constexpr std::uint16_t kFillId = 0x0041;
constexpr std::size_t kFillColorByte = 8;
// The user linkages that name a row of a database, one identifier per database system.
constexpr std::uint16_t kDatabaseIds[] = {0x1971, 0x3848, 0x4F58, 0x5E62, 0x6091, 0x71FB};

}  // namespace

std::uint16_t LinkageWalker::Word(std::size_t word) const noexcept {
  return Pelor::DGN::LoadWord(bytes_.data() + 2 * word);
}

// Zero words fill attribute data up to whole groups of four words; but a four-word database linkage begins
// with a zero word, too.
bool LinkageWalker::IsFiller() const noexcept {
  if (Word(at_) != 0) return false;
  if (WordsLeft() < kDatabase4Words) return true;
  const std::uint16_t next = Word(at_ + 1);
  if (next == 0) return true;
  // Off the grid of four words, what looks like a user linkage that fits is one, not an entity number.
  const AHeader header = [&] {
    AHeader result;
    result.word = next;
    return result;
  }();
  return at_ % kDatabase4Words != 0 && header.IsUser() && header.Length() + 2 <= WordsLeft();
}

bool LinkageWalker::Next(Linkage& linkage) noexcept {
  while (WordsLeft() != 0 && IsFiller()) ++at_;
  if (WordsLeft() == 0) return false;

  AHeader header;
  header.word = Word(at_);
  const std::size_t told = header.IsUser() ? header.Length() + std::size_t{1} : kDatabase4Words;
  const std::size_t words = std::min(told, WordsLeft());
  linkage = Linkage();
  linkage.offset = 2 * at_;
  linkage.bytes = bytes_.subspan(2 * at_, 2 * words);
  if (!header.IsUser()) {
    linkage.kind = Linkage::Kind::kDatabase4;
    if (words == kDatabase4Words) {
      linkage.database.entity = Word(at_ + 1);
      linkage.database.key = Word(at_ + 2) | (Word(at_ + 3) & 0xFFU) << 16U;
    }
  } else if (words > 1) {
    linkage.id = Word(at_ + 1);
    const bool is_database =
        std::find(std::begin(kDatabaseIds), std::end(kDatabaseIds), linkage.id) != std::end(kDatabaseIds);
    if (words == kDatabase8Words && is_database) {
      linkage.kind = Linkage::Kind::kDatabase8;
      linkage.database.entity = Word(at_ + 3);
      linkage.database.key = Word(at_ + 4) | static_cast<std::uint32_t>(Word(at_ + 5)) << 16U;
    } else if (linkage.id == kFillId && linkage.bytes.size() > kFillColorByte) {
      linkage.kind = Linkage::Kind::kFill;
      linkage.fill_color = static_cast<std::uint8_t>(linkage.bytes[kFillColorByte]);
    }
  }
  at_ += words;
  return true;
}

LinkageFacts ReadLinkages(std::span<const char> attributes) noexcept {
  LinkageFacts facts;
  LinkageWalker walker(attributes);
  Linkage linkage;
  while (walker.Next(linkage)) {
    switch (linkage.kind) {
      case Linkage::Kind::kDatabase4:
      case Linkage::Kind::kDatabase8:
        if (!facts.database && linkage.database != DatabaseKey()) facts.database = linkage.database;
        break;
      case Linkage::Kind::kFill:
        if (!facts.fill_color) facts.fill_color = linkage.fill_color;
        break;
      case Linkage::Kind::kUser:
        break;
    }
  }
  return facts;
}

}  // namespace App
