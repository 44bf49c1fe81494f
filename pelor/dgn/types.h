#pragma once

#include <pelor/base/export.h>
#include <pelor/base/string.h>

#include <cstdint>

namespace Pelor::DGN {

/// The type number of an element, 0 to 127.
enum EType : std::int32_t {
  CellLibraryHeaderType = 1,
  CellHeaderType = 2,
  LineType = 3,
  LineStringType = 4,
  GroupType = 5,
  ShapeType = 6,
  TextNodeType = 7,
  DigitizerSetupType = 8,
  DesignHeaderType = 9,
  LevelSymbologyType = 10,
  CurveType = 11,
  ComplexStringType = 12,
  ConicType = 13,
  ComplexShapeType = 14,
  EllipseType = 15,
  ArcType = 16,
  TextType = 17,
  SurfaceType = 18,
  SolidType = 19,
  SubfigureType = 20,
  BSplinePoleType = 21,
  PointStringType = 22,
  TruncatedConeType = 23,
  BSplineSurfaceHeaderType = 24,
  BSplineSurfaceBodyType = 25,
  BSplineKnotType = 26,
  BSplineCurveHeaderType = 27,
  BSplineWeightType = 28,
  DimensionType = 33,
  SharedCellDefinitionType = 34,
  SharedCellType = 35,
  MultilineType = 36,
  TextArrayType = 58,
  TextStackType = 59,
  ApplicationType = 66,
  RasterHeaderType = 87,
  RasterComponentType = 88,
};

/// What a displayable element stands for (bits 0-3 of its properties).
enum EClass : std::int32_t {
  PrimaryClass = 0,
  PatternClass = 1,
  ConstructionClass = 2,
  DimensioningClass = 3,
  PrimaryRuleClass = 4,
  LinearPatternedClass = 5,
  ConstructionRuleClass = 6,
};

/// Line style of a displayable element (bits 0-2 of its symbology).
enum SymbStyle : std::int32_t {
  SolidStyle = 0,
  DashedStyle = 1,
  MediumDashedStyle = 2,
  LongDashedStyle = 3,
  DashDotStyle = 4,
  ShortDashedStyle = 5,
  DashDotDotStyle = 6,
  LongDashDashStyle = 7,
};

/// Whether elements of a type have a displayable header.
enum ETypeClass : std::int32_t {
  NonGraphic = 0,
  Displayable = 1,
  UnknownTypeClass = 2,
};

[[nodiscard]] PELOR_EXPORT ETypeClass TypeClass(EType type) noexcept;
/// True for the header elements that own components.
[[nodiscard]] PELOR_EXPORT bool IsComplex(EType type) noexcept;

// Display names; numbers without one give "Unknown ... (number)".

[[nodiscard]] PELOR_EXPORT Tobri::String Name(EType type);
[[nodiscard]] PELOR_EXPORT Tobri::String Name(EClass element_class);
[[nodiscard]] PELOR_EXPORT Tobri::String Name(SymbStyle style);

}  // namespace Pelor::DGN
