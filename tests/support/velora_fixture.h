// A Velora on the null platform, with a small skin already on the form and a hand on the mouse.
// Where it is used and what came of it fit into texts, `support/use.h` has the words.
#pragma once

#include <gtest/gtest.h>

#include "playback/player_events.h"
#include "shell/handlers.h"
#include "support/null_platform.h"

using Lines = std::vector<std::string>;

/// The form shows a background at (5, 7), seven buttons of 30 by 20 pixels, a volume indicator, two
/// labels and the visualisation; each pair of holders has pictures of its own, and the buttons are
/// at rest.
struct Stage : NullPlatform {
    static constexpr PictureBox Form::*kHolders[] = {
        &Form::picPlay1,     &Form::picPlay2,     &Form::picStop1,     &Form::picStop2,
        &Form::picPause1,    &Form::picPause2,    &Form::picBackward1, &Form::picBackward2,
        &Form::picForeward1, &Form::picForeward2, &Form::picPlaylist1, &Form::picPlaylist2,
        &Form::picEject1,    &Form::picEject2};
    /// Each with its picture at rest.
    static constexpr std::pair<PictureBox Form::*, PictureBox Form::*> kButtons[] = {
        {&Form::picStop, &Form::picStop1},        {&Form::picPlay, &Form::picPlay1},
        {&Form::picPause, &Form::picPause1},      {&Form::picBackward, &Form::picBackward1},
        {&Form::picForward, &Form::picForeward1}, {&Form::picPlaylist, &Form::picPlaylist1},
        {&Form::picEject, &Form::picEject1}};

    Stage() : state(PartsWith(pictures)) {
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
        velora.MediaList[velora.Count] = {true, path, file, type, 1};
        return velora.Count;
    }

    /// Reports the pointer at a place of `control`, or of the form itself without one; `held` once
    /// it happened.
    void Report(PointerKind kind, const Control* control, int x, int y, Integer button,
                Integer keys) {
        if (kind == PointerKind::Press) held = Integer(held | button);
        if (kind == PointerKind::Release) held = Integer(held & ~button);
        for (; control; control = control == &form.picBackground ? nullptr : &form.picBackground) {
            x += int(control->Left);
            y += int(control->Top);
        }
        handlers.OnPointer({kind, x, y, button, held, keys});
        window.Present();
    }
    void Click(const Control& control, Integer button = kLeftButton, Integer shift = 0) {
        Report(PointerKind::Press, &control, 5, 5, button, shift);
        Report(PointerKind::Release, &control, 5, 5, button, shift);
    }

    /// A picture of a button that no other control has.
    static PicturePtr NewPicture() { return std::make_shared<LoadedPicture>(30, 20); }

    NullPictures pictures;
    Velora state;
    Velora& velora = state;
    Form& form = state.frmMain;
    FormHandlers handlers{state};
    PlayerHandlers playerEvents{state};
    Integer held = 0; ///< The mouse buttons that are down.

private:
    void Place(Control& control, Long left, Long top, Long width, Long height) {
        std::tie(control.Left, control.Top, control.Width, control.Height) = {left, top, width,
                                                                              height};
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
        for (const auto holder : kHolders)
            SetPicture(form.*holder, NewPicture());
        Long left = -30; // The first of them never shows.
        for (const auto& [button, holder] : kButtons) {
            SetPicture(form.*button, (form.*holder).Picture);
            Place(form.*button, left, 10, 30, 20);
            left += 40;
        }
        for (Integer light = 1; light <= kLights; ++light)
            form.shpPercent[light].Exists = true;
    }
};

class VeloraTest : public ::testing::Test, protected Stage {};
