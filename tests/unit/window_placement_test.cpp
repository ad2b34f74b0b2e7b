// The frame placement text and the rules for storing it in [GUI].
#include "settings/window_placement.h"

#include <gtest/gtest.h>

#include "editor_fixture.h"

namespace ruvo {
namespace {

using PlacementTest = EditorTest;

TEST(PlacementText, ReadsWithAnySingleSeparatorAndKeepsTheDefaultForWhatItCannotRead) {
    const WindowPlacement standard{};
    const struct {
        const char* text;
        WindowPlacement placement;
    } cases[] = {
        {"10, 20, 640, 480", {10, 20, 640, 480}}, {"10,20,640,480", {10, 20, 640, 480}},
        {"10;20x640 480", {10, 20, 640, 480}},    {"-8, -8, 1296, 1010", {-8, -8, 1296, 1010}},
        // The separator is the one character after a number: a blank before the comma ends it.
        {"  10 ,20 , 640 , 480", {10, 0, 600, 400}},
        {"", standard}, {"garbage", standard}, {DefaultMainWindow, standard},
        {"5, 6", {5, 6, 600, 400}}, {"5, 6, x, 7", {5, 6, 600, 400}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ParsePlacement(c.text), c.placement) << c.text;

    EXPECT_EQ(FormatPlacement({-4, 12, 1024, 700}), "-4, 12, 1024, 700");
    for (const WindowPlacement p : {WindowPlacement{1, 2, 3, 4}, WindowPlacement{-100, 50, 0, 9},
                                    WindowPlacement{2147483647, -2147483647, 7, 8}}) {
        EXPECT_EQ(ParsePlacement(FormatPlacement(p)), p);
    }
}

TEST_F(PlacementTest, StartUpReadsStoredValuesOrDefaults) {
    EXPECT_EQ(ReadMainWindow(), WindowPlacement{});
    EXPECT_TRUE(ReadFullSize());

    host.SetProfile("GUI", "MainWindow", "30,40,800,600");
    host.SetProfile("GUI", "FullSize", "no");
    EXPECT_EQ(ReadMainWindow(), (WindowPlacement{30, 40, 800, 600}));
    EXPECT_FALSE(ReadFullSize());

    host.SetProfile("gui", "fullsize", "TRUE");
    EXPECT_TRUE(ReadFullSize());
}

TEST_F(PlacementTest, SizeStoresPlacementOnlyWhenNotMaximised) {
    EXPECT_TRUE(FrameSized({true, false, false}, {10, 20, 700, 500}));
    EXPECT_EQ(host.ProfileValue("GUI", "MainWindow"), "10, 20, 700, 500");
    EXPECT_EQ(host.ProfileValue("GUI", "FullSize"), "no");

    // Maximising and then closing leaves FullSize yes and the last normal placement.
    EXPECT_TRUE(FrameSized({true, false, true}, {-8, -8, 1296, 1010}));
    EXPECT_EQ(host.ProfileValue("GUI", "FullSize"), "yes");
    EXPECT_EQ(ReadMainWindow(), (WindowPlacement{10, 20, 700, 500}));
}

TEST_F(PlacementTest, MinimisedHiddenOrMerelyMovedFrameStoresNothing) {
    // Before it is shown the frame still lays out its children, but stores nothing.
    EXPECT_FALSE(FrameSized({true, true, false}, {0, 0, 160, 30}));
    EXPECT_TRUE(FrameSized({false, false, false}, {0, 0, 600, 400}));
    // A move stores only with a size change waiting, and only for a shown, normal frame.
    FrameMoved({true, false, false}, false, {5, 5, 600, 400});
    FrameMoved({true, true, false}, true, {5, 5, 600, 400});
    FrameMoved({false, false, false}, true, {5, 5, 600, 400});
    EXPECT_FALSE(host.ProfileValue("GUI", "MainWindow").has_value());
    EXPECT_FALSE(host.ProfileValue("GUI", "FullSize").has_value());

    FrameMoved({true, false, false}, true, {5, 6, 610, 420});
    EXPECT_EQ(host.ProfileValue("GUI", "MainWindow"), "5, 6, 610, 420");
    EXPECT_FALSE(host.ProfileValue("GUI", "FullSize").has_value())
        << "a move never touches FullSize";
}

} // namespace
} // namespace ruvo
