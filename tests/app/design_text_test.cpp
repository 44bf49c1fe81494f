#include "app/design/skip_reasons.h"
#include "app/design/text_decoder.h"
#include "app/io/failure.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <tests/app/design_conversion.h>
#include <tests/app/design_elements.h>

// One unit of resolution is 0.0001 master units here.

namespace App {
namespace {

using app_test::Conversion;
using app_test::Convert;
using app_test::ElementBytes;
using app_test::Longs;

// Multipliers for characters so many units of resolution wide and high: 500 of them make three units.
int Multiplier(int uors) {
  return uors * 500 / 3;
}

struct TextSample {
  std::string characters = "HELLO";
  int width = 600;
  int height = 900;
  double degrees = 0;
  int x = 10000;
  int y = 20000;
  int justification = 2;
  bool component = false;
  int weight = 0;
};

std::string TextBytes(const TextSample& sample) {
  std::string characters = sample.characters;
  const auto count = static_cast<unsigned>(characters.size());
  if (characters.size() % 2 != 0) characters += '\0';
  constexpr const char* kDigits = "0123456789ABCDEF";
  const auto hex = [&](unsigned char c) { return std::string{kDigits[c >> 4], kDigits[c & 15]}; };
  std::string words = "00" + hex(static_cast<unsigned char>(count)) + ' ';
  for (std::size_t i = 0; i < characters.size(); i += 2) {
    words += hex(static_cast<unsigned char>(characters[i + 1])) +
             hex(static_cast<unsigned char>(characters[i])) + ' ';
  }
  return ElementBytes({.type = 17,
                       .body = hex(static_cast<unsigned char>(sample.justification)) + "07 " +
                               Longs({Multiplier(sample.width), Multiplier(sample.height),
                                      std::llround(sample.degrees * 360000), sample.x, sample.y}) +
                               words,
                       .component = sample.component,
                       .weight = sample.weight});
}

std::string NodeBytes(int lines, const std::string& components) {
  constexpr const char* kDigits = "0123456789ABCDEF";
  const std::size_t words = 1 + components.size() / 2;
  std::string hex;
  for (int i = 3; i >= 0; --i) hex += kDigits[words >> (4 * i) & 15U];
  return ElementBytes({.type = 7, .body = hex + " 000" + std::to_string(lines)}) + components;
}

constexpr const char* kFont = " | Font (\"Arial\", 0, 0, 0)";

TEST(DesignTextTest, GivesATextAsItsBox) {
  const Conversion result = Convert(TextBytes({}));
  EXPECT_EQ(result.Objects(), "Text \"HELLO\" | 1 2 1.3 2.09" + std::string(kFont) + "\n");
  EXPECT_EQ(result.rows.at(0).back(), "HELLO");
  EXPECT_EQ(result.Counts(), "Text 1=1+0");
}

TEST(DesignTextTest, PutsTheUpperLeftCornerWhereTheTurnAboutItLeavesTheOrigin) {
  // At 90 degrees the text's top is 0.09 to the left of its origin.
  EXPECT_EQ(Convert(TextBytes({.degrees = 90})).Objects(),
            "Text \"HELLO\" | 0.91 1.91 1.21 2" + std::string(kFont) + " |  Angle 90\n");
  // At 30 degrees: U = (1, 2) + 0.09 * (-sin 30, cos 30) = (0.955, 2.0779422863...).
  EXPECT_EQ(Convert(TextBytes({.degrees = 30})).Objects(),
            "Text \"HELLO\" | 0.955 1.987942286 1.255 2.077942286" + std::string(kFont) + " |  Angle 30\n");
  EXPECT_EQ(Convert(TextBytes({.degrees = -90})).Objects(),
            "Text \"HELLO\" | 1.09 1.91 1.39 2" + std::string(kFont) + " |  Angle 270\n");
}

TEST(DesignTextTest, LeavesTheOriginWhereItIsWhateverTheJustification) {
  const char* const clauses[] = {"",
                                 "",
                                 "",
                                 "",
                                 "",
                                 "",
                                 " |  Justify Center",
                                 " |  Justify Center",
                                 " |  Justify Center",
                                 " |  Justify Right",
                                 " |  Justify Right",
                                 " |  Justify Right",
                                 " |  Justify Right",
                                 " |  Justify Right",
                                 " |  Justify Right"};
  for (int i = 0; i < 15; ++i) {
    EXPECT_EQ(Convert(TextBytes({.justification = i})).Objects(),
              "Text \"HELLO\" | 1 2 1.3 2.09" + std::string(kFont) + clauses[i] + "\n")
        << i;
  }
}

TEST(DesignTextTest, MakesHeavyTextsBold) {
  EXPECT_EQ(Convert(TextBytes({.weight = 2})).Objects(),
            "Text \"HELLO\" | 1 2 1.3 2.09 | Font (\"Arial\", 1, 0, 0)\n");
}

TEST(DesignTextTest, UnmirrorsAndSaysSo) {
  const Conversion back = Convert(TextBytes({.width = -600}));
  EXPECT_EQ(back.Objects(), "Text \"HELLO\" | 0.7 2 1 2.09" + std::string(kFont) + "\n");
  EXPECT_EQ(back.Counts(), "Text 1=1+0 approximated{" + std::string(Reason::kMirrored) + " 1}");
  const Conversion down = Convert(TextBytes({.height = -900}));
  EXPECT_EQ(down.Objects(), "Text \"HELLO\" | 1 1.91 1.3 2" + std::string(kFont) + "\n");
  EXPECT_EQ(down.Counts(), "Text 1=1+0 approximated{" + std::string(Reason::kMirrored) + " 1}");
}

TEST(DesignTextTest, TakesBothSizesNegativeForATurn) {
  const Conversion result = Convert(TextBytes({.width = -600, .height = -900}));
  // Turned by 180 degrees about (1, 2), the top is at 1.91.
  EXPECT_EQ(result.Objects(), "Text \"HELLO\" | 1 1.82 1.3 1.91" + std::string(kFont) + " |  Angle 180\n");
  EXPECT_EQ(result.Counts(), "Text 1=1+0");
}

TEST(DesignTextTest, SkipsTextsWithoutCharactersAndDamagedOnes) {
  std::string damaged = TextBytes({});
  damaged[58] = 7;
  EXPECT_EQ(Convert(TextBytes({.characters = ""}) + TextBytes({.characters = std::string(2, '\0')}) + damaged)
                .Counts(),
            "Text 3=0+3 skipped{damaged: holds less than it tells 1, no characters 2}");
}

TEST(DesignTextTest, ConvertsTheCharacterSetAskedFor) {
  DesignOptions options;
  options.charset = "WindowsCyrillic";
  const Conversion result = Convert(TextBytes({.characters = "\xC4\xE0"}), options);
  // Two characters of 0.06, though four bytes.
  EXPECT_EQ(result.Objects(), "Text \"\u0414\u0430\" | 1 2 1.12 2.09" + std::string(kFont) + "\n");
  EXPECT_EQ(result.rows.at(0).back(), "\u0414\u0430");
}

TEST(DesignTextTest, GuessesWhenNoCharacterSetIsAskedFor) {
  const auto guessed = [](const Conversion& result) {
    const auto& said = result.account.GetAssumptions();
    return std::find(said.begin(), said.end(),
                     "texts that are not UTF-8 are taken as Western European (Windows Latin 1)") !=
           said.end();
  };
  const Conversion utf8 = Convert(TextBytes({.characters = "\u0414\u0430"}));
  EXPECT_EQ(utf8.rows.at(0).back(), "\u0414\u0430");
  EXPECT_FALSE(guessed(utf8));
  const Conversion western = Convert(TextBytes({.characters = "Stra\xDF\x65"}));
  EXPECT_EQ(western.rows.at(0).back(), "Stra\u00DFe");
  EXPECT_TRUE(guessed(western));
}

TEST(DesignTextTest, RefusesACharacterSetNobodyKnows) {
  EXPECT_THROW(TextDecoder("Klingon"), Failure);
}

TEST(DesignTextTest, GivesControlCharactersAsBlanks) {
  EXPECT_EQ(Convert(TextBytes({.characters = std::string("A\tB\x7F\0C\0\0", 8)})).rows.at(0).back(),
            "A B  C");
}

TEST(DesignTextTest, ChoosesTextsByTheirTurnedBox) {
  DesignOptions options;
  // The box of the text as it stands is left of this window, the box that is stored reaches into it.
  options.window = Vanth::BoundsXY(1.05, 1.0, 3, 3);
  EXPECT_EQ(Convert(TextBytes({.degrees = 90}), options).Counts(),
            "Text 1=0+1 skipped{outside the window 1}");
  options.window = Vanth::BoundsXY(0.92, 2.25, 0.95, 2.4);
  EXPECT_EQ(Convert(TextBytes({.degrees = 90}), options).Counts(), "Text 1=1+0");
}

// --- nodes

TEST(DesignTextTest, GivesTheLinesOfANodeAsOneTextWithLineBreaks) {
  const std::string lines = TextBytes({.characters = "ONE", .y = 20000, .component = true, .weight = 2}) +
                            TextBytes({.characters = "THREE", .y = 18650, .component = true});
  const Conversion result = Convert(NodeBytes(2, lines) + TextBytes({}));
  EXPECT_EQ(result.objects.at(0),
            "Text \"ONE\\nTHREE\" | 1 1.865 1.3 2.09 | Font (\"Arial\", 1, 0, 0) |  Spacing 1.5");
  EXPECT_EQ(result.objects.size(), 2U);
  EXPECT_EQ(result.rows.at(0).at(0), "Text Node");
  EXPECT_EQ(result.rows.at(0).back(), "ONE\\nTHREE");
  EXPECT_EQ(result.Counts(), "Text 1=1+0; Text Node 1=1+0");
}

TEST(DesignTextTest, SaysWhenATextLooksLikeALineBreak) {
  const std::string reason = " approximated{" + std::string(Reason::kLineBreak) + " 1}";
  const Conversion text = Convert(TextBytes({.characters = "C:\\new"}) +
                                  TextBytes({.characters = "C:\\old"}) + TextBytes({.characters = "n\\"}));
  EXPECT_EQ(text.rows.at(0).back(), "C:\\new") << "as it stands";
  EXPECT_EQ(text.Counts(), "Text 3=3+0" + reason);
  const auto node = [](const char* first, const char* second) {
    return NodeBytes(2, TextBytes({.characters = first, .component = true}) +
                            TextBytes({.characters = second, .y = 19100, .component = true}));
  };
  EXPECT_EQ(Convert(node("A", "B\\nC")).Counts(), "Text Node 1=1+0" + reason);
  EXPECT_EQ(Convert(node("A", "nB")).Counts(), "Text Node 1=1+0");
}

TEST(DesignTextTest, FindsTheSpacingOfANode) {
  const auto clause = [](int pitch) {
    const std::string lines = TextBytes({.y = 20000, .component = true}) +
                              TextBytes({.y = 20000 - pitch, .component = true}) +
                              TextBytes({.y = 20000 - 2 * pitch, .component = true});
    const std::string object = Convert(NodeBytes(3, lines)).objects.at(0);
    const std::size_t at = object.find("Spacing");
    return at == std::string::npos ? std::string() : object.substr(at);
  };
  EXPECT_EQ(clause(900), "");
  EXPECT_EQ(clause(1120), "");
  EXPECT_EQ(clause(1130), "Spacing 1.5");
  EXPECT_EQ(clause(1570), "Spacing 1.5");
  EXPECT_EQ(clause(1580), "Spacing 2");
}

TEST(DesignTextTest, BoxesATurnedNodeInItsOwnDirection) {
  // Upwards; the second line stands to the right of the first one.
  const std::string lines = TextBytes({.characters = "AB", .degrees = 90, .x = 10000, .component = true}) +
                            TextBytes({.characters = "CDE", .degrees = 90, .x = 10900, .component = true});
  // As it lies: 0.18 high and as long as the longer line, its upper left corner at (0.91, 2).
  EXPECT_EQ(Convert(NodeBytes(2, lines)).objects.at(0),
            "Text \"AB\\nCDE\" | 0.91 1.82 1.09 2" + std::string(kFont) + " |  Angle 90");
}

TEST(DesignTextTest, SaysWhenTheLinesOfANodeAreNotAlike) {
  const std::string lines =
      TextBytes({.component = true}) + TextBytes({.height = 1800, .y = 18000, .component = true});
  EXPECT_EQ(Convert(NodeBytes(2, lines)).Counts(),
            "Text Node 1=1+0 approximated{" + std::string(Reason::kMixedLines) + " 1}");
  EXPECT_EQ(Convert(NodeBytes(2, TextBytes({.component = true}) +
                                     TextBytes({.degrees = 1, .y = 18000, .component = true})))
                .Counts(),
            "Text Node 1=1+0 approximated{" + std::string(Reason::kMixedLines) + " 1}");
}

TEST(DesignTextTest, SkipsAnEmptyNodeAndSaysWhenLinesAreMissing) {
  EXPECT_EQ(Convert(NodeBytes(0, "")).Counts(), "Text Node 1=0+1 skipped{no characters 1}");
  EXPECT_EQ(Convert(NodeBytes(2, TextBytes({.component = true}))).Counts(),
            "Text Node 1=1+0 approximated{" + std::string(Reason::kLostComponents) + " 1}");
}

}  // namespace
}  // namespace App
