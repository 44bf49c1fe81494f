#include <pelor/base/file_name.h>
#include <pelor/base/number_format.h>
#include <pelor/mi/build.h>
#include <pelor/mif/clause_text.h>
#include <pelor/mif/column_clause.h>
#include <pelor/mif/coord_sys_clause.h>
#include <pelor/mif/keyword.h>
#include <pelor/mif/object_clauses.h>
#include <pelor/mif/writer.h>

#include <algorithm>
#include <locale>
#include <memory>
#include <string_view>
#include <utility>

namespace Pelor {

using Tobri::Chr8C;
using Tobri::FileSys;
using Tobri::String;

namespace {

constexpr int kPrecision = 10;
constexpr std::size_t kBufferSize = std::size_t{64} * 1024;
constexpr std::uint16_t kIndexed = 1;
constexpr std::uint16_t kUnique = 2;

// The version that the header states.
std::int32_t HeaderVersion(std::int32_t version, bool has_charset) {
  if (version == 1 || version == 100) return 1;
  if (version == 2 || version == 200) return 2;
  return has_charset ? 300 : 2;
}

const char* CharSetName(Chr8C::Id id) {
  switch (id) {
    case Chr8C::Iso8859_1:
      return "ISO8859_1";
    case Chr8C::WindowsLatin1:
      return "WindowsLatin1";
    case Chr8C::CodePage437:
      return "CodePage437";
    case Chr8C::CodePage850:
      return "CodePage850";
    default:
      return "Neutral";
  }
}

bool WidthIsOpen(const MI::Column& column) {
  return (column.flags & MI::Column::kWidthNotGiven) != 0;
}

}  // namespace

oMIF::oMIF()
    : mif_buffer_(std::make_unique_for_overwrite<char[]>(kBufferSize)),
      mid_buffer_(std::make_unique_for_overwrite<char[]>(kBufferSize)) {
  mif_.rdbuf()->pubsetbuf(mif_buffer_.get(), kBufferSize);
  mid_.rdbuf()->pubsetbuf(mid_buffer_.get(), kBufferSize);
  mif_.imbue(std::locale::classic());
  mid_.imbue(std::locale::classic());
  rows_ = std::make_unique<MIF::ClauseText>(mid_);
}

oMIF::~oMIF() {
  Close();
}

void oMIF::Open(const String& name, char delimiter) {
  Close();
  mif_.clear();
  mid_.clear();
  mif_.open(FileSys::RepExt(name, "mif").str());
  mid_.open(FileSys::RepExt(name, "mid").str());
  delimiter_ = delimiter;
  mif_.unsetf(std::ios_base::floatfield);
  mif_.precision(kPrecision);
  pairing_ = Pairing::kIdle;
}

void oMIF::Close() {
  if (header_is_pending_ && !columns_.empty()) BeginData();
  CloseSignal();
  RewriteColumns();
  rows_->Give();
  if (mif_.is_open()) mif_.close();
  if (mid_.is_open()) mid_.close();
  delimiter_ = 0;
  charset_name_.Clear();
  system_.AssignNull();
  transform_ = MI::Transform();
  version_ = 0;
  header_is_pending_ = true;
  attribute_count_ = 0;
  attributes_.clear();
  columns_.clear();
  column_positions_.clear();
}

void oMIF::SetVersion(int version) {
  if (header_is_pending_) version_ = version;
}

void oMIF::SetDelimiter(char delimiter) {
  if (header_is_pending_) delimiter_ = delimiter;
}

void oMIF::SetCharSet(const String& name) {
  if (header_is_pending_) charset_name_ = name;
}

void oMIF::SetCharSet(const Chr8C& set) {
  charset_name_ = CharSetName(set.GetId());
}

void oMIF::SetCoordSys(const MI::CoordSys& system) {
  if (header_is_pending_) system_.Assign(new MI::CoordSys(system));
}

void oMIF::SetWSys(const Tobri::IRefC<MI::CoordSys>& system) {
  if (header_is_pending_) system_ = system;
}

void oMIF::SetTransform(const MI::Transform& transform) {
  if (header_is_pending_) transform_ = transform;
}

void oMIF::AddColumn(const MI::Column& column) {
  if (header_is_pending_) columns_.push_back(column);
}

void oMIF::SetLineFlush(bool flush) {
  MIF::SetLineFlush(mif_, flush);
}

void oMIF::WriteColumnNumbers(const char* keyword, std::uint16_t flag) {
  const char* before = keyword;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if ((columns_[i].flags & flag) == 0) continue;
    mif_ << before;
    Tobri::PutInteger(mif_, i + 1);
    before = ", ";
  }
  if (before != keyword) mif_.put('\n');
}

void oMIF::WriteColumn(const MI::Column& column) {
  mif_.put(' ');
  MIF::Write(column, mif_);
}

