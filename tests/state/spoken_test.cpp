// What a screen reader is told about the window.
#include <algorithm>

#include "state/spoken.h"
#include "state/stack.h"
#include "support/velora_fixture.h"

namespace {

class Spoken : public VeloraTest {
protected:
    Text NameOf(std::string_view control) {
        for (const SpokenControl& spoken : SpokenControls(velora))
            if (spoken.ControlName == control) return spoken.Name;
        return u"(not spoken)";
    }
};

} // namespace

TEST_F(Spoken, EveryVisibleControlHasANameButTheGroundAndTheBars) {
    const std::vector<SpokenControl> controls = SpokenControls(velora);
    for (const StackedControl& row : ControlStack(form)) {
        if (row.Source == &form.picBackground || row.Source == &form.VFmp3scope1) continue;
        if (row.Source == &form.shpPercent[0]) continue;
        const auto spoken = std::find_if(controls.begin(), controls.end(), [&](const SpokenControl& each) {
            return each.ControlName == row.Source->Name;
        });
        ASSERT_NE(spoken, controls.end()) << row.Source->Name;
        EXPECT_FALSE(spoken->Name.empty()) << row.Source->Name;
    }
}

TEST_F(Spoken, ThePlayButtonIsCalledByItsPicture) {
    SetPicture(form.picPlay, form.picPlay1.Picture);
    EXPECT_EQ(NameOf("picPlay"), u"Play");
    SetPicture(form.picPlay, form.picStop2.Picture);
    EXPECT_EQ(NameOf("picPlay"), u"Stop");
}

TEST_F(Spoken, TheTitleIsTitleAndArtistAndStaysWhileTheTextRuns) {
    form.lblFilescroll.Visible = true;
    EXPECT_EQ(NameOf("lblFilescroll"), u"Title");
    velora.CurrentTrack = AddEntry(u"\\m\\", u"song.mp3");
    form.lblFilescroll.Caption = u"song ... ";
    EXPECT_EQ(NameOf("lblFilescroll"), u"song.mp3");
    velora.TrackTitle = u"Song";
    velora.TrackArtist = u"Singer";
    EXPECT_EQ(NameOf("lblFilescroll"), u"Song by Singer");
    form.lblFilescroll.Caption = u"ong ... s";
    EXPECT_EQ(NameOf("lblFilescroll"), u"Song by Singer");
}

TEST_F(Spoken, OfANameOfMegabytesTheStartIsTold) {
    form.lblFilescroll.Visible = true;
    form.lblFilescroll.Caption = u"aaa";
    velora.CurrentTrack = AddEntry(u"\\m\\", Text(4 << 20, u'a'));
    EXPECT_EQ(NameOf("lblFilescroll"), Text(1000, u'a'));
}

TEST_F(Spoken, TheLightsAreOneProgressBar) {
    for (std::size_t index = 1; index < form.shpPercent.size(); ++index) {
        Shape& light = form.shpPercent[index];
        light.Exists = light.Visible = true;
        light.Left = static_cast<Long>(10 * index);
        light.Top = 20;
        light.Width = light.Height = 8;
        light.FillColour = index <= 5 ? 0x00FFFF : 0x0000FF;
    }
    const std::vector<SpokenControl> controls = SpokenControls(velora);
    const auto bar = std::find_if(controls.begin(), controls.end(), [](const SpokenControl& each) {
        return each.Role == SpokenRole::ProgressBar;
    });
    ASSERT_NE(bar, controls.end());
    EXPECT_EQ(bar->Value, 5);
    EXPECT_EQ(bar->Most, 13);
    const Long left = form.picBackground.Left, top = form.picBackground.Top;
    EXPECT_EQ(bar->Place, (Rect{left + 10, top + 20, left + 138, top + 28}));
}
