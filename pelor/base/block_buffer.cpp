#include <pelor/base/block_buffer.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <limits>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace Tobri {

namespace {

static_assert(sizeof(off_t) == sizeof(std::int64_t), "positions are 64 bits wide");

// Opens what has positions; -1 for everything else.
int OpenFile(const String& name, int flags) noexcept {
  if (std::string_view(name).find('\0') != std::string_view::npos) return -1;
  // A pipe is refused below; without O_NONBLOCK, opening one would wait for its other end first.
  const int file = ::open(name.c_str(), flags | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, 0666);
  if (file < 0) return -1;
  struct stat status {};
  if (::fstat(file, &status) == 0 && !S_ISDIR(status.st_mode) && ::lseek(file, 0, SEEK_END) >= 0) return file;
  ::close(file);
  return -1;
}

// Reads n bytes, fewer at the end of the file; -1 on failure.
std::int64_t ReadAt(int file, char* to, std::int64_t n, std::int64_t offset) noexcept {
  std::int64_t done = 0;
  while (done < n) {
    const ssize_t got = ::pread(file, to + done, static_cast<std::size_t>(n - done), offset + done);
    if (got == 0) break;
    if (got > 0) {
      done += got;
    } else if (errno != EINTR) {
      return -1;
    }
  }
  return done;
}

// Writes n bytes; the result is how many were taken.
std::int64_t WriteAt(int file, const char* from, std::int64_t n, std::int64_t offset) noexcept {
  std::int64_t done = 0;
  while (done < n) {
    const ssize_t put = ::pwrite(file, from + done, static_cast<std::size_t>(n - done), offset + done);
    if (put > 0) {
      done += put;
    } else if (put == 0 || errno != EINTR) {
      break;
    }
  }
  return done;
}

}  // namespace

BlockBuffer::~BlockBuffer() {
  close();
}

bool BlockBuffer::open(const String& name, std::ios_base::openmode mode) {
  using std::ios_base;
  if (is_open()) return false;
  const bool in = (mode & ios_base::in) != 0;
  const bool out = (mode & ios_base::out) != 0;
  const bool truncate = (mode & ios_base::trunc) != 0 || (out && !in);
  if ((!in && !out) || (truncate && !out) || (mode & ios_base::app) != 0) return false;

  memory_ = std::make_unique_for_overwrite<char[]>(std::size_t{kBlockCount} * kBlockSize);
  // A file that is only written is read too: a block that was written back may be needed again.
  file_ = OpenFile(name, !out ? O_RDONLY : truncate ? O_RDWR | O_CREAT | O_TRUNC : O_RDWR);
  if (file_ < 0) {
    memory_.reset();
    return false;
  }
  char* data = memory_.get();
  for (Block& block : blocks_) {
    block = Block();
    block.data = data;
    data += kBlockSize;
  }
  readable_ = in;
  writable_ = out;
  size_ = 0;
  RefreshSize();
  position_ = (mode & ios_base::ate) != 0 ? size_ : 0;
  return true;
}

bool BlockBuffer::close() {
  if (!is_open()) return false;
  const bool written = sync() == 0;
  Release();
  // The descriptor is gone even when close was interrupted; closing it again could hit another file.
  const bool closed = ::close(file_) == 0 || errno == EINTR;
  file_ = -1;
  readable_ = false;
  writable_ = false;
  current_ = nullptr;
  window_ = nullptr;
  window_offset_ = -1;
  position_ = -1;
  size_ = 0;
  size_on_disk_ = 0;
  memory_.reset();
  return written && closed;
}

std::span<const std::byte> BlockBuffer::Peek(std::span<std::byte> scratch) {
  const auto n = static_cast<std::ptrdiff_t>(scratch.size());
  if (egptr() - gptr() < n) {
    const int_type next = underflow();
    if (traits_type::eq_int_type(next, traits_type::eof())) return {};
    if (egptr() - gptr() < n) {
      const std::int64_t start = Position();
      // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): bytes are read as chars
      const std::streamsize got = xsgetn(reinterpret_cast<char*>(scratch.data()), n);
      Seek(start);
      return scratch.first(static_cast<std::size_t>(got));
    }
  }
  return std::as_bytes(std::span<const char>(gptr(), scratch.size()));
}

