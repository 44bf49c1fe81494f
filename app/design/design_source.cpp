#include "app/design/design_source.h"

#include "app/design/skip_reasons.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace App {

using namespace Pelor;

namespace {

// Every open group is looked at with every element.
constexpr std::size_t kDeepest = 32;

PathSettings MakePathSettings(const DesignHeader& header, const DesignOptions& options) {
  PathSettings settings;
  settings.tolerance = options.tolerance * header.UorsPer(options.units);
  // Heights are whole units: the nearest one is at the origin's.
  settings.origin_z = std::floor(header.origin[2] + 0.5);
  return settings;
}

}  // namespace

DesignSource::DesignSource(const Input& input, DesignOptions options)
    : options_(std::move(options)),
      cursor_(input),
      header_(DesignHeader::Find(cursor_.File())),
      decoder_(options_.charset),
      maker_(DesignScale(header_, options_.units), colors_, options_.system),
      path_settings_(MakePathSettings(header_, options_)) {
  cursor_.SetIs3D(header_.is_3d);
  colors_.KeepIndex0(options_.keep_color_0);
  for (const DesignColumn column : options_.columns) schema_.columns.push_back(MakeColumn(column));
  schema_.system = options_.system;
  FindColors();
}

// The table stands in front of what is drawn with it; but nothing says how far in front.
void DesignSource::FindColors() {
  while (cursor_.Peek() && !cursor_.Element().HasDisplayableHeader()) {
    if (colors_.Decode(cursor_.Element())) break;
    cursor_.Take();
  }
  cursor_.Restart();
}

bool DesignSource::Next(Feature& feature, Account& account) {
  feature_ = &feature;
  account_ = &account;
  if (next_point_ && NextOfPointString()) return true;
  while (cursor_.Peek()) {
    std::size_t open = 0;
    while (open < groups_.size() && groups_[open].run.Takes(cursor_.Element(), cursor_.GetPlace())) ++open;
    PopGroups(open);
    if (Convert()) return true;
  }
  PopGroups(0);
  SayWhatIsAssumed();
  return false;
}

void DesignSource::SayWhatIsAssumed() {
  if (!header_.found) {
    account_->Assume("the design has no header: taken as two-dimensional, one unit of resolution per unit");
  } else if (!header_.HasUnits()) {
    account_->Assume("the working units of the design are not positive: one unit of resolution per unit");
  }
  if (!colors_.IsFromFile()) account_->Assume("the design has no colour table: the default colours are used");
  if (decoder_.HasGuessed()) {
    account_->Assume("texts that are not UTF-8 are taken as Western European (Windows Latin 1)");
  }
  if (cursor_.GetEnd() == ElementCursor::End::kNoEndWord) {
    account_->Assume("the file has no end-of-design word: the design ends where the file does");
  }
}

// --- groups

void DesignSource::PopGroups(std::size_t left) {
  while (groups_.size() > left) {
    Group& group = groups_.back();
    CountGroup(group, WhyNothingGiven(group));
    if (group.is_written && cursor_.EndsBefore(group.run.End())) {
      account_->Approximated(group.kind, Reason::kLostComponents, group.place);
    }
    groups_.pop_back();
  }
}

// Of a group none of whose components was given: nothing is lost when the user has not asked for any of them.
std::string_view DesignSource::WhyNothingGiven(const Group& group) noexcept {
  const std::string_view reason = group.left_out.empty() ? group.not_chosen : group.left_out;
  return !reason.empty() && Reason::IsExpected(reason) ? reason : Reason::kNoComponents;
}

// Tells a group why something in it was skipped. A loss counts for more than what was not chosen.
void DesignSource::LeaveOut(Group& group, std::string_view reason) noexcept {
  if (group.is_counted || group.left_out == reason) return;
  if (group.left_out.empty() || !Reason::IsExpected(reason)) group.left_out = reason;
}

