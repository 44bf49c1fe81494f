#pragma once

#include <pelor/base/charset.h>
#include <pelor/base/export.h>
#include <pelor/base/handle.h>
#include <pelor/base/string.h>
#include <pelor/base/text_scanner.h>
#include <pelor/mi/column.h>
#include <pelor/mi/coord_sys.h>
#include <pelor/mi/object_body.h>
#include <pelor/mi/object_ref.h>
#include <pelor/mi/transform.h>

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace Pelor {

/// Reads a pair: a cursor over the objects of the MIF file, each with its row of the MID file. Memory is
/// constant but for the largest object and row.
class PELOR_EXPORT iMIF {
 public:
  /// What the lenient reader passed over.
  struct SkippedPart {
    Tobri::String word;      ///< its first word
    long line = 0;           ///< of the MIF file, from 1
    bool is_object = false;  ///< an object, whose row went with it; otherwise what stood behind an object
  };

  iMIF();
  explicit iMIF(const Tobri::String& name) : iMIF() { Open(name); }
  iMIF(const iMIF&) = delete;
  iMIF& operator=(const iMIF&) = delete;
  ~iMIF() = default;

  /// Closes the open pair, opens the files `name` with the extensions "mif" and "mid" (or "MIF" and "MID",
  /// where those are not there), reads the header and goes to the second object. That is intended: Reset()
  /// gives the first one. A header that is malformed is reported as a SyntaxError, "Invalid MIF". A file that
  /// cannot be opened is not reported, and the reader stays closed.
  void Open(const Tobri::String& name);
  /// Closes the files and forgets all but SetLenient.
  void Close();

  /// Whether an object is current.
  [[nodiscard]] bool IsValid() const noexcept { return object_ != nullptr; }
  /// Goes to the next object and row. A word that is no object keyword ends the objects.
  void Next();
  /// Goes to the first object and row.
  void Reset();
  /// Bytes of the MIF file that were read so far, and in all.
  [[nodiscard]] long Current() const noexcept;
  [[nodiscard]] long Total() const noexcept { return total_; }

  /// A share of the current object; null when there is none.
  [[nodiscard]] MI::WObjRf<MI::WObjBody> GetObj() const noexcept { return object_; }
  /// A value of the current row; the empty text outside of the row.
  [[nodiscard]] Tobri::String GetAttribute(int i) const;
  [[nodiscard]] int GetNAttributes() const noexcept { return static_cast<int>(value_ends_.size()); }

  // What the header says.

  [[nodiscard]] int GetNColumns() const noexcept { return static_cast<int>(columns_.size()); }
  /// ArrayIndexErr, and a default column, outside of the columns.
  [[nodiscard]] MI::Column GetColumn(int i) const;
  /// The first column of this name, whatever its case; -1 when there is none.
  [[nodiscard]] int GetColIndex(const Tobri::String& name) const;
  [[nodiscard]] int GetVersion() const noexcept { return version_; }
  [[nodiscard]] char GetDelimiter() const noexcept { return delimiter_; }
  /// A default system when the header has none.
  [[nodiscard]] MI::CoordSys GetCoordSys() const;
  /// A share of the system of all objects; null when the header has none.
  [[nodiscard]] Tobri::IRefC<MI::CoordSys> GetWSys() const noexcept { return system_; }
  [[nodiscard]] MI::Transform GetTransform() const noexcept { return transform_; }
  [[nodiscard]] Tobri::String GetCharSetName() const { return charset_name_; }

  /// Whether values are converted from the character set of the file to the local one. Off by default;
  /// without effect where the set is unknown or neutral. Goes to the first object.
  void SetCharSetMapping(bool mapping);
  [[nodiscard]] bool GetCharSetMapping() const noexcept { return mapping_is_requested_; }
  /// Whether the header's transform is applied to the objects. On after Open. Goes to the first object.
  void SetAutoTransform(bool transform);
  [[nodiscard]] bool GetAutoTransform() const noexcept { return transform_is_requested_; }

  /// Beyond the classic interface: reads what other programs write. The clauses that follow an object's
  /// coordinates come in any order; an object of an unknown kind is passed over up to the next object keyword
  /// that begins a line, together with its row; what is left of a malformed object, or a clause of another
  /// kind, is passed over without a row; and a pair without a MID file has empty rows. Off by default; kept
  /// by Open and Close; takes effect from the next object on.
  void SetLenient(bool lenient) noexcept { is_lenient_ = lenient; }
  [[nodiscard]] bool GetLenient() const noexcept { return is_lenient_; }
  /// What was passed over since the first object. Good until the next change of the cursor.
  [[nodiscard]] std::span<const SkippedPart> Skipped() const noexcept { return skipped_; }

 private:
  void ReadHeader();
  bool ReadHeaderClauses();
  bool MarkColumns(std::span<const int> numbers, std::uint16_t flag);
  void SelectCharSet();
  void UpdateMapping();
  void ReadRow();
  void ReadObject();
  void ReadObjectLeniently();
  void SkipUnknown();

  std::ifstream mif_;
  std::ifstream mid_;
  Tobri::IxText mif_in_;
  Tobri::IxText mid_in_;
  bool is_open_ = false;
  long total_ = 0;
  std::int32_t version_ = 0;
  char delimiter_ = '\t';
  Tobri::IRefC<MI::CoordSys> system_;
  MI::Transform transform_;
  std::vector<MI::Column> columns_;
  Tobri::String charset_name_;
  Tobri::Chr8C charset_;
  bool charset_is_known_ = false;
  bool mapping_is_requested_ = false;
  bool mapping_is_active_ = false;
  bool transform_is_requested_ = false;
  bool transform_is_active_ = false;
  bool is_lenient_ = false;
  Tobri::IBText::Pos mif_start_;
  Tobri::IBText::Pos mid_start_;
  MI::WObjRf<MI::WObjBody> object_;
  std::string row_;                      ///< the values of the current row, one behind the other
  std::vector<std::size_t> value_ends_;  ///< where each value of the row ends
  Tobri::String value_;                  ///< the value in hand; keeps its storage
  std::vector<SkippedPart> skipped_;
};

}  // namespace Pelor
