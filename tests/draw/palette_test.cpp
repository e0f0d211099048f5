#include "draw/palette.h"

#include <gtest/gtest.h>

#include "support/color_vision.h"

namespace kvt::test {
namespace {

// What has to be told apart by its colour; the rest differs by its shape or is none of the path.
constexpr Ink strokes[] = {Ink::Rapid, Ink::Feed,   Ink::ArcG02,    Ink::ArcG03,
                           Ink::Cycle, Ink::Thread, Ink::PocketRow, Ink::Pen};
// Strokes of the tool's width, and what is drawn on them.
constexpr Ink broad[] = {Ink::Feed, Ink::ArcG02, Ink::ArcG03};

TEST(PaletteTest, ItsRowsStandInTheOrderOfTheirMeanings) {
    int place = 0;
    for (const InkRow& row : InkRows()) EXPECT_EQ(static_cast<int>(row.Of), place++);
}

// Whoever sees no red or no green has two dimensions of colour left for eight meanings.
TEST(PaletteTest, DistinctColoursAreToldApartWithoutRedAndGreen) {
    constexpr double apart = 23;  // ten times what can just be noticed
    for (const bool white : {false, true}) {
        for (const Vision& vision : Visions()) {
            for (const Ink one : strokes) {
                for (const Ink other : strokes) {
                    if (one >= other) continue;
                    EXPECT_GE(Difference(InkOf(one, white, true), InkOf(other, white, true), vision), apart)
                        << vision.Name << (white ? " on white: " : " on black: ") << static_cast<int>(one)
                        << " and " << static_cast<int>(other);
                }
            }
        }
    }
    // The usual ones are not all: that is what the others are for.
    EXPECT_LT(Difference(InkOf(Ink::Rapid, false, false), InkOf(Ink::Thread, false, false), Visions()[1]),
              apart);
}

TEST(PaletteTest, DistinctColoursStandOutFromTheirGround) {
    for (const bool white : {false, true}) {
        const Color ground = InkOf(Ink::Ground, white, true);
        for (const Ink one : strokes) {
            if (one == Ink::PocketRow) continue;  // an area, on which the path is drawn
            EXPECT_GE(Contrast(InkOf(one, white, true), ground), 3) << white << static_cast<int>(one);
        }
        for (const Ink one : broad) {
            const Color centre = InkOf(Ink::ToolCentre, white, true);
            EXPECT_GE(Contrast(InkOf(one, white, true), centre), 2) << white << static_cast<int>(one);
            EXPECT_GE(Contrast(centre, ground), 3);
        }
    }
}

}  // namespace
}  // namespace kvt::test
