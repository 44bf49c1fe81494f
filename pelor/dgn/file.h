#pragma once

#include <pelor/base/block_buffer.h>
#include <pelor/base/export.h>
#include <pelor/base/string.h>
#include <pelor/dgn/header.h>

#include <cstddef>
#include <cstdint>
#include <iostream>
#include <span>

namespace Pelor::DGN {

/// A cursor over the elements of a design file, which is itself a standard binary stream with one joint
/// position for reading and writing.
///
/// A file is on its current element, or at the end: closed, or on the end-of-design word. `Next` reads the
/// headers that the element has. They may be changed through GetGEHeader and GetDEHeader; in a file opened
/// for output they go back into the file when it moves on, flushes, closes or appends, whether changed or
/// not, because reading builds them by assignment.
///
/// Failures of the file show in the stream's state. Asking for what the element does not have is reported
/// (EndOfFileErr, NotDisplayableErr, NoAttributesErr); after a handler that returns nothing is moved or
/// sought, and sizes are 0. Lengths in the file are believed as far as the file reaches: an element that it
/// cuts off in its headers ends the walk with the states eof and fail, and is never written back. Attribute
/// data that begin behind the element's end are not there.
///
/// Offsets are 64 bits wide. Where an offset is of type long, the platform's long bounds it.
class PELOR_EXPORT File : public std::iostream {
 public:
  /// Closed.
  File();
  File(const Tobri::String& name, std::ios_base::openmode mode);
  ~File() override;
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  /// Opens an existing design, by default with the extension "DGN", and goes to its first element. When that
  /// fails the file stays closed with the state fail.
  void Open(const Tobri::String& name, std::ios_base::openmode mode);
  /// Creates a design, by default with the extension "DGN": the bytes of the file `seed`, if a name is given,
  /// the end-of-design word and zero bytes up to whole blocks of 512. Then goes to the first element. A seed
  /// that cannot be opened gives the state fail, and nothing is created.
  void Create(const Tobri::String& name, const Tobri::String& seed);
  void Close();
  /// Writes the current element's headers, and all that is still buffered, to the file.
  void Flush();

  /// Goes to the first element.
  void Restart();
  /// Goes to the element that begins at the byte offset.
  void Position(long offset);
  /// Goes to the following element; with `skip_components`, past the components of a complex element. Does
  /// nothing at the end.
  void Next(bool skip_components);

  /// True while there is a current element and nothing has failed.
  explicit operator bool() const { return good() && !at_end_; }
  /// The opposite; the stream's own would ask for its state alone.
  bool operator!() const { return !static_cast<bool>(*this); }

  /// Byte offset of the current element or of the end-of-design word; -1 in a closed file.
  [[nodiscard]] std::int64_t CurrentPosition() const noexcept { return current_; }
  /// Byte offset of the element that follows; -1 at the end of the design.
  [[nodiscard]] std::int64_t NextPosition() const noexcept { return next_; }
  /// Byte offset of the element behind the current one and all its components; -1 at the end of the design.
  [[nodiscard]] std::int64_t NextPositionSkippingComponents() const noexcept { return next_skipping_; }
  /// The file's length in bytes when it was opened.
  [[nodiscard]] std::int64_t FileLength() const noexcept { return file_length_; }
  /// Byte offset of the current attribute linkage.
  [[nodiscard]] std::int64_t AttributePosition() const noexcept { return attribute_position_; }
  [[nodiscard]] bool IsOpen() const { return buffer_.is_open(); }
  [[nodiscard]] bool AtEnd() const noexcept { return at_end_; }
  [[nodiscard]] bool IsWritable() const noexcept { return writable_; }
  [[nodiscard]] bool HasGraphicHeader() const noexcept { return has_graphic_; }
  [[nodiscard]] bool HasDisplayableHeader() const noexcept { return has_displayable_; }
  [[nodiscard]] bool HasAttributes() const noexcept { return has_attributes_; }

  /// The element header as it was read. A change reaches the file only when the element has no graphic
  /// header, which holds these words, too.
  EHeader& GetEHeader() noexcept { return header_; }
  [[nodiscard]] const EHeader& GetEHeader() const noexcept { return header_; }
  /// Not checked: without a graphic header it is one from before.
  GEHeader& GetGEHeader() noexcept { return graphic_; }
  DEHeader& GetDEHeader();
  /// The current linkage. Changes are not written back.
  AHeader& GetAHeader();

  // Bytes of the element's body behind the element, graphic or displayable header; of the latter also without
  // the attribute data; and of the data of the current linkage. Headers that leave less than no body give 0.

  [[nodiscard]] unsigned EBodySize() const noexcept { return 2U * header_.words_to_follow; }
  [[nodiscard]] unsigned GEBodySize() const noexcept;
  [[nodiscard]] unsigned DEBodySize(bool with_attributes) const;
  [[nodiscard]] unsigned ABodySize() const;

  // Whole bodies, between the file and `bytes`, which must hold as many bytes as the size above; or as a
  // HexDump. At the end the first two groups do nothing. ReadABody without attributes reports
  // NotDisplayableErr where its two companions report NoAttributesErr: this difference is intended.