// --- the stream's operations

BlockBuffer::int_type BlockBuffer::underflow() {
  if (!readable_) return traits_type::eof();
  const std::int64_t position = Release();
  if (position >= size_) {
    RefreshSize();
    if (position >= size_) return traits_type::eof();
  }
  Block* const block = Acquire(position);
  if (block == nullptr || !Fill(*block, size_)) return traits_type::eof();
  ShowForReading(*block, position);
  return gptr() < egptr() ? traits_type::to_int_type(*gptr()) : traits_type::eof();
}

BlockBuffer::int_type BlockBuffer::overflow(int_type c) {
  if (!writable_) return traits_type::eof();
  const std::int64_t position = Release();
  Block* const block = Acquire(position);
  if (block == nullptr || !Fill(*block, std::max(size_, position))) return traits_type::eof();
  setp(window_ + (position - window_offset_), window_ + kBlockSize);
  if (!traits_type::eq_int_type(c, traits_type::eof())) {
    *pptr() = traits_type::to_char_type(c);
    pbump(1);
  }
  return traits_type::not_eof(c);
}

// Steps back over a block's border. A character other than the one that stands there is refused.
BlockBuffer::int_type BlockBuffer::pbackfail(int_type c) {
  const std::int64_t position = Position();
  if (!readable_ || position <= 0) return traits_type::eof();
  Seek(position - 1);
  const int_type before = gptr() < egptr() ? traits_type::to_int_type(*gptr()) : underflow();
  const bool same = traits_type::eq_int_type(c, traits_type::eof()) || traits_type::eq_int_type(c, before);
  if (same && !traits_type::eq_int_type(before, traits_type::eof())) return before;
  Seek(position);
  return traits_type::eof();
}

std::streamsize BlockBuffer::showmanyc() {
  if (!readable_) return -1;
  const std::int64_t position = Release();
  if (position >= size_) RefreshSize();
  return position < size_ ? size_ - position : -1;
}

std::streamsize BlockBuffer::xsgetn(char* to, std::streamsize n) {
  std::streamsize done = 0;
  while (done < n) {
    if (gptr() == egptr() && traits_type::eq_int_type(underflow(), traits_type::eof())) break;
    const std::streamsize run = std::min<std::streamsize>(n - done, egptr() - gptr());
    std::memcpy(to + done, gptr(), static_cast<std::size_t>(run));
    gbump(static_cast<int>(run));
    done += run;
  }
  return done;
}

std::streamsize BlockBuffer::xsputn(const char* from, std::streamsize n) {
  std::streamsize done = 0;
  while (done < n) {
    if (pptr() == epptr() && traits_type::eq_int_type(overflow(traits_type::eof()), traits_type::eof()))
      break;
    const std::streamsize run = std::min<std::streamsize>(n - done, epptr() - pptr());
    std::memcpy(pptr(), from + done, static_cast<std::size_t>(run));
    pbump(static_cast<int>(run));
    done += run;
  }
  return done;
}

BlockBuffer::pos_type BlockBuffer::seekoff(off_type offset, std::ios_base::seekdir from,
                                           std::ios_base::openmode /*which*/) {
  if (!is_open()) return off_type(-1);
  std::int64_t start = 0;
  if (from == std::ios_base::cur) {
    start = Position();
    if (offset == 0) return start;
  } else if (from == std::ios_base::end) {
    Release();
    RefreshSize();
    start = size_;
  }
  if (offset > std::numeric_limits<std::int64_t>::max() - start) return off_type(-1);
  return Seek(start + offset) ? start + offset : off_type(-1);
}

BlockBuffer::pos_type BlockBuffer::seekpos(pos_type position, std::ios_base::openmode /*which*/) {
  return Seek(off_type(position)) ? position : pos_type(off_type(-1));
}

int BlockBuffer::sync() {
  if (!is_open()) return -1;
  Release();
  bool written = true;
  for (Block& block : blocks_) written = WriteBack(block) && written;
  return written ? 0 : -1;
}

// --- the blocks

