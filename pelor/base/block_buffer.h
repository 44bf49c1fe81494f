#pragma once

#include <pelor/base/export.h>
#include <pelor/base/string.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <ios>
#include <memory>
#include <span>
#include <streambuf>

namespace Tobri {

/// A stream buffer over a binary file that is made for seeking. A few large blocks of the file stay in
/// memory, and a position inside one of them is reached without a system call.
///
/// Reading and writing share one position, and may follow each other without a seek. Positions are byte
/// offsets in 64 bits. Memory is constant, and is held only while a file is open.
///
/// Changed bytes reach the file at sync (a stream's flush), at close, and when their block makes room for
/// another. What could not be written stays in memory and is tried again the next time: the operation that
/// failed reports it, and so does every sync until it succeeds, and close.
///
/// A write past the end fills the gap with zero bytes. A read at the end finds what others have appended
/// since; other changes that others make may go unseen in blocks that are in memory. A failing read looks
/// like the end of the file.
class PELOR_EXPORT BlockBuffer : public std::streambuf {
 public:
  // Measured from 8 KiB to 1 MiB: a walk gains little from larger blocks, and a jump pays for every byte of
  // one. 512 KiB in all keep the end of a file, and many places before it, in memory.
  static constexpr std::int32_t kBlockSize = 1 << 14;
  static constexpr int kBlockCount = 32;

  BlockBuffer() = default;
  /// Closes; a failure of the last write goes unnoticed.
  ~BlockBuffer() override;
  BlockBuffer(const BlockBuffer&) = delete;
  BlockBuffer& operator=(const BlockBuffer&) = delete;

  /// Opens as a standard file buffer would, always in binary: `in` reads a file that must exist; `in | out`
  /// also writes it; `out`, with or without `trunc`, and `in | out | trunc` start with an empty file. `ate`
  /// starts at the end. False, and nothing is open, for every other mode, when a file is open already, for
  /// what cannot be opened, and for what has no positions (a directory, a pipe, a terminal). Writing takes
  /// the permission to read as well. A device that states no size counts as empty.
  [[nodiscard]] bool open(const String& name, std::ios_base::openmode mode);

  /// Writes back and closes; the file is closed in any case. False when something did not reach it, or when
  /// nothing was open.
  bool close();

  [[nodiscard]] bool is_open() const noexcept { return file_ >= 0; }

  /// The position of the next read or write; -1 when no file is open.
  [[nodiscard]] std::int64_t Position() const noexcept {
    if (gptr() != nullptr) return window_offset_ + (gptr() - eback());
    if (pptr() != nullptr) return window_offset_ + (pptr() - window_);
    return position_;
  }

  /// Moves to any position from 0 up, beyond the end too; false, and nothing moves, when `position` is
  /// negative, beyond any file, or no file is open.
  bool Seek(std::int64_t position) noexcept {
    if (gptr() != nullptr && position >= window_offset_ && position - window_offset_ <= egptr() - eback()) {
      setg(eback(), eback() + (position - window_offset_), egptr());
      return true;
    }
    return SeekElsewhere(position);
  }

  /// The size of the file with everything that was written so far.
  [[nodiscard]] std::int64_t Size() const noexcept {
    return pptr() > pbase() && Position() > size_ ? Position() : size_;
  }

  /// The next scratch.size() bytes, fewer only at the end of the file; the position stays. They are a view
  /// into the window when they lie there in one piece, else a copy in `scratch`; good until the next
  /// operation on the buffer.
  [[nodiscard]] std::span<const std::byte> Peek(std::span<std::byte> scratch);

 protected:
  int_type underflow() override;
  int_type overflow(int_type c) override;
  int_type pbackfail(int_type c) override;
  std::streamsize showmanyc() override;
  std::streamsize xsgetn(char* to, std::streamsize n) override;
  std::streamsize xsputn(const char* from, std::streamsize n) override;
  pos_type seekoff(off_type offset, std::ios_base::seekdir from, std::ios_base::openmode which) override;
  pos_type seekpos(pos_type position, std::ios_base::openmode which) override;
  int sync() override;

 private:
  // One cached block. Bytes [0, valid) are those of the file; of them [dirty_begin, dirty_end) are to be
  // written back.
  struct Block {
    char* data = nullptr;
    std::int64_t offset = -1;  // a multiple of kBlockSize; -1 when the block is free
    std::int32_t valid = 0;
    std::int32_t dirty_begin = 0;
    std::int32_t dirty_end = 0;
    std::uint64_t last_use = 0;
  };

  bool SeekElsewhere(std::int64_t position) noexcept;
  std::int64_t Release() noexcept;
  Block* Acquire(std::int64_t position) noexcept;
  bool Fill(Block& block, std::int64_t end) noexcept;
  bool WriteBack(Block& block) noexcept;
  void ShowForReading(const Block& block, std::int64_t position) noexcept;
  void RefreshSize() noexcept;

  // At most one of the get area and the put area is set, over the current block; the position is that area's.
  // Without an area it is position_.
  std::array<Block, kBlockCount> blocks_;
  std::unique_ptr<char[]> memory_;
  Block* current_ = nullptr;
  char* window_ = nullptr;           // the current block's bytes
  std::int64_t window_offset_ = -1;  // the current block's offset
  std::int64_t position_ = -1;
  std::int64_t size_ = 0;          // with bytes not yet written back, without those of the put area
  std::int64_t size_on_disk_ = 0;  // as far as is known
  std::uint64_t use_clock_ = 0;
  int file_ = -1;
  bool readable_ = false;
  bool writable_ = false;
};

}  // namespace Tobri
