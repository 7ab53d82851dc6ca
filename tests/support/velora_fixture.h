// A Velora on the null platform, with a small skin already on the form and a hand on the mouse.
#pragma once

#include <gtest/gtest.h>

#include "playback/player_events.h"
#include "shell/handlers.h"
#include "support/null_platform.h"

using Lines = std::vector<std::string>;

/// The form shows a background at (5, 7), six buttons of 30 by 20 pixels, a volume indicator, two labels and
/// the visualisation; each pair of holders has pictures of its own, and the buttons are at rest.
class VeloraTest : public ::testing::Test, protected NullPlatform {
protected:
    VeloraTest() : state(PartsWith(pictures)) {
        window.Attach(form);
        loop.Attach(form, handlers);
        loop.AfterEvent = [this] { window.Present(); };
        DressForm();
        velora.MediaLimit = 2500;
        window.ShowFirst();
        (void)journal.Take();
    }

    /// An entry of the media list, as a playlist would add it.
    Integer AddEntry(const Text& path, const Text& file, Long type = 3) {
        ++velora.Count;
        velora.MediaList[static_cast<std::size_t>(velora.Count)] = {true, path, file, type, 1};
        return velora.Count;
    }

    // The mouse. Places are pixels from the control's corner.
    void Press(const Control& control, int x, int y, Integer button = kLeftButton, Integer shift = 0) {
        m_held = static_cast<Integer>(m_held | button);
        Point(PointerKind::Press, control, x, y, button, shift);
    }
    void Release(const Control& control, int x, int y, Integer button = kLeftButton, Integer shift = 0) {
        m_held = static_cast<Integer>(m_held & ~button);
        Point(PointerKind::Release, control, x, y, button, shift);
    }
    void Move(const Control& control, int x, int y) { Point(PointerKind::Move, control, x, y, kNoButton, 0); }
    void Click(const Control& control, Integer button = kLeftButton, Integer shift = 0) {
        Press(control, 5, 5, button, shift);
        Release(control, 5, 5, button, shift);
    }
    /// The last button goes up where the form can't see it.
    void LoseMouse() {
        m_held = 0;
        handlers.OnPointer({PointerKind::Lost, 0, 0, kNoButton, 0, 0});
    }

    /// What the player was asked since the journal was last taken.
    Lines TakePlayerLines() {
        Lines lines = journal.Take();
        std::erase_if(lines, [](const std::string& line) { return !line.starts_with("Player."); });
        return lines;
    }

    /// A picture of a button that no other control has.
    static PicturePtr NewPicture() { return std::make_shared<LoadedPicture>(30, 20); }

    NullPictures pictures;
    Velora state;
    Velora& velora = state;
    Form& form = state.frmMain;
    FormHandlers handlers{state};
    PlayerHandlers playerEvents{state};

private:
    void Point(PointerKind kind, const Control& control, int x, int y, Integer button, Integer shift) {
        const bool child = &control != &form.picBackground;
        const int left = static_cast<int>(control.Left + (child ? form.picBackground.Left : 0));
        const int top = static_cast<int>(control.Top + (child ? form.picBackground.Top : 0));
        handlers.OnPointer({kind, left + x, top + y, button, m_held, shift});
        window.Present();
    }

    void Place(Control& control, Long left, Long top, Long width, Long height) {
        control.Left = left;
        control.Top = top;
        control.Width = width;
        control.Height = height;
        control.Visible = true;
    }

    void DressForm() {
        form.Width = (420 + 6) * kTwipsPerPixel;
        form.Height = (220 + 25) * kTwipsPerPixel;
        Place(form.picBackground, 5, 7, 400, 200);
        Place(form.picVolume, 10, 50, 20, 100);
        Place(form.lblStatusLabel, 100, 100, 80, 15);
        Place(form.lblFilescroll, 200, 100, 80, 15);
        Place(form.VFmp3scope1, 300, 100, 50, 50);
        for (PictureBox* holder :
             {&form.picPlay1, &form.picPlay2, &form.picStop1, &form.picStop2, &form.picPause1,
              &form.picPause2, &form.picBackward1, &form.picBackward2, &form.picForeward1, &form.picForeward2,
              &form.picPlaylist1, &form.picPlaylist2, &form.picEject1, &form.picEject2})
            SetPicture(*holder, NewPicture());
        const std::pair<PictureBox*, PictureBox*> buttons[] = {
            {&form.picPlay, &form.picPlay1},         {&form.picPause, &form.picPause1},
            {&form.picBackward, &form.picBackward1}, {&form.picForward, &form.picForeward1},
            {&form.picPlaylist, &form.picPlaylist1}, {&form.picEject, &form.picEject1}};
        Long left = 10;
        for (const auto& [button, holder] : buttons) {
            SetPicture(*button, holder->Picture);
            Place(*button, left, 10, 30, 20);
            left += 40;
        }
        for (std::size_t light = 1; light <= kLights; ++light)
            form.shpPercent[light].Exists = true;
    }

    Integer m_held = 0;
};
