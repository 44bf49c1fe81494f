#include "app/pair/coord_sys_text.h"

#include "app/io/failure.h"
#include "app/pair/library_message.h"
#include <pelor/mif.h>

#include <locale>
#include <sstream>
#include <string>

namespace App {

namespace {

namespace MI = Pelor::MI;
namespace MIF = Pelor::MIF;

// A scanner set up like that of a MIF file's header.
void SetUp(Tobri::IxText& in, std::istream& stream) {
  in.Set(stream, "clause");
  in.Def(MIF::Quotes());
  in.Def(MIF::NoComments(), false);
  in.Def(MIF::MIFSeparators());
}

Failure Fault(std::string_view clause, const std::string& reason, std::int64_t column) {
  return Failure("the coordinate system \"" + std::string(clause) + "\" is not understood: " + reason +
                 " at column " + std::to_string(column));
}

bool HasUnits(const MI::CoordSys& system) {
  return system.kind == MI::CoordSys::kNonEarth || system.projection != MI::Projection_LongLat;
}

}  // namespace

Tobri::IRefC<MI::CoordSys> ParseCoordSys(std::string_view clause) {
  std::istringstream stream{std::string(clause)};
  Tobri::IxText in;
  SetUp(in, stream);
  const Tobri::IRef<MI::CoordSys> system(new MI::CoordSys());
  const Tobri::Error::ScopedHandler handler([clause](const Tobri::Error::Msg& message) {
    const LibraryMessage parsed = ParseLibraryMessage(message.what());
    throw Fault(clause, parsed.text, parsed.column);
  });
  static_cast<void>(MIF::Read(*system, in));
  Tobri::TxtRdr::SkipWS(in);
  if (!in.AtEnd()) {
    throw Fault(clause, "nothing may follow", static_cast<std::int64_t>(in.Offset()) + 1);
  }
  if (HasUnits(*system) && MI::GetUnitName(system->units).IsEmpty()) {
    throw Failure("the coordinate system \"" + std::string(clause) + "\" has units that are not known");
  }
  return system;
}

void ThrowIfNotWritable(const MI::CoordSys& system) {
  if (HasUnits(system) && MI::GetUnitName(system.units).IsEmpty()) {
    throw Failure("the units of the coordinate system are not known; give the system with --coordsys");
  }
  if (system.kind == MI::CoordSys::kNonEarth && system.bounds.IsEmpty()) {
    throw Failure(
        "a coordinate system that is not on the earth needs bounds; give the system with --coordsys");
  }
}

bool IsWrittenExactly(const MI::CoordSys& system) {
  constexpr int kDigits = 10;
  std::stringstream stream;
  stream.imbue(std::locale::classic());
  stream.precision(kDigits);
  MIF::Write(system, stream);
  Tobri::IxText in;
  SetUp(in, stream);
  MI::CoordSys read;
  const Tobri::Error::ScopedHandler ignored([](const Tobri::Error::Msg& /*message*/) {});
  return MIF::Read(read, in) && read == system && read.projection == system.projection;
}

}  // namespace App
