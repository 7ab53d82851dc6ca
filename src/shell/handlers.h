// The form's handlers behind the events of a window layer.
#pragma once

#include "state/form_events.h"
#include "state/velora.h"

class FormHandlers : public FormEvents {
public:
    explicit FormHandlers(Velora& velora) : m_velora(velora) {}

    void OnPointer(const PointerEvent& event) override;
    void OnTimer(const Timer& timer) override;
    /// Doesn't return.
    void OnClose() override;

private:
    Velora& m_velora;
};
