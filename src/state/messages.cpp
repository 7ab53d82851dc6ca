// The one way to the boxes of the platform: a capture that outlived a box would never see its
// release.
#include "state/messages.h"

void ShowMessage(Velora& velora, const Text& text) {
    ForgetCapture(velora.Capture);
    velora.Dialogs.MessageBox(text, MessageButtons::Ok, MessageIcon::None);
}

bool AskYesNo(Velora& velora, const Text& question) {
    ForgetCapture(velora.Capture);
    return velora.Dialogs.MessageBox(question, MessageButtons::YesNo, MessageIcon::Question) ==
           MessageAnswer::Yes;
}

Text AskForText(Velora& velora, const Text& prompt, const Text& title) {
    ForgetCapture(velora.Capture);
    return velora.Dialogs.InputBox(prompt, title);
}
