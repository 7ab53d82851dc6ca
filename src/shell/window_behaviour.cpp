// Moves and menus wait with events going on, so the mouse is let go before each.
#include "shell/window_behaviour.h"

#include "platform/paths.h"
#include "state/messages.h"

namespace {

struct MenuCommand {
    std::string_view Name;
    void (*Run)(Velora&);
};

// The entries that do something; the others only close the menu.
constexpr MenuCommand kMenuCommands[] = {
    {"mnuRunPressdeck", mnuRunPressdeck_Click},
    {"mnuMinimize", mnuMinimize_Click},
    {"mnuExitVelora", mnuExitVelora_Click},
};

void PopUpMenu(Velora& velora) {
    const std::vector<MenuEntry>& menu = velora.frmMain.Menu;
    ForgetCapture(velora.Capture);
    const std::size_t chosen =
        velora.Window.PopupMenu(menu, MenuIndex(velora.frmMain, "mnuHidden"));
    const std::string_view name = menu[chosen].Name;
    for (const MenuCommand& command : kMenuCommands)
        if (command.Name == name) return command.Run(velora);
    if (velora.Listeners.MenuChosen) velora.Listeners.MenuChosen(name);
}

} // namespace

void ResetObjects(Form& form) {
    form.lblFilescroll.Caption.clear();
    form.lblFilescroll.Visible = false;
    form.lblStatusLabel.Visible = false;
    ClearObject(form.picBackward);
    ClearObject(form.picForward);
    ClearObject(form.picEject);
    ClearObject(form.picPause);
    ClearObject(form.picPlay);
    ClearObject(form.picPlaylist);
    ClearObject(form.picStop);
    form.VFmp3scope1.Visible = false;
}

void ClearObject(PictureBox& box) {
    SetPicture(box, nullptr);
    box.Visible = false;
}

void DragWindow(Velora& velora, Integer button) {
    ForgetCapture(velora.Capture);
    velora.Window.BeginMove(button);
}

void Form_MouseDown(Velora& velora, const MouseEvent& event) {
    if (event.Button == kLeftButton)
        DragWindow(velora, event.Button);
    else
        PopUpMenu(velora);
}

void picBackground_MouseDown(Velora& velora, const MouseEvent& event) {
    Form_MouseDown(velora, event);
}

void lblFilescroll_MouseDown(Velora& velora, const MouseEvent& event) {
    DragWindow(velora, event.Button);
}

void lblStatusLabel_MouseDown(Velora& velora, const MouseEvent& event) {
    DragWindow(velora, event.Button);
}

void mnuMinimize_Click(Velora& velora) {
    velora.frmMain.State = WindowState::Minimised;
}

void mnuExitVelora_Click(Velora& velora) {
    velora.System.EndProcess();
}

void mnuRunPressdeck_Click(Velora& velora) {
    const Text path = velora.System.ApplicationDirectory() + u"\\pressdeck.exe";
    if (!FileExists(path)) {
        ShowMessage(velora, u"Pressdeck could not be found");
        return;
    }
    velora.System.StartProgram(path);
}

void Form_Unload(Velora& velora) {
    velora.VFmp3player1.Stop();
    velora.System.EndProcess();
}
