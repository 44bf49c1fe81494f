#include <pelor/base/error.h>
#include <pelor/base/file_name.h>
#include <pelor/mif/clause_io.h>
#include <pelor/mif/column_clause.h>
#include <pelor/mif/coord_sys_clause.h>
#include <pelor/mif/keyword.h>
#include <pelor/mif/lexis.h>
#include <pelor/mif/object_clauses.h>
#include <pelor/mif/reader.h>

#include <algorithm>
#include <utility>

namespace Pelor {

using Tobri::Chr8C;
using Tobri::FileSys;
using Tobri::IxText;
using Tobri::LocStr;
using Tobri::String;

namespace {

constexpr std::uint16_t kIndexed = 1;
constexpr std::uint16_t kUnique = 2;

// Opens the first of the files that can be read; its name, or the first name when none can. A folder can be
// opened, but not read.
String OpenFirst(std::ifstream& stream, const String& name, const String& other) {
  for (const String& candidate : {name, other}) {
    stream.clear();
    stream.open(candidate.str());
    if (!stream.is_open()) continue;
    stream.peek();
    if (!stream.bad()) {
      stream.clear();
      return candidate;
    }
    stream.close();
  }
  return name;
}

long MeasureSize(std::ifstream& stream) {
  stream.seekg(0, std::ios_base::end);
  const std::streamoff size = stream.tellg();
  stream.clear();
  stream.seekg(0);
  return static_cast<long>(size);
}

void SetUp(IxText& in, std::ifstream& stream, const String& name) {
  in.init();
  in.Set(stream, name);
  in.Def(MIF::Quotes());
  in.Def(MIF::NoComments(), false);
}

// The numbers on the rest of the line.
bool ReadNumbers(std::vector<int>& numbers, IxText& in) {
  IxText::ArgSep args;
  args.Set(in, false, false, false);
  for (int number = 0; args.ReadNext(number, Tobri::IntFmt());) numbers.push_back(number);
  args.Skip();
  return true;
}

bool IsObject(MIF::KeyWord id) {
  return id >= MIF::None && id <= MIF::Ellipse;
}

// Objects of later versions, by name: each of them has a row.
bool IsMultipoint(const MIF::ReadKW& word) {
  return LocStr::UpperCase(word.text) == "MULTIPOINT";
}
bool IsCollection(const MIF::ReadKW& word) {
  return LocStr::UpperCase(word.text) == "COLLECTION";
}

// Discards the rest of the line.
void SkipLine(IxText& in) {
  while (!in.AtEnd() && !in.SkipLineEnd()) {
    const std::string_view window = in.Window(1);
    in.Consume(std::max<std::size_t>(1, std::min(window.find_first_of("\r\n"), window.size())));
  }
}

// Goes to the next object keyword that begins a line, or to the end of the input.
void SkipToObject(IxText& in) {
  while (!in.AtEnd()) {
    SkipLine(in);
    MIF::ReadKW word;
    word.Read(in);
    if (IsObject(word.id) || IsMultipoint(word) || IsCollection(word)) {
      in.SetPos(word.pos);
      return;
    }
  }
}

// Goes behind the objects that a collection is made of. They have no rows.
void SkipParts(int count, IxText& in) {
  for (; count > 0; --count) {
    MIF::ReadKW word;
    word.Read(in);
    if (word.id != MIF::Region && word.id != MIF::PLine && !IsMultipoint(word)) {
      in.SetPos(word.pos);
      return;
    }
    SkipToObject(in);
  }
}

}  // namespace

iMIF::iMIF() = default;

void iMIF::Open(const String& name) {
  Close();
  const String mif_name = OpenFirst(mif_, FileSys::RepExt(name, "mif"), FileSys::RepExt(name, "MIF"));
  const String mid_name = OpenFirst(mid_, FileSys::RepExt(name, "mid"), FileSys::RepExt(name, "MID"));
  if (!mif_.is_open() || (!mid_.is_open() && !is_lenient_)) {
    Close();
    return;
  }
  is_open_ = true;
  total_ = MeasureSize(mif_);
  SetUp(mif_in_, mif_, mif_name);
  mif_in_.Def(MIF::MIFSeparators());
  SetUp(mid_in_, mid_, mid_name);
  mid_in_.Def(MIF::MIDSeparators(delimiter_));
  ReadHeader();
  mif_start_ = mif_in_.GetPos();
  mid_start_ = mid_in_.GetPos();
  SetAutoTransform(true);
  // Intended: the second object is the first one to be delivered.
  Next();
}

void iMIF::Close() {
  mif_in_.init();
  mid_in_.init();
  if (mif_.is_open()) mif_.close();
  if (mid_.is_open()) mid_.close();
  is_open_ = false;
  total_ = 0;
  version_ = 0;
  delimiter_ = '\t';
  system_.AssignNull();
  transform_ = MI::Transform();
  columns_.clear();
  charset_name_.Clear();
  charset_ = Chr8C();
  charset_is_known_ = false;
  mapping_is_requested_ = false;
  mapping_is_active_ = false;
  transform_is_requested_ = false;
  transform_is_active_ = false;
  object_.AssignNull();
  row_.clear();
  value_ends_.clear();
  skipped_.clear();
}

void iMIF::ReadHeader() {
  if (!ReadHeaderClauses()) Tobri::Error::Handle(MIF::SyntaxError("Invalid MIF", &mif_in_));
}

bool iMIF::ReadHeaderClauses() {
  IxText& in = mif_in_;
  if (!MIF::ReadSpecifier(in, MIF::Version)) return false;
  if (!MIF::Clause::ReadNumber(version_, in, true)) return false;
  std::vector<int> unique;
  std::vector<int> indexed;
  MIF::Clause::Optional(in)
      .Try(MIF::CharSet,
           [&] {
             in.ReadNextSep(charset_name_, false);
             SelectCharSet();
             return true;
           })
      .Try(MIF::Delimiter,
           [&] {
             if (in.ReadNextSep(value_, false) && !value_.IsEmpty()) delimiter_ = value_[0];
             return true;
           })
      .Try(MIF::Unique, [&] { return ReadNumbers(unique, in); })
      .Try(MIF::Index, [&] { return ReadNumbers(indexed, in); })
      .Try(MIF::CoordSys,
           [&] {
             const Tobri::IRef<MI::CoordSys> system(new MI::CoordSys());
             MIF::Read(*system, in);
             system_ = system;
             return true;
           })
      .Try(MIF::Transform, [&] {
        MIF::Read(transform_, in);
        return true;
      });
  mid_in_.Def(MIF::MIDSeparators(delimiter_));

  if (!MIF::ReadSpecifier(in, MIF::Columns)) return false;
  int count = 0;
  if (!MIF::Clause::ReadNumber(count, in, true)) return false;
  for (; count > 0; --count) {
    MI::Column column;
    if (!MIF::Read(column, in)) return false;
    columns_.push_back(std::move(column));
  }
  if (!MIF::ReadSpecifier(in, MIF::Data)) return false;
  const bool all_unique = MarkColumns(unique, kUnique);
  return MarkColumns(indexed, kIndexed) && all_unique;
}

bool iMIF::MarkColumns(std::span<const int> numbers, std::uint16_t flag) {
  bool all = true;
  for (const int number : numbers) {
    if (number >= 1 && static_cast<std::size_t>(number) <= columns_.size()) {
      columns_[static_cast<std::size_t>(number) - 1].flags |= flag;
    } else {
      all = false;
    }
  }
  return all;
}

void iMIF::SelectCharSet() {
  const String name = LocStr::UpperCase(charset_name_);
  Chr8C::Id id = Chr8C::Neutral;
  if (name == "WINDOWSLATIN1") id = Chr8C::WindowsLatin1;
  if (name == "ISO8859_1") id = Chr8C::Iso8859_1;
  if (name == "CODEPAGE437") id = Chr8C::CodePage437;
  if (name == "CODEPAGE850") id = Chr8C::CodePage850;
  charset_is_known_ = id != Chr8C::Neutral;
  charset_ = Chr8C::ById(id);
  UpdateMapping();
}

void iMIF::UpdateMapping() {
  mapping_is_active_ = mapping_is_requested_ && charset_is_known_ && charset_.HasTable();
}

void iMIF::SetCharSetMapping(bool mapping) {
  mapping_is_requested_ = mapping;
  UpdateMapping();
  Reset();
}

void iMIF::SetAutoTransform(bool transform) {
  transform_is_requested_ = transform;
  transform_is_active_ = transform && transform_ != MI::Transform();
  Reset();
}

void iMIF::Reset() {
  if (!is_open_) return;
  skipped_.clear();
  mif_in_.SetPos(mif_start_);
  mid_in_.SetPos(mid_start_);
  Next();
}

void iMIF::Next() {
  if (!is_open_) return;
  ReadRow();
  if (is_lenient_) {
    ReadObjectLeniently();
  } else {
    ReadObject();
  }
  if (transform_is_active_ && object_ != nullptr) object_->Apply(transform_);
}

void iMIF::ReadRow() {
  row_.clear();
  value_ends_.clear();
  if (!Tobri::TxtRdr::LookAheadCheck(mid_in_)) return;
  IxText::ArgSep args;
  args.Set(mid_in_, false, false, false);
  bool more = true;
  while (more) {
    value_.Clear();
    more = args.ReadNext(value_);
    // A quote that nothing closes leaves its text and no success.
    if (!more && value_.IsEmpty()) break;
    row_ += mapping_is_active_ ? std::string_view(charset_.ToLoc(value_)) : std::string_view(value_);
    value_ends_.push_back(row_.size());
  }
  args.Skip();
}

void iMIF::ReadObject() {
  if (Tobri::TxtRdr::LookAheadCheck(mif_in_)) {
    MIF::Read(object_, mif_in_, system_);
  } else {
    object_.AssignNull();
  }
}

void iMIF::ReadObjectLeniently() {
  for (ReadObject(); object_ == nullptr; ReadObject()) {
    if (!Tobri::TxtRdr::LookAheadCheck(mif_in_)) return;
    SkipUnknown();
  }
  while (MIF::ReadOptionalClauses(*object_, mif_in_)) {
  }
}

void iMIF::SkipUnknown() {
  IxText& in = mif_in_;
  const std::uint64_t before = in.Offset();
  const Tobri::IBText::LineState line_before = in.Line();
  Tobri::TxtRdr::SkipWS(in);
  const Tobri::IBText::LineState line = in.Line();
  const bool begins_line = line.line != line_before.line || line_before.line_start == before;
  MIF::ReadKW word;
  word.Read(in);
  const bool is_word = !word.text.IsEmpty() && (word.text[0] < '0' || word.text[0] > '9');
  const bool is_object = begins_line && is_word && word.id == MIF::NoKeyWord;
  skipped_.push_back({word.text, static_cast<long>(line.line), is_object});

  int parts = 0;
  if (IsCollection(word)) in.ReadNextSep(parts, Tobri::IntFmt(), false);
  SkipToObject(in);
  SkipParts(parts, in);
  if (is_object) ReadRow();
}

long iMIF::Current() const noexcept {
  return is_open_ ? static_cast<long>(mif_in_.Offset()) : 0;
}

String iMIF::GetAttribute(int i) const {
  if (i < 0 || i >= GetNAttributes()) return String();
  const auto index = static_cast<std::size_t>(i);
  const std::size_t begin = index == 0 ? 0 : value_ends_[index - 1];
  return String(std::string_view(row_).substr(begin, value_ends_[index] - begin));
}

MI::Column iMIF::GetColumn(int i) const {
  if (i < 0 || i >= GetNColumns()) {
    Tobri::Error::Handle(
        Tobri::ArrayIndexErr(static_cast<unsigned>(i), static_cast<unsigned>(columns_.size())));
    return MI::Column(String(), MI::Character_t(), 0, 0);
  }
  return columns_[static_cast<std::size_t>(i)];
}

int iMIF::GetColIndex(const String& name) const {
  const String wanted = LocStr::UpperCase(name);
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (LocStr::UpperCase(columns_[i].name) == wanted) return static_cast<int>(i);
  }
  return -1;
}

MI::CoordSys iMIF::GetCoordSys() const {
  return system_ != nullptr ? *system_ : MI::CoordSys();
}

}  // namespace Pelor
