#include "app/design/element_reader.h"

#include "app/io/interrupt.h"
#include "app/io/system_failure.h"

#include <algorithm>
#include <cerrno>
#include <span>

namespace App {

namespace DGN = Pelor::DGN;

ElementReader::ElementReader(const Input& input) : name_(input) {
  file_.Open(name_.Get().string(), std::ios::in);
  if (!file_.IsOpen()) throw SystemFailure(input.path, "cannot be read", errno);
  header_ = DesignHeader::Find(file_);
}

bool ElementReader::Next() {
  ThrowIfInterrupted();
  if (number_ != 0) {
    file_.clear();
    if (next_offset_ >= FileLength()) {
      ending_ = next_offset_ > FileLength() ? Ending::kCutOff : Ending::kNoEndWord;
      return false;
    }
    file_.Position(static_cast<long>(next_offset_));
  }
  if (file_.AtEnd()) {
    ending_ = Ending::kEndWord;
    return false;
  }
  ++number_;
  offset_ = next_offset_;
  if (file_) {
    next_offset_ = file_.NextPosition();
    ReadBytes(static_cast<std::size_t>(next_offset_ - offset_));
  } else {
    // The file ends inside the element's headers. What there is of it tells how long it should be.
    ReadBytes(DGN::DEHeader::kBytes);
    DGN::EHeader header;
    header.Decode(bytes_);
    next_offset_ =
        std::max(offset_ + static_cast<std::int64_t>(DGN::EHeader::kBytes) + 2 * header.words_to_follow,
                 FileLength() + 1);
  }
  return true;
}

void ElementReader::ReadBytes(std::size_t size) {
  const auto left = static_cast<std::size_t>(std::max<std::int64_t>(FileLength() - offset_, 0));
  bytes_.resize(std::min(size, left));
  file_.clear();
  file_.seekg(offset_);
  file_.read(bytes_.data(), static_cast<std::streamsize>(bytes_.size()));
  bytes_.resize(static_cast<std::size_t>(file_.gcount()));
  view_ = ElementView(bytes_, header_.is_3d);
}

}  // namespace App
