#pragma once

#include <pelor/base/charset.h>
#include <pelor/base/export.h>
#include <pelor/base/handle.h>
#include <pelor/base/string.h>
#include <pelor/mi/column.h>
#include <pelor/mi/coord_sys.h>
#include <pelor/mi/object_body.h>
#include <pelor/mi/object_ref.h>
#include <pelor/mi/transform.h>

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <memory>
#include <string_view>
#include <vector>

namespace Pelor {

namespace MIF {
class ClauseText;
}

/// Writes a pair: the header and the objects to the MIF file, one row per object to the MID file. The header
/// is written with the first object or value, so its settings must come before. An object may come before or
/// after its values: an object that is followed by another has an empty row, and a full row that is followed
/// by a further value has the object None.
///
/// Texts go out as they are given: the name of the character set only declares the set they are in, which is
/// intended.
class PELOR_EXPORT oMIF {
 public:
  oMIF();
  oMIF(const Tobri::String& name, char delimiter) : oMIF() { Open(name, delimiter); }
  oMIF(const oMIF&) = delete;
  oMIF& operator=(const oMIF&) = delete;
  ~oMIF();

  /// Closes the open pair and opens the files `name` with the extensions "mif" and "mid". A file that cannot
  /// be opened or written is not reported: it shows in the state of its stream.
  void Open(const Tobri::String& name, char delimiter);
  /// Writes what is due and closes both files. Values that still wait for their object are lost, and the
  /// object None is written for them; both are intended. A header without columns and data is not written.
  void Close();

  /// The state of the two files, also after Close until the next Open.
  [[nodiscard]] const std::ofstream& MIFStream() const noexcept { return mif_; }
  [[nodiscard]] const std::ofstream& MIDStream() const noexcept { return mid_; }

  // Settings of the header. After it was written they are ignored.

  /// 1 and 100 give version 1, which has no coordinate system; 2 and 200 give 2; anything else gives 300 when
  /// a character set is named, and 2 when none is.
  void SetVersion(int version);
  void SetDelimiter(char delimiter);
  /// The name goes into the header of version 300 only.
  void SetCharSet(const Tobri::String& name);
  /// The name of a set: "Neutral" for a set without one. Intended: it may come at any time, but does nothing
  /// after the header.
  void SetCharSet(const Tobri::Chr8C& set);
  /// Keeps a copy.
  void SetCoordSys(const MI::CoordSys& system);
  /// Shares the system; without one the header has none.
  void SetWSys(const Tobri::IRefC<MI::CoordSys>& system);
  void SetTransform(const MI::Transform& transform);
  /// A column with the flag kWidthNotGiven comes to be as wide as its longest value, in bytes.
  void AddColumn(const MI::Column& column);

  /// Whether every line of an object is flushed to the file at once, as it is by default. Without, objects go
  /// out in whole buffers, which is much faster. The bytes are the same. This goes beyond the classic
  /// interface.
  void SetLineFlush(bool flush);

  /// Writes the header unless that is done.
  void BeginData() {
    if (header_is_pending_) WriteHeader();
  }
  /// Writes the object, which must not be null.
  void AddObj(const MI::WObjRf<MI::WObjBody>& object);
  /// Sets value `i` of the current row; an index outside the columns is ignored.
  void SetAttribute(int i, const Tobri::String& value);
  /// Sets the value behind the last one; the first value of a new row when the row is full.
  void AddAttribute(const Tobri::String& value);
  /// Writes the current row, up to its last value that was set, and empties it. A value that holds the
  /// delimiter is quoted; one that holds the delimiter and a quote goes, quoted, to the MIF file, which is
  /// intended.
  void FlushAttr();
  /// Writes the object None.
  void FlushNullObj();

 private:
  enum class Pairing { kIdle, kAttributesPending, kObjectWritten, kClosed };

  void AddObjSignal();
  void SetAttrSignal();
  void OvAttrSignal();
  void CloseSignal();

  void WriteColumnNumbers(const char* keyword, std::uint16_t flag);
  void WriteColumn(const MI::Column& column);
  void WriteHeader();
  void WriteValue(std::string_view text);
  void RewriteColumns();

  // The streams' own buffers; they must outlive the streams.
  std::unique_ptr<char[]> mif_buffer_;
  std::unique_ptr<char[]> mid_buffer_;
  std::ofstream mif_;
  std::ofstream mid_;
  std::unique_ptr<MIF::ClauseText> rows_;  ///< on their way to the MID file
  char delimiter_ = 0;
  bool header_is_pending_ = true;
  Tobri::IRefC<MI::CoordSys> system_;
  MI::Transform transform_;
  std::vector<MI::Column> columns_;
  std::vector<std::streamoff> column_positions_;  ///< of the header lines; -1 where the width is given
  Pairing pairing_ = Pairing::kClosed;
  std::size_t attribute_count_ = 0;        ///< one more than the last value that was set
  std::vector<Tobri::String> attributes_;  ///< one per column, once the header is written
  Tobri::String charset_name_;
  std::int32_t version_ = 0;
  MI::WObjRf<MI::WObjBody> no_object_;
};

}  // namespace Pelor
