// Writes an interchange pair that holds every kind of object, with a row each, reads it again and lists what
// is in it. The pair, PAIR.mif and PAIR.mid, stays for a look.

#include <pelor/mi.h>
#include <pelor/mif.h>

#include <cstdio>
#include <initializer_list>
#include <iostream>
#include <string>

using namespace Pelor;
using Vanth::Angle;
using Vanth::PointXY;
using Vanth::RectXY;

namespace {

using System = Tobri::IRefC<MI::CoordSys>;

// A system of plane metres. All objects share it.
System PlaneMetres() {
  const Vanth::BoundsXY bounds(0.0, 0.0, 10000.0, 10000.0);
  return System(new MI::CoordSys(MI::NonEarth_t(), MI::Units_m, bounds));
}

MI::WPLineObj Polyline(const System& system, const MI::Pen& pen, std::initializer_list<PointXY> vertices) {
  MI::WPLineObj pline(system, pen, false);
  pline->AddPart();
  for (const PointXY& vertex : vertices) pline->AddVertex(vertex);
  return pline;
}

bool WritePair(const std::string& name) {
  const System system = PlaneMetres();
  const MI::Pen pen{2, 2, 0x0000FF};
  const MI::Brush brush{5, 0x00FF00, -1};

  oMIF out(name, ',');
  out.SetLineFlush(false);  // whole buffers instead of a flush at every line
  out.SetVersion(300);
  out.SetCharSet("WindowsLatin1");
  out.SetWSys(system);
  out.AddColumn(MI::Column("Id", MI::Integer_t(), 1));         // the flag 1 makes an index
  out.AddColumn(MI::Column("Name", MI::Character_t(), 0, 0));  // as wide as its longest value

  int id = 0;
  const auto add = [&](const MI::WObjRf<MI::WObjBody>& object, const char* name_of_object) {
    out.AddObj(object);
    out.AddAttribute(std::to_string(++id));
    out.AddAttribute(name_of_object);
  };
  add(MI::Build(MI::WObjType_None, system), "a row without an object");
  add(MI::WPointObj({1200, 800}, system, MI::StdSymbol{35, 0xFF0000, 12}), "well");
  add(MI::WLineObj({0, 0}, {1000, 500}, system, pen), "fence");
  add(Polyline(system, pen, {{0, 0}, {250, 125.5}, {500, 0}}), "brook, upper part");
  add(MI::WRegionObj(Polyline(system, pen, {{0, 0}, {400, 0}, {400, 300}}), brush), "field");
  add(MI::WArcObj(RectXY{0, 0, 200, 100}, Angle(30, Angle::Degrees), Angle(120, Angle::Degrees), system, pen),
      "bend");
  MI::WTextObj text("Main Street", RectXY{100, 100, 300, 120}, system, MI::Font());
  text->SetAngle(Angle(30, Angle::Degrees));
  add(text, "street name");
  add(MI::WRectObj(RectXY{10, 10, 60, 40}, system, pen, brush), "house");
  add(MI::WRRectObj(RectXY{10, 10, 60, 40}, 5, system, pen, brush), "pool");
  add(MI::WEllipseObj(RectXY{70, 10, 90, 20}, system, pen, brush), "pond");
  out.Close();
  return out.MIFStream().good() && out.MIDStream().good();
}

}  // namespace

int main(int argc, char** argv) {
  const std::string name = argc > 1 ? argv[1] : "pair";
  if (!WritePair(name)) {
    std::fprintf(stderr, "%s: cannot be written\n", name.c_str());
    return 1;
  }

  // The reader stands on the second object when it is open: Reset goes to the first.
  iMIF in(name);
  for (in.Reset(); in.IsValid(); in.Next()) {
    for (int i = 0; i < in.GetNAttributes(); ++i) std::cout << (i > 0 ? ": " : "") << in.GetAttribute(i);
    std::cout << '\n';
    MIF::Write(in.GetObj(), std::cout);
  }
  return 0;
}
