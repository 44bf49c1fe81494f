#include <pelor/mi/build.h>
#include <pelor/mi/objects.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <tests/mi/objects.h>
#include <typeindex>
#include <typeinfo>

namespace Pelor::MI {
namespace {

struct KindCase {
  std::int32_t code;
  std::type_index body;
};

TEST(BuildTest, EveryKindGivesItsBodyInTheCoordinateSystem) {
  const Tobri::IRefC<CoordSys> wsys = MakeCoordSys();
  for (const KindCase& kind :
       {KindCase{0, typeid(WNoBody)}, KindCase{1, typeid(WPointBody)}, KindCase{2, typeid(WLineBody)},
        KindCase{3, typeid(WPLineBody)}, KindCase{4, typeid(WRegionBody)}, KindCase{5, typeid(WArcBody)},
        KindCase{6, typeid(WTextBody)}, KindCase{7, typeid(WRectBody)}, KindCase{8, typeid(WRRectBody)},
        KindCase{9, typeid(WEllipseBody)}}) {
    const WObjRf<WObjBody> object = Build(static_cast<WObjType>(kind.code), wsys);
    ASSERT_NE(object, nullptr) << kind.code;
    const WObjBody& body = *object;
    EXPECT_EQ(std::type_index(typeid(body)), kind.body) << kind.code;
    EXPECT_EQ(body.GetType(), kind.code);
    EXPECT_EQ(body.GetWSys(), wsys);
    EXPECT_EQ(body.RefCount(), 1U);
  }
}

TEST(BuildTest, AnUnknownKindGivesNull) {
  for (const std::int32_t code :
       {-1, 10, 45, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()}) {
    EXPECT_EQ(Build(static_cast<WObjType>(code), nullptr), nullptr) << code;
  }
}

}  // namespace
}  // namespace Pelor::MI