// A seek that does not stay inside the get area.
bool BlockBuffer::SeekElsewhere(std::int64_t position) noexcept {
  // A block's end must have an offset too.
  if (!is_open() || position < 0 || position > std::numeric_limits<std::int64_t>::max() - kBlockSize)
    return false;
  Release();
  position_ = position;
  if (!readable_ || current_ == nullptr) return true;
  const std::int64_t inside = position - window_offset_;
  if (inside >= 0 && inside < current_->valid) ShowForReading(*current_, position);
  return true;
}

// Ends the get or put area, takes over what was written through it, and returns the position.
std::int64_t BlockBuffer::Release() noexcept {
  position_ = Position();
  if (pptr() > pbase()) {
    const auto begin = static_cast<std::int32_t>(pbase() - window_);
    const auto end = static_cast<std::int32_t>(pptr() - window_);
    Block& block = *current_;
    const bool clean = block.dirty_begin == block.dirty_end;
    block.dirty_begin = clean ? begin : std::min(block.dirty_begin, begin);
    block.dirty_end = clean ? end : std::max(block.dirty_end, end);
    block.valid = std::max(block.valid, end);
    size_ = std::max(size_, position_);
  }
  setg(nullptr, nullptr, nullptr);
  setp(nullptr, nullptr);
  return position_;
}

// Makes the block that holds `position` the current one, in place of the one unused for longest when it is
// not in memory. Null when that one cannot be written back. No area may be set.
BlockBuffer::Block* BlockBuffer::Acquire(std::int64_t position) noexcept {
  const std::int64_t offset = position & -std::int64_t{kBlockSize};
  Block* block = current_;
  if (block == nullptr || block->offset != offset) {
    block = std::find_if(blocks_.data(), blocks_.data() + kBlockCount,
                         [=](const Block& b) { return b.offset == offset; });
    if (block == blocks_.data() + kBlockCount) {
      block = std::min_element(blocks_.data(), blocks_.data() + kBlockCount,
                               [](const Block& a, const Block& b) { return a.last_use < b.last_use; });
      if (!WriteBack(*block)) return nullptr;
      block->offset = offset;
      block->valid = 0;
    }
    current_ = block;
    window_ = block->data;
    window_offset_ = offset;
  }
  block->last_use = ++use_clock_;
  return block;
}

// Makes the block's bytes up to the position `end` valid, as far as the block reaches: from the file, and
// with zero bytes where the file does not reach. In a file that is only read, the file's own end counts
// instead, so one that others cut short ends where they cut it. False when reading fails.
bool BlockBuffer::Fill(Block& block, std::int64_t end) noexcept {
  const auto wanted = static_cast<std::int32_t>(std::min<std::int64_t>(end - block.offset, kBlockSize));
  if (block.valid >= wanted) return true;
  const auto on_disk =
      static_cast<std::int32_t>(std::clamp<std::int64_t>(size_on_disk_ - block.offset, block.valid, wanted));
  const std::int64_t got =
      ReadAt(file_, block.data + block.valid, on_disk - block.valid, block.offset + block.valid);
  if (got < 0) return false;
  block.valid += static_cast<std::int32_t>(got);
  if (!writable_) {
    if (block.valid < wanted) RefreshSize();
    return true;
  }
  std::fill(block.data + block.valid, block.data + wanted, '\0');
  block.valid = wanted;
  return true;
}

bool BlockBuffer::WriteBack(Block& block) noexcept {
  const std::int32_t count = block.dirty_end - block.dirty_begin;
  if (count == 0) return true;
  block.dirty_begin += static_cast<std::int32_t>(
      WriteAt(file_, block.data + block.dirty_begin, count, block.offset + block.dirty_begin));
  size_on_disk_ = std::max(size_on_disk_, block.offset + block.dirty_begin);
  return block.dirty_begin == block.dirty_end;
}

void BlockBuffer::ShowForReading(const Block& block, std::int64_t position) noexcept {
  const auto inside = position - block.offset;
  const auto end = std::min<std::int64_t>(block.valid, size_ - block.offset);
  setg(block.data, block.data + inside, block.data + std::max(inside, end));
}

void BlockBuffer::RefreshSize() noexcept {
  const off_t now = ::lseek(file_, 0, SEEK_END);
  if (now < 0) return;
  size_on_disk_ = now;
  size_ = writable_ ? std::max<std::int64_t>(size_, now) : now;
}

}  // namespace Tobri