// Counts the header of a group as skipped, or as written when there is no reason to.
void DesignSource::CountGroup(Group& group, std::string_view skip_reason) {
  if (group.is_counted) return;
  group.is_counted = true;
  if (skip_reason.empty()) {
    account_->Written(group.kind);
    group.is_written = true;
    if (group.is_boundary) account_->Approximated(group.kind, Reason::kBoundary, group.place);
    return;
  }
  account_->Skipped(group.kind, skip_reason, group.place);
  for (Group& outer : groups_) LeaveOut(outer, skip_reason);
}

// Opens a group with the element that the facts tell of as its header.
void DesignSource::PushGroup(const ComponentRun& run, std::string cell) {
  Group group;
  group.run = run;
  group.cell = std::move(cell);
  if (group.cell.empty() && !groups_.empty()) group.cell = groups_.back().cell;
  group.linkages.database = facts_.linkages.database;
  group.kind = facts_.Kind();
  group.place = facts_.place;
  group.is_type_chosen = options_.types.Contains(static_cast<unsigned>(facts_.type)) ||
                         (!groups_.empty() && groups_.back().is_type_chosen);
  group.is_deleted = facts_.is_deleted;
  group.is_boundary = facts_.type == DGN::SurfaceType || facts_.type == DGN::SolidType;
  group.not_chosen = WhyNotChosen();
  groups_.push_back(std::move(group));
  Group& pushed = groups_.back();
  if (pushed.is_deleted && !options_.with_deleted) {
    CountGroup(pushed, Reason::kDeleted);
  } else if (!pushed.is_type_chosen) {
    CountGroup(pushed, Reason::kOtherType);
  }
}

void DesignSource::SkipComponents(const ComponentRun& run) {
  while (cursor_.Peek() && run.Takes(cursor_.Element(), cursor_.GetPlace())) cursor_.Take();
}

// --- elements

bool DesignSource::Convert() {
  const ElementView& element = cursor_.Element();
  cursor_.Take();
  notes_.clear();
  facts_ = ElementFacts(element, cursor_.GetPlace());
  account_->Read(facts_.Kind());
  const ComponentRun run(element, facts_.place);
  if (!element.IsWhole()) return Skip(Reason::kCutOff);
  if (!element.HasDisplayableHeader()) return SkipWithoutGraphics(element, run);

  if (!groups_.empty()) {
    const Group& group = groups_.back();
    facts_.is_deleted = facts_.is_deleted || group.is_deleted;
    if (!facts_.linkages.database) facts_.linkages.database = group.linkages.database;
  } else if (element.Header().IsComponent() && !DGN::IsComplex(facts_.type)) {
    Note(Reason::kStrayComponent);
  }
  if (facts_.type == DGN::CellHeaderType) return ConvertCell(element, run);
  if (facts_.type == DGN::SurfaceType || facts_.type == DGN::SolidType) return ConvertSurface(run);
  if (const std::string_view reason = WhyNotChosen(); !reason.empty()) {
    Skip(reason);
    SkipComponents(run);
    return false;
  }
  return ConvertByType(element, run);
}

bool DesignSource::ConvertByType(const ElementView& element, const ComponentRun& run) {
  switch (facts_.type) {
    case DGN::LineType:
      return ConvertLine(element);
    case DGN::LineStringType:
    case DGN::ShapeType:
      return ConvertVertices(element);
    case DGN::CurveType:
      return ConvertCurve(element);
    case DGN::PointStringType:
      return ConvertPointString(element);
    case DGN::EllipseType:
    case DGN::ArcType:
      return ConvertEllipse(element);
    case DGN::TextType:
      return ConvertText(element);
    case DGN::TextNodeType:
      return ConvertTextNode(run);
    case DGN::ComplexStringType:
    case DGN::ComplexShapeType:
      return ConvertComplex(run);
    case DGN::BSplineCurveHeaderType:
      return ConvertSpline(element);
    case DGN::BSplineKnotType:
    case DGN::BSplinePoleType:
    case DGN::BSplineWeightType:
    case DGN::BSplineSurfaceBodyType:
      return Skip(Reason::kStrayComponent);
    case DGN::SharedCellDefinitionType:
    case DGN::SharedCellType:
      Skip(Reason::kSharedCell);
      break;
    default:
      Skip(Reason::kNoCounterpart);
      break;
  }
  SkipComponents(run);
  return false;
}

