// Which procedure each timer calls.
#include "shell/handlers.h"

#include "display/ticker.h"
#include "playback/seeking.h"
#include "shell/mouse.h"
#include "shell/window_behaviour.h"

namespace {

struct TimerRow {
    Timer Form::*Source;
    void (*Tick)(Velora&);
};

constexpr TimerRow kTimers[] = {
    {&Form::tmrSeekBackward, tmrSeekBackward_Timer},
    {&Form::tmrSeekForward, tmrSeekForward_Timer},
    {&Form::tmrScrollFiletitle, tmrScrollFiletitle_Timer},
};

} // namespace

void FormHandlers::OnPointer(const PointerEvent& event) {
    HandlePointer(m_velora, event);
}

void FormHandlers::OnTimer(const Timer& timer) {
    for (const TimerRow& row : kTimers)
        if (&(m_velora.frmMain.*row.Source) == &timer) row.Tick(m_velora);
}

void FormHandlers::OnClose() {
    Form_Unload(m_velora);
}
