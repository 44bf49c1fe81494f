#include "app/pair/pair_source.h"

#include "app/convert/arc_sweep.h"
#include "app/io/system_failure.h"
#include "app/pair/header_fault.h"
#include "app/pair/header_transform.h"
#include "app/pair/library_message.h"
#include "app/pair/object_texts.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <span>
#include <utility>

namespace App {

namespace {

namespace MI = Pelor::MI;
namespace MIF = Pelor::MIF;
using Tobri::Error::Msg;
using Tobri::Error::ScopedHandler;

// What is taken where a header says nothing, and most programs write.
constexpr std::string_view kUsualCharset = "WindowsLatin1";

constexpr std::string_view kUnknownKind = "unknown object";
constexpr std::string_view kRowKind = "row";
constexpr std::string_view kBadStyle = "malformed style clause: the usual style is taken";
constexpr std::string_view kKeptInPart = "malformed: what could be read is kept";
constexpr std::string_view kOnlyRow = "malformed: only its row is kept";
constexpr std::string_view kNoRow = "its row is missing or empty";
constexpr std::string_view kFewValues = "its row has fewer values than there are columns";
constexpr std::string_view kManyValues = "its row has more values than there are columns";

// Kinds that later versions of the format have, by their keyword in capitals.
std::string_view LaterKind(const Tobri::String& word) {
  const Tobri::String upper = Tobri::LocStr::UpperCase(word);
  if (upper == "MULTIPOINT") return "Multipoint";
  if (upper == "COLLECTION") return "Collection";
  return {};
}

// Whether a message is about a style clause. The coordinates of its object were read by then.
bool IsAboutStyle(std::string_view message) {
  constexpr std::array<std::string_view, 4> kStyles = {"Invalid Pen", "Invalid Brush", "Invalid Symbol",
                                                       "Invalid Font"};
  return std::find(kStyles.begin(), kStyles.end(), message) != kStyles.end();
}

bool HasPart(const MI::WPLineBody& line, std::size_t least) {
  for (int part = 0; part < line.GetNParts(); ++part) {
    if (line.Vertices(part).size() >= least) return true;
  }
  return false;
}

// Whether there is something to keep of an object whose coordinates may not have been read whole.
bool IsWorthKeeping(const MI::WObjBody& object) {
  switch (object.GetType()) {
    case MI::WObjType_PLine:
      return HasPart(static_cast<const MI::WPLineBody&>(object), 2);
    case MI::WObjType_Region:
      // Its rings are closed.
      return HasPart(*static_cast<const MI::WRegionBody&>(object).GetOutline(), 4);
    case MI::WObjType_Text: {
      // The label point tells: once the box was read it is its centre, until a clause gives another.
      const auto& text = static_cast<const MI::WTextBody&>(object);
      return text.GetLabelKind() != 0 || text.GetLabelPoint() == text.GetBox().Center();
    }
    default:
      return false;
  }
}

// The library writes angles within one turn, and measures arcs so: a whole turn would come to nothing.
void MakeWholeTurnAnEllipse(Feature& feature) {
  if (feature.object->GetType() != MI::WObjType_Arc) return;
  const auto& arc = static_cast<const MI::WArcBody&>(*feature.object);
  if (!IsWholeTurn(arc)) return;
  MI::Brush empty;
  empty.pattern = 1;
  feature.object = MI::WEllipseObj(arc.GetRect(), arc.GetWSys(), arc.GetPen(), empty);
}

}  // namespace

PairSource::PairSource(const Input& input, std::string_view charset) : input_(input), name_(input) {
  Open();
  ChooseCharset(charset);
  ReadSchema();
  for (std::size_t type = 0; type < kinds_.size(); ++type) {
    kinds_[type] = MIF::KeyWordText(static_cast<MIF::KeyWord>(MIF::None + type)).str();
  }
}

void PairSource::Open() {
  // The library takes a MID file that cannot be read for one that is not there.
  if (!input_.mid.empty()) {
    std::ifstream mid(input_.mid);
    mid.peek();
    if (!mid.is_open() || mid.bad()) throw SystemFailure(input_.mid, "cannot be read", errno);
  }
  std::int64_t messages = 0;
  LibraryMessage first;
  const ScopedHandler handler([&](const Msg& message) {
    if (messages++ == 0) first = ParseLibraryMessage(message.what());
  });
  reader_.SetLenient(true);
  errno = 0;
  reader_.Open(name_.Get().string());
  if (reader_.Total() == 0) throw SystemFailure(input_.path, "cannot be read", errno);
  if (messages == 0) return;
  // Opening has read the header and the first two objects. Those tell their faults again.
  const LibraryMessage fault = first;
  const std::int64_t when_opened = std::exchange(messages, 0);
  reader_.Reset();
  reader_.Next();
  if (when_opened > messages) {
    throw ExplainHeaderFault(input_.path, fault, std::string_view(reader_.GetCharSetName()));
  }
}

void PairSource::ChooseCharset(std::string_view charset) {
  const Tobri::String stated = reader_.GetCharSetName();
  charset_ = charset.empty() ? stated.str() : std::string(charset);
  if (charset_.empty()) {
    charset_ = kUsualCharset;
    charset_is_assumed_ = true;
  } else if (charset.empty() && !IsKnownCharset(charset_)) {
    unknown_charset_ = std::exchange(charset_, "Neutral");
  }
  transcoder_.emplace(charset_, Transcoder::Direction::kToUtf8);
}

void PairSource::ReadSchema() {
  for (int i = 0; i < reader_.GetNColumns(); ++i) {
    MI::Column column = reader_.GetColumn(i);
    column.name = Tobri::String(transcoder_->Convert(column.name));
    schema_.columns.push_back(std::move(column));
  }
  schema_.system = reader_.GetWSys();
  transform_ = reader_.GetTransform();
  has_unused_factor_ = ReplaceUnusedFactors(transform_);
  has_transform_ = transform_ != MI::Transform();
}

bool PairSource::Next(Feature& feature, Account& account) {
  if (has_ended_) return false;
  Advance(account);
  CountSkipped(account);
  if (!reader_.IsValid()) {
    CountRest(account);
    has_ended_ = true;
    return false;
  }
  ++number_;
  TakeObject(feature, account);
  TakeValues(feature, account);
  return true;
}

void PairSource::Advance(Account& account) {
  fault_.reset();
  const ScopedHandler handler([this](const Msg& message) {
    if (fault_) return;
    LibraryMessage parsed = ParseLibraryMessage(message.what());
    fault_ = Fault{std::move(parsed.text), parsed.line};
  });
  if (has_begun_) {
    reader_.Next();
    return;
  }
  has_begun_ = true;
  StateAssumptions(account);
  // The reader, which stands on the second object, goes to the first one by that.
  reader_.SetAutoTransform(false);
}

void PairSource::StateAssumptions(Account& account) const {
  if (input_.mid.empty()) account.Assume(input_.path.string() + " has no MID file: all values are empty");
  if (!unknown_charset_.empty()) {
    account.Assume("the character set \"" + unknown_charset_ + "\" of " + input_.path.string() +
                   " is unknown: texts are taken as they are");
  }
  if (has_unused_factor_) {
    account.Assume("the transform of " + input_.path.string() + " has a factor of 0, which is taken as 1");
  }
}

// Counts what the reader passed over on its way to the object at hand.
void PairSource::CountSkipped(Account& account) {
  const auto skipped = reader_.Skipped().subspan(skipped_seen_);
  skipped_seen_ += skipped.size();
  for (const Pelor::iMIF::SkippedPart& part : skipped) {
    if (part.is_object) {
      const Place place{++number_, part.line};
      const std::string_view later = LaterKind(part.word);
      const std::string_view kind = later.empty() ? kUnknownKind : later;
      account.Read(kind);
      account.Skipped(kind,
                      later.empty() ? "no kind of object has this name" : "objects of this kind are not read",
                      place);
    } else if (kind_.empty()) {
      account.Assume("what stands before the first object of " + input_.path.string() + " means nothing");
    } else {
      account.Approximated(kind_, "what stands behind it is no clause of it", {number_, part.line});
    }
  }
}

void PairSource::TakeObject(Feature& feature, Account& account) {
  feature.object = reader_.GetObj();
  feature.kind = kinds_[static_cast<std::size_t>(feature.object->GetType())];
  feature.count = 1;
  feature.place = {number_, fault_ ? fault_->line : 0};
  kind_ = feature.kind;
  account.Read(kind_);
  if (fault_) {
    std::string_view reason = kBadStyle;
    if (!IsAboutStyle(fault_->text)) {
      const bool keeps = IsWorthKeeping(*feature.object);
      if (!keeps) feature.object = MI::Build(MI::WObjType_None, schema_.system);
      reason = keeps ? kKeptInPart : kOnlyRow;
    }
    account.Approximated(kind_, reason, feature.place);
  }
  MakeWholeTurnAnEllipse(feature);
  if (has_transform_) ApplyTransform(*feature.object, transform_);
  if (feature.object->GetType() == MI::WObjType_Line) {
    // The library makes a line that says nothing of its pen invisible. Its writers meant the usual pen.
    auto& line = static_cast<MI::WLineBody&>(*feature.object);
    if (line.GetPen() == MI::Pen{0, 1, 0}) line.SetPen(MI::Pen());
  }
}

void PairSource::TakeValues(Feature& feature, Account& account) {
  const std::int64_t invalid = transcoder_->GetInvalid();
  ConvertTexts(*feature.object, *transcoder_);
  const std::size_t columns = schema_.columns.size();
  const auto values = static_cast<std::size_t>(reader_.GetNAttributes());
  feature.values.resize(columns);
  bool is_ascii = true;
  for (std::size_t i = 0; i < columns; ++i) {
    Tobri::String value = reader_.GetAttribute(static_cast<int>(i));
    const std::string_view converted = transcoder_->Convert(value);
    if (converted.data() == value.c_str()) {
      feature.values[i] = std::move(value);
    } else {
      feature.values[i] = converted;
      is_ascii = false;
    }
  }
  CheckRow(values, account);
  if (transcoder_->GetInvalid() != invalid) {
    account.Approximated(kind_, "bytes that are no character of " + charset_ + " are kept as they are",
                         feature.place);
  }
  if (charset_is_assumed_ && !is_ascii) {
    account.Assume(input_.path.string() + " does not say its character set: " + charset_ + " is assumed");
  }
}

void PairSource::CheckRow(std::size_t values, Account& account) {
  const std::size_t columns = schema_.columns.size();
  const Place place{number_, 0};
  if (values > columns) account.Approximated(kind_, kManyValues, place);
  if (input_.mid.empty() || values >= columns) {
    rows_without_value_ = 0;
  } else if (columns == 1) {
    // An empty value, or no row: the end of the file will tell.
    ++rows_without_value_;
  } else {
    account.Approximated(kind_, values == 0 ? kNoRow : kFewValues, place);
  }
}

// Counts what remains of the rows when there are no more objects.
void PairSource::CountRest(Account& account) {
  if (rows_without_value_ > 0) {
    const std::int64_t missing = rows_without_value_ - CountBlankRowsAtEnd();
    const Place place{number_ - rows_without_value_ + 1, 0};
    if (missing > 0) account.Approximated(kind_, kNoRow, place, missing);
  }
  std::int64_t row = number_;
  for (; reader_.GetNAttributes() > 0; reader_.Next()) {
    account.Read(kRowKind);
    account.Skipped(kRowKind, "there is no object for it", {++row, 0});
  }
}

// How many blank lines end the MID file, as far as they matter: no more than there are rows in question.
std::int64_t PairSource::CountBlankRowsAtEnd() const {
  std::ifstream mid(input_.mid, std::ios::binary | std::ios::ate);
  const std::int64_t size = mid.tellg();
  // Lines that end with CR LF take two bytes.
  const std::int64_t most = 2 * (rows_without_value_ + 1);
  std::string end(
      static_cast<std::size_t>(std::clamp<std::int64_t>(most, 0, std::max<std::int64_t>(size, 0))), '\0');
  mid.seekg(size - static_cast<std::int64_t>(end.size()));
  mid.read(end.data(), static_cast<std::streamsize>(end.size()));
  std::int64_t line_ends = 0;
  std::size_t length = end.size();
  while (length > 0 && (end[length - 1] == '\n' || end[length - 1] == '\r')) {
    const bool is_pair = length > 1 && end[length - 1] == '\n' && end[length - 2] == '\r';
    length -= is_pair ? 2 : 1;
    ++line_ends;
  }
  // The first of them ends the last row that is not blank, if there is one.
  return length == 0 && std::cmp_equal(end.size(), size) ? line_ends
                                                         : std::max<std::int64_t>(line_ends - 1, 0);
}

}  // namespace App