bool DesignSource::SkipWithoutGraphics(const ElementView& element, const ComponentRun& run) {
  const auto lost = [this](std::string_view reason) {
    return options_.types.Contains(static_cast<unsigned>(facts_.type)) ? reason : Reason::kOtherType;
  };
  switch (facts_.type) {
    case DGN::DigitizerSetupType:
    case DGN::DesignHeaderType:
    case DGN::LevelSymbologyType:
      return Skip(Reason::kHeaderData);
    case DGN::GroupType:
      (void)colors_.Decode(element);
      return Skip(Reason::kGroupData);
    case DGN::ApplicationType:
      return Skip(Reason::kApplicationData);
    case DGN::CellLibraryHeaderType:
    case DGN::SubfigureType:
      return Skip(lost(Reason::kLibraryData));
    case DGN::RasterHeaderType:
    case DGN::TextArrayType:
    case DGN::TextStackType:
      Skip(lost(Reason::kNoCounterpart));
      SkipComponents(run);
      return false;
    default:
      break;
  }
  return Skip(lost(IsDisplayed(facts_.type) ? Reason::kShortHeader : Reason::kUnknownType));
}

// --- cells and what is like them

bool DesignSource::ConvertCell(const ElementView& element, const ComponentRun& run) {
  const bool is_left_out = facts_.is_deleted && !options_.with_deleted;
  const auto cell = CellHeader::Decode(element);
  if (groups_.size() >= kDeepest) return Skip(Reason::kTooDeep);
  if (!cell || is_left_out) {
    PushGroup(run, cell ? cell->name : std::string());
    CountGroup(groups_.back(), Reason::kDamaged);
    return false;
  }
  if (cell->name.empty() && IsCellWithHoles(run)) return ConvertCellWithHoles(run);
  if (options_.cells == CellMode::kExplode) {
    PushGroup(run, cell->name);
    return false;
  }

  const std::string_view reason = WhyNotChosen();
  PushGroup(run, cell->name);
  if (!reason.empty()) CountGroup(groups_.back(), reason);
  groups_.back().is_counted = true;
  bool is_given = false;
  if (reason.empty()) {
    const Vanth::PointXY origin{static_cast<double>(cell->origin[0]), static_cast<double>(cell->origin[1])};
    maker_.Point(*feature_, origin, MakeCellSymbol(facts_.symbology, colors_));
    if (header_.is_3d && cell->origin[2] != path_settings_.origin_z) Note(Reason::kHeight);
    is_given = Give();
  }
  if (options_.cells == CellMode::kPoint) {
    account_->Assume("cells are given as points at their origins, without their components");
    SkipComponents(run);
    PopGroups(groups_.size() - 1);
  }
  return is_given;
}

bool DesignSource::ConvertSurface(const ComponentRun& run) {
  if (groups_.size() >= kDeepest) return Skip(Reason::kTooDeep);
  PushGroup(run, std::string());
  return false;
}

// Whether all that follows are areas, some of them holes. The cursor stays where it is.
bool DesignSource::IsCellWithHoles(const ComponentRun& run) {
  if (!cursor_.Peek()) return false;
  const Place first = cursor_.GetPlace();
  int holes = 0;
  int others = 0;
  bool are_areas = true;
  while (are_areas && cursor_.Peek() && run.Takes(cursor_.Element(), cursor_.GetPlace())) {
    const ElementView& component = cursor_.Element();
    const ComponentRun inner(component, cursor_.GetPlace());
    are_areas = component.Type() == DGN::ShapeType || component.Type() == DGN::ComplexShapeType ||
                component.Type() == DGN::EllipseType;
    if (!IsLeftOut(component)) ++(component.Header().IsHole() ? holes : others);
    cursor_.Take();
    if (component.Type() == DGN::ComplexShapeType) SkipComponents(inner);
  }
  cursor_.Return(first);
  return are_areas && holes > 0 && others > 0;
}

