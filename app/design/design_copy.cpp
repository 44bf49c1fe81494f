#include "app/design/design_copy.h"

#include "app/design/cell_header.h"
#include "app/design/skip_reasons.h"

#include <utility>

namespace App {

using namespace Pelor;

namespace {

constexpr unsigned kLevels = 64;

bool HoldsSettings(DGN::EType type) {
  switch (type) {
    case DGN::CellLibraryHeaderType:
    case DGN::GroupType:
    case DGN::DigitizerSetupType:
    case DGN::DesignHeaderType:
    case DGN::LevelSymbologyType:
    case DGN::ApplicationType:
      return true;
    default:
      return false;
  }
}

std::string_view View(const ElementView& element) {
  return {element.Bytes().data(), element.Bytes().size()};
}

}  // namespace

DesignCopy::DesignCopy(const Input& input, const std::filesystem::path& output,
                       std::unique_ptr<OutputFiles> files, const DesignCopyOptions& options)
    : options_(options), files_(std::move(files)), cursor_(input), out_(files_->Add(output), output) {
  const DesignHeader header = DesignHeader::Find(cursor_.File());
  scale_ = DesignScale(header, options_.units);
  cursor_.SetIs3D(header.is_3d);
}

bool DesignCopy::Next(Account& account) {
  if (!cursor_.Peek()) {
    if (cursor_.GetEnd() == ElementCursor::End::kNoEndWord) {
      account.Assume("the file has no end-of-design word: the design ends where the file does");
    }
    return false;
  }
  const ElementView& element = cursor_.Element();
  const std::string_view kind = ElementKind(element.Type());
  const Place place = cursor_.GetPlace();
  account.Read(kind);
  const std::string_view reason = WhyLeftOut(element);
  const bool is_chosen = reason.empty();
  if (is_chosen && !HoldsSettings(element.Type())) has_graphics_ = true;
  const ComponentRun run(element, place);
  if (is_chosen) out_.Bytes().Raw(View(element));
  cursor_.Take();
  while (cursor_.Peek() && run.Takes(element, cursor_.GetPlace())) {
    if (is_chosen) out_.Bytes().Raw(View(element));
    cursor_.Take();
    out_.FlushIfFull();
  }
  out_.FlushIfFull();
  if (is_chosen) {
    account.Written(kind);
    // The header still tells of what the file's end has taken away.
    if (cursor_.EndsBefore(run.End())) account.Approximated(kind, Reason::kLostComponents, place);
  } else {
    account.Skipped(kind, reason, place);
  }
  return true;
}

void DesignCopy::Close() {
  out_.Finish();
  out_.Close();
  files_->Commit();
}

std::string_view DesignCopy::WhyLeftOut(const ElementView& element) const {
  if (!element.IsWhole()) return Reason::kCutOff;
  if (element.Header().IsDeleted() && !options_.with_deleted) return Reason::kDeleted;
  const DGN::EType type = element.Type();
  if (HoldsSettings(type)) return {};
  if (!options_.types.Contains(static_cast<unsigned>(type))) return Reason::kOtherType;
  if (!IsOnChosenLevel(element)) return Reason::kOtherLevel;
  if (!element.HasDisplayableHeader()) return {};
  if (!options_.classes.Contains(static_cast<unsigned>(element.Header().Class()))) return Reason::kOtherClass;
  if (!IsInWindow(element)) return Reason::kOutside;
  return {};
}

bool DesignCopy::IsOnChosenLevel(const ElementView& element) const {
  if (options_.levels.Contains(element.Header().Level())) return true;
  const auto cell = CellHeader::Decode(element);
  if (!cell) return false;
  for (unsigned level = 0; level < kLevels; ++level) {
    const bool is_used = (cell->level_map[level / 16] >> level % 16 & 1U) != 0;
    if (is_used && options_.levels.Contains(level)) return true;
  }
  return false;
}

bool DesignCopy::IsInWindow(const ElementView& element) const {
  if (!options_.window) return true;
  const DGN::CoordsRange& range = element.Header().range;
  const Vanth::BoundsXY& window = *options_.window;
  return scale_.X(range.xlow) <= window.Max().x && scale_.X(range.xhigh) >= window.Min().x &&
         scale_.Y(range.ylow) <= window.Max().y && scale_.Y(range.yhigh) >= window.Min().y;
}

}  // namespace App
