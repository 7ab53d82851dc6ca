// A box takes the pointer away: the release of a held button goes to it, or to nobody.
#include "state/messages.h"

void ShowMessage(Velora& velora, const Text& text) {
    ForgetCapture(velora.Capture);
    velora.Dialogs.MessageBox(text, MessageButtons::Ok, MessageIcon::None);
}
