#include <pelor/mi/build.h>
#include <pelor/mi/objects.h>

#include <cstddef>
#include <iterator>

namespace Pelor::MI {

namespace {

using Creator = WObjBody* (*)(const Tobri::IRefC<CoordSys>& wsys);

template <class Body>
WObjBody* Create(const Tobri::IRefC<CoordSys>& wsys) {
  return new Body(wsys);
}

// By object kind.
constexpr Creator kCreators[] = {
    Create<WNoBody>,  Create<WPointBody>, Create<WLineBody>, Create<WPLineBody>, Create<WRegionBody>,
    Create<WArcBody>, Create<WTextBody>,  Create<WRectBody>, Create<WRRectBody>, Create<WEllipseBody>,
};

}  // namespace

WObjRf<WObjBody> Build(WObjType type, const Tobri::IRefC<CoordSys>& wsys) {
  if (type < 0 || static_cast<std::size_t>(type) >= std::size(kCreators)) return nullptr;
  return WObjRf<WObjBody>(kCreators[type](wsys));
}

}  // namespace Pelor::MI
