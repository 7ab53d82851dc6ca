// Where a window goes that no screen shows any more.
#include "platform/qt/qt_screens.h"

#include <gtest/gtest.h>
#include <vector>

TEST(QtScreensTest, AWindowThatIsNotWhollyOnScreensGoesTheShortestWayToOne) {
    const std::vector<Rect> beside{{0, 0, 800, 600}, {800, 0, 2400, 1200}};
    const std::vector<Rect> one{{0, 0, 800, 600}};
    struct Case {
        const char* Name;
        std::vector<Rect> Screens;
        Rect Window;
        std::optional<Rect> Place;
    };
    const Case cases[] = {
        {"whole", one, {0, 0, 300, 150}, {}},
        {"whole, up to the edges", one, {500, 450, 800, 600}, {}},
        {"on two screens", beside, {700, 100, 1000, 250}, {}},
        {"on two screens and none", beside, {700, 500, 1000, 650}, {{800, 500, 1100, 650}}},
        {"nowhere", one, {1200, 300, 1500, 450}, {{500, 300, 800, 450}}},
        {"nowhere, before all screens", one, {-900, -20, -600, 130}, {{0, 0, 300, 150}}},
        {"half outside", one, {700, 500, 1000, 650}, {{500, 450, 800, 600}}},
        {"below one of two", beside, {400, 620, 700, 770}, {{400, 450, 700, 600}}},
        {"below, but nearer to the other",
         beside,
         {720, 900, 1020, 1050},
         {{800, 900, 1100, 1050}}},
        {"larger than the screen", one, {300, 100, 1300, 900}, {{0, 0, 1000, 800}}},
        {"no screen", {}, {300, 100, 600, 250}, {}},
    };
    for (const Case& each : cases)
        EXPECT_EQ(PlaceOnScreens(each.Window, each.Screens), each.Place) << each.Name;
}