void oMIF::WriteHeader() {
  version_ = HeaderVersion(version_, !charset_name_.IsEmpty());
  mif_ << MIF::KeyWordText(MIF::Version) << ' ';
  Tobri::PutInteger(mif_, version_);
  mif_.put('\n');
  if (version_ == 300) mif_ << MIF::KeyWordText(MIF::CharSet) << " \"" << charset_name_ << "\"\n";
  if (delimiter_ != '\t') mif_ << MIF::KeyWordText(MIF::Delimiter) << " \"" << delimiter_ << "\"\n";
  WriteColumnNumbers("Unique ", kUnique);
  WriteColumnNumbers("Index ", kIndexed);
  if (version_ != 1) {
    if (system_ != nullptr) {
      MIF::Write(*system_, mif_);
      mif_.put('\n');
    }
    if (transform_ != MI::Transform()) {
      MIF::Write(transform_, mif_);
      mif_.put('\n');
    }
  }
  mif_ << MIF::KeyWordText(MIF::Columns) << ' ';
  Tobri::PutInteger(mif_, columns_.size());
  mif_.put('\n');
  column_positions_.assign(columns_.size(), -1);
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (WidthIsOpen(columns_[i])) column_positions_[i] = mif_.tellp();
    WriteColumn(columns_[i]);
    mif_.put('\n');
  }
  mif_ << MIF::KeyWordText(MIF::Data) << "\n\n";
  attributes_.assign(columns_.size(), String());
  header_is_pending_ = false;
}

// Puts the columns whose width was not given into their places again. Their text has the same length whatever
// the width.
void oMIF::RewriteColumns() {
  for (std::size_t i = 0; i < column_positions_.size(); ++i) {
    if (column_positions_[i] < 0) continue;
    mif_.seekp(column_positions_[i]);
    WriteColumn(columns_[i]);
  }
}

void oMIF::AddObj(const MI::WObjRf<MI::WObjBody>& object) {
  BeginData();
  AddObjSignal();
  MIF::Write(object, mif_);
}

void oMIF::SetAttribute(int i, const String& value) {
  BeginData();
  if (i < 0 || static_cast<std::size_t>(i) >= columns_.size()) return;
  SetAttrSignal();
  const auto index = static_cast<std::size_t>(i);
  MI::Column& column = columns_[index];
  const auto length = static_cast<std::int32_t>(value.Length());
  if (WidthIsOpen(column) && length > column.width) column.width = length;
  attribute_count_ = std::max(attribute_count_, index + 1);
  attributes_[index].Assign(value);
}

void oMIF::AddAttribute(const String& value) {
  BeginData();
  if (attribute_count_ >= columns_.size()) OvAttrSignal();
  SetAttribute(static_cast<int>(attribute_count_), value);
}

void oMIF::WriteValue(std::string_view text) {
  if (text.find(delimiter_) == std::string_view::npos || delimiter_ == '"') {
    rows_->Put(text);
  } else if (text.find('"') == std::string_view::npos) {
    rows_->PutQuoted(text);
  } else {
    // Intended: this value goes to the MIF file, and the row lacks it.
    MIF::ClauseText quoted(mif_);
    quoted.PutQuoted(text);
    quoted.Give();
  }
}

void oMIF::FlushAttr() {
  BeginData();
  for (std::size_t i = 0; i < attribute_count_; ++i) {
    if (i > 0) rows_->Put(delimiter_);
    WriteValue(attributes_[i]);
    attributes_[i].Clear();
  }
  rows_->Put('\n');
  attribute_count_ = 0;
}

void oMIF::FlushNullObj() {
  BeginData();
  if (no_object_ == nullptr) no_object_ = MI::Build(MI::WObjType_None, nullptr);
  MIF::Write(no_object_, mif_);
}

void oMIF::AddObjSignal() {
  if (pairing_ != Pairing::kIdle) FlushAttr();
  // Pending values belonged to this object; without any, it waits for its own.
  pairing_ = pairing_ == Pairing::kAttributesPending ? Pairing::kIdle : Pairing::kObjectWritten;
}

void oMIF::SetAttrSignal() {
  if (pairing_ == Pairing::kIdle) pairing_ = Pairing::kAttributesPending;
}

void oMIF::OvAttrSignal() {
  FlushAttr();
  if (pairing_ != Pairing::kObjectWritten) FlushNullObj();
  pairing_ = Pairing::kIdle;
}

void oMIF::CloseSignal() {
  if (pairing_ == Pairing::kObjectWritten) {
    FlushAttr();
  } else if (pairing_ == Pairing::kAttributesPending) {
    FlushNullObj();
  }
  pairing_ = Pairing::kClosed;
}

}  // namespace Pelor
