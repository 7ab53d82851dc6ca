// A context that has failed can't be used again: each attempt makes a new one.
#include "platform/audio/output/pulse_server.h"

#include <pulse/context.h>
#include <pulse/mainloop.h>
#include <pulse/proplist.h>
#include <utility>

PulseServer::PulseServer(pa_mainloop* loop, std::string address)
    : m_loop(loop), m_address(std::move(address)) {}

PulseServer::~PulseServer() {
    Disconnect();
}

void PulseServer::Disconnect() {
    if (!m_context) return;
    pa_context_disconnect(m_context);
    pa_context_unref(m_context);
    m_context = nullptr;
}

void PulseServer::Connect() {
    if (const State state = Current(); state == State::Connecting || state == State::Ready) return;
    Disconnect();
    m_refused = false;
    pa_proplist* properties = pa_proplist_new();
    pa_proplist_sets(properties, PA_PROP_APPLICATION_NAME, "Velora");
    pa_proplist_sets(properties, PA_PROP_APPLICATION_ID, "velora");
    pa_proplist_sets(properties, PA_PROP_APPLICATION_ICON_NAME, "velora");
    m_context = pa_context_new_with_proplist(pa_mainloop_get_api(m_loop), "Velora", properties);
    pa_proplist_free(properties);
    const char* address = m_address.empty() ? nullptr : m_address.c_str();
    // Starting a server is the desktop's affair.
    if (!m_context || pa_context_connect(m_context, address, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0)
        m_refused = true;
}

PulseServer::State PulseServer::Current() const {
    if (m_refused) return State::Failed;
    if (!m_context) return State::Idle;
    switch (pa_context_get_state(m_context)) {
    case PA_CONTEXT_READY:
        return State::Ready;
    case PA_CONTEXT_FAILED:
    case PA_CONTEXT_TERMINATED:
        return State::Failed;
    default:
        return State::Connecting;
    }
}