bool DesignSource::ConvertCellWithHoles(const ComponentRun& run) {
  path_.Clear();
  bool has_outline = false;
  const ElementFacts cell = facts_;
  while (cursor_.Peek() && run.Takes(cursor_.Element(), cursor_.GetPlace())) {
    const ElementView& component = cursor_.Element();
    const ElementFacts facts(component, cursor_.GetPlace());
    const ComponentRun inner(component, cursor_.GetPlace());
    const bool is_left_out = IsLeftOut(component);
    cursor_.Take();
    if (!is_left_out && !facts.is_hole && !has_outline) {
      // The area looks like its outline, and stands where the cell does.
      has_outline = true;
      facts_ = facts;
      facts_.type = cell.type;
      facts_.place = cell.place;
      if (cell.linkages.database) facts_.linkages.database = cell.linkages.database;
      if (!facts_.linkages.fill_color) facts_.linkages.fill_color = cell.linkages.fill_color;
    }
    if (is_left_out) {
      SkipComponents(inner);
      continue;
    }
    path_.BeginPart();
    if (facts.type == DGN::ComplexShapeType) {
      (void)JoinComponents(inner);
    } else if (piece_.Read(component, path_settings_)) {
      if (facts.type == DGN::EllipseType) Note(Reason::kFlattened);
      (void)path_.Join(piece_);  // with nothing before it in its part
    } else {
      Note(Reason::kLostComponents);
    }
    path_.CloseExactly();
  }
  if (const std::string_view reason = WhyNotChosen(); !reason.empty()) return Skip(reason);
  return GiveArea();
}

// --- the end of every conversion

std::string_view DesignSource::WhyNotChosen() const noexcept {
  if (facts_.is_deleted && !options_.with_deleted) return Reason::kDeleted;
  const bool is_type_chosen = options_.types.Contains(static_cast<unsigned>(facts_.type)) ||
                              (!groups_.empty() && groups_.back().is_type_chosen);
  if (!is_type_chosen) return Reason::kOtherType;
  if (!options_.levels.Contains(facts_.level)) return Reason::kOtherLevel;
  if (!options_.classes.Contains(facts_.element_class)) return Reason::kOtherClass;
  return {};
}

bool DesignSource::IsInWindow(const Vanth::BoundsXY& bounds) const noexcept {
  if (!options_.window) return true;
  const Vanth::BoundsXY& window = *options_.window;
  return bounds.Min().x <= window.Max().x && bounds.Max().x >= window.Min().x &&
         bounds.Min().y <= window.Max().y && bounds.Max().y >= window.Min().y;
}

// Keeps a reason why the feature will not be all that the element was.
void DesignSource::Note(std::string_view reason) {
  if (std::find(notes_.begin(), notes_.end(), reason) == notes_.end()) notes_.push_back(reason);
}

bool DesignSource::Skip(std::string_view reason) {
  account_->Skipped(facts_.Kind(), reason, facts_.place);
  for (Group& group : groups_) LeaveOut(group, reason);
  return false;
}

bool DesignSource::Give(std::string_view text) {
  if (options_.window && !IsInWindow(CoveredBounds(*feature_->object))) return Skip(Reason::kOutside);
  return GiveAlways(1, text);
}

bool DesignSource::GiveAlways(std::int64_t count, std::string_view text) {
  const std::string_view kind = facts_.Kind();
  for (const std::string_view reason : notes_) account_->Approximated(kind, reason, facts_.place);
  notes_.clear();
  for (Group& group : groups_) CountGroup(group, {});
  feature_->kind = kind;
  feature_->count = count;
  feature_->place = facts_.place;
  const std::string_view cell = groups_.empty() ? std::string_view() : groups_.back().cell;
  FillValues(options_.columns, facts_, cell, text, feature_->values);
  return true;
}

}  // namespace App
