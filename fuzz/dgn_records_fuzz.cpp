// Takes the input as a design file and decodes every element as every kind of record, from a file and back
// into it, and converts what was read to points.

#include <pelor/base/error.h>
#include <pelor/dgn.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <ios>
#include <string>
#include <unistd.h>

namespace {

using namespace Pelor::DGN;

void Check(bool holds) {
  if (!holds) std::abort();
}

template <class Record>
Record Decode(File& file) {
  file.clear();
  const Record record(file);
  return record;
}

void CheckPoints(const Vanth::ArcXY& arc, std::size_t most) {
  Check(arc.Points().size() <= most);
}

/// Every record of the current element, whatever its type; `parameters` is the design header seen last.
void DecodeAll(File& file, Parameters& parameters) {
  // A sweep of up to 2^31 - 1 units is less than 17 turns.
  constexpr double kMinStep = 0.1;
  constexpr std::size_t kMostPoints = 17 * 63 + 1;
  const ToArc converter(parameters, 0.01, Vanth::Angle(kMinStep), Vanth::Angle(1.0));

  CheckPoints(converter.Arc(Decode<Line2D>(file)), 2);
  (void)Decode<Line3D>(file);
  const auto line_string = Decode<LineString2D>(file);
  Check(line_string.count == line_string.points.size());
  Check(line_string.count * 8U <= file.EBodySize());
  CheckPoints(converter.Arc(line_string, false), line_string.count);
  CheckPoints(converter.Arc(line_string, true), line_string.count);
  CheckPoints(converter.Arc(Decode<Ellipse2D>(file)), 64);
  (void)Trans3D(Decode<Ellipse3D>(file).rotation, 1.0);
  CheckPoints(converter.Arc(Decode<Arc2D>(file)), kMostPoints);
  const auto text = Decode<Text2D>(file);
  Check(text.char_count == text.text.Length());
  Check(text.field_count == text.fields.size());
  (void)Decode<ComplexStrH>(file);
  if (file.GetEHeader().Type() == DesignHeaderType) {
    file.clear();
    parameters.Read(file);
  }
}

/// Reads the current element as each record that fits it, and writes that back.
void Rewrite(File& file) {
  file.clear();
  switch (file.GetEHeader().Type()) {
    case LineType:
      Line3D(file).Write(file);
      break;
    case EllipseType:
      Ellipse3D(file).Write(file);
      break;
    case ArcType:
      Arc2D(file).Write(file);
      break;
    case TextType:
      Text2D(file).Write(file);
      break;
    case ComplexStringType:
      ComplexStrH(file).Write(file);
      break;
    case DesignHeaderType:
      Parameters(file).Write(file);
      break;
    default:
      LineString2D(file).Write(file);
      break;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const std::string name = "/tmp/pelor_dgn_records_" + std::to_string(getpid()) + ".dgn";
  std::ofstream(name, std::ios_base::binary)
      .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
  const Tobri::Error::ScopedHandler ignore([](const Tobri::Error::Msg&) {});

  for (const std::ios_base::openmode mode : {std::ios_base::in, std::ios_base::in | std::ios_base::out}) {
    File file(name, mode);
    Parameters parameters;
    parameters.Search(file);
    file.clear();
    file.Restart();
    while (file) {
      DecodeAll(file, parameters);
      if (file.IsWritable()) Rewrite(file);
      file.clear();
      file.Next(false);
    }
  }
  std::remove(name.c_str());
  return 0;
}
