#include "app/design/element_cursor.h"

#include "app/io/failure.h"
#include "app/io/system_failure.h"

#include <algorithm>
#include <array>
#include <cerrno>

namespace App {

using namespace Pelor;

namespace {

constexpr std::size_t kMostBytes = DGN::EHeader::kBytes + 2 * std::size_t{0xFFFF};

}  // namespace

ElementCursor::ElementCursor(const Input& input)
    : library_name_(input), name_(input.path), buffer_(kMostBytes) {
  errno = 0;
  file_.Open(library_name_.Get().string(), std::ios::in);
  if (!file_.IsOpen()) throw SystemFailure(name_, "cannot be opened", errno);
}

bool ElementCursor::Peek() {
  if (has_element_) return true;
  if (end_ != End::kNone) return false;
  if (is_at_begin_) {
    file_.clear();
    file_.Restart();
    is_at_begin_ = false;
  } else if (!element_.IsWhole()) {
    Stop(End::kCutOff);
    return false;
  } else {
    file_.Next(false);
  }
  ++place_.number;
  Load();
  return has_element_;
}

void ElementCursor::Restart() noexcept {
  is_at_begin_ = true;
  has_element_ = false;
  end_ = End::kNone;
  place_ = Place();
}

void ElementCursor::Return(const Place& place) {
  file_.clear();
  file_.Position(static_cast<long>(place.position));
  place_ = place;
  end_ = End::kNone;
  Load();
}

void ElementCursor::Stop(End end) noexcept {
  has_element_ = false;
  end_ = end;
}

// Takes the element that the file has gone to.
void ElementCursor::Load() {
  has_element_ = false;
  place_.position = file_.CurrentPosition();
  if (file_.AtEnd()) return Stop(End::kEndWord);
  if (!file_.good()) {
    if (file_.bad()) throw SystemFailure(name_, "cannot be read", errno);
    file_.clear();  // what is missing shows below
  }
  const std::int64_t rest = file_.FileLength() - place_.position;
  if (rest < 2) return Stop(End::kNoEndWord);

  const DGN::EHeader& header = file_.GetEHeader();
  DGN::StoreWord(buffer_.data(), header.type_level);
  std::size_t size = 2;
  if (rest >= static_cast<std::int64_t>(DGN::EHeader::kBytes)) {
    DGN::StoreWord(buffer_.data() + 2, header.words_to_follow);
    const bool is_filler = header.type_level == 0 && header.words_to_follow == 0;
    if (is_filler && IsFillerToTheEnd(place_.position)) return Stop(End::kNoEndWord);
    const std::int64_t body =
        std::min<std::int64_t>(file_.EBodySize(), rest - static_cast<std::int64_t>(DGN::EHeader::kBytes));
    file_.EBodyRPosition(0);
    file_.read(buffer_.data() + DGN::EHeader::kBytes, body);
    size = DGN::EHeader::kBytes + static_cast<std::size_t>(file_.gcount());
    if (!file_.good()) file_.clear();
  }
  element_ = ElementView(std::span(buffer_).first(size), is_3d_);
  has_element_ = true;
}

// Blocks that were never written on are zero. So is an element of type 0 without a word, of which there is
// none: zeros up to the end are what an end-of-design word should stand in front of.
bool ElementCursor::IsFillerToTheEnd(std::int64_t position) {
  if (position < filler_checked_to_) return false;
  file_.EBodyRPosition(0);
  std::array<char, 4096> chunk = {};
  filler_checked_to_ = position + static_cast<std::int64_t>(DGN::EHeader::kBytes);
  for (;;) {
    file_.read(chunk.data(), chunk.size());
    const auto got = static_cast<std::size_t>(file_.gcount());
    const char* const begin = chunk.data();
    const char* const end = begin + got;
    const char* const other = std::find_if(begin, end, [](char c) { return c != 0; });
    filler_checked_to_ += other - begin;
    if (other != end || got < chunk.size()) {
      file_.clear();
      return other == end;
    }
  }
}

}  // namespace App