  void ReadEBody(void* bytes);
  void WriteEBody(const void* bytes);
  void DumpEBody(std::ostream& listing);
  void ReadGEBody(void* bytes);
  void WriteGEBody(const void* bytes);
  void DumpGEBody(std::ostream& listing);
  void ReadDEBody(void* bytes, bool with_attributes);
  void WriteDEBody(const void* bytes, bool with_attributes);
  void DumpDEBody(std::ostream& listing, bool with_attributes);
  void ReadABody(void* bytes);
  void WriteABody(const void* bytes);
  void DumpABody(std::ostream& listing);

  // Positions for reading (R) and writing (W), in bytes from the begin of the body.

  void EBodyRPosition(long offset);
  void EBodyWPosition(long offset);
  void GEBodyRPosition(long offset);
  void GEBodyWPosition(long offset);
  void DEBodyRPosition(long offset);
  void DEBodyWPosition(long offset);
  /// From the begin of the attribute data; the linkage there becomes the current one, its header unread.
  void AttrRPosition(long offset);
  void ABodyRPosition(long offset);

  /// Goes to the following attribute linkage and reads its header. False when there is none left.
  bool NextAttribute();

  // Values at the stream's position. A value that cannot be read whole stays as it was.

  void Read(unsigned char& value);
  void Read(unsigned short& value);
  void Read(long& value);
  void Read(double& value);
  void Write(unsigned char value);
  void Write(unsigned short value);
  void Write(long value);
  void Write(const double& value);

  /// Reads longs into an array and gives the number of those that could be read whole; fewer than asked for
  /// set the states eof and fail. The fast way for vertices.
  std::size_t ReadLongs(std::span<std::int32_t> values);

  /// The 3 * words characters of so many Radix-50 words; what there is at the end of the file.
  [[nodiscard]] Tobri::String Readrad50(unsigned words);
  /// So many raw bytes; what there is at the end of the file.
  [[nodiscard]] Tobri::String ReadString(unsigned bytes);
  /// Packs the text into Radix-50 words, but writes min(packed words, words) BYTES of them, the first half of
  /// what fits, and then zero words for the packed words missing from `words`. This behaviour is intended.
  void Writerad50(const Tobri::String& text, unsigned words);
  /// Writes exactly so many bytes: the text, cut or filled up with zero bytes.
  void WriteString(const Tobri::String& text, unsigned bytes);

  // Appending. The element begins where the end-of-design word was, and the file is extended to whole blocks
  // of 512 bytes. `body_bytes`, at most 131070, are those behind the element header, other headers included;
  // an odd count is rounded up. The header reaches the file with the next move or flush, the body is up to
  // the caller. Only a file that is open for output and whole can be appended to; otherwise the state becomes
  // bad. Cost: a walk to the end of the design; a single step from the element that was appended last.

  void EAppend(const EHeader& header, unsigned body_bytes);
  /// The graphic header keeps the words to follow of `header`, whatever body_bytes says.
  void GEAppend(const GEHeader& header, unsigned body_bytes);
  /// As GEAppend. The attribute index becomes 65516, always: this behaviour is intended. Who appends
  /// attributes sets it through GetDEHeader.
  void DEAppend(const DEHeader& header, unsigned body_bytes);
  /// The size that the header tells.
  void EAppend(const EHeader& header);
  // These append a bare element header, 12 or 16 words shorter than the header given tells, and take over
  // neither the range nor the words behind it. This behaviour is intended.
  void GEAppend(const GEHeader& header);
  void DEAppend(const DEHeader& header);

  // Copy the body of another file's current element into the body of this file's current element; as many
  // bytes as the source's header tells, or as the source has. Within one file each byte is read from the
  // joint position and written behind it, which repeats every other byte.

  void CopyEBody(File& source);
  void CopyGEBody(File& source);
  void CopyDEBody(File& source);

 private:
  // Files grow in blocks of so many bytes.
  static constexpr std::int64_t kFileBlock = 512;

  // What remains of `size` bytes behind `headers` bytes.
  [[nodiscard]] static constexpr unsigned Behind(unsigned size, std::size_t headers) noexcept {
    return size > headers ? size - static_cast<unsigned>(headers) : 0;
  }

  void ReadHeaders();
  void ReadAttributeHeader();
  void CutOff();
  void ForgetElement() noexcept;
  void WriteBack();
  void PutAt(std::int64_t position, std::span<const char> bytes);
  void SeekTo(std::int64_t position);
  void SeekFrom(std::int64_t base, long offset);
  void SeekBody(std::size_t body, long offset);
  void SeekDisplayableBody(long offset);
  [[nodiscard]] bool CheckAttributes() const;
  bool Append(const EHeader& header, std::uint64_t body_bytes);
  void CopyBytes(File& source, std::size_t count);
  void WriteZeros(std::uint64_t count);

  Tobri::BlockBuffer buffer_;
  std::int64_t file_length_ = 0;
  std::int64_t current_ = -1;
  std::int64_t next_ = 0;
  std::int64_t next_skipping_ = 0;
  std::int64_t attribute_position_ = 0;
  EHeader header_;
  GEHeader graphic_;
  DEHeader displayable_;
  AHeader attribute_;
  bool at_end_ = true;
  bool writable_ = false;
  bool has_graphic_ = false;
  bool has_displayable_ = false;
  bool has_attributes_ = false;
};

}  // namespace Pelor::DGN
