// The tip's own window is the toolkit's, which hides it at any press.
#include "platform/qt/qt_tool_tip.h"

#include <QApplication>
#include <QStyle>
#include <QToolTip>
#include <utility>

#include "platform/qt/qt_text.h"
#include "state/stack.h"

QtToolTip::QtToolTip(std::function<void()> prepare) : m_prepare(std::move(prepare)) {
    m_rest.setSingleShot(true);
    QObject::connect(&m_rest, &QTimer::timeout, &m_rest, [this] { Show(); });
}

void QtToolTip::Follow(const Form& form, const PointerEvent& event, QPoint onScreen) {
    m_form = &form;
    m_place = QPoint(event.XPx, event.YPx);
    m_onScreen = onScreen;
    const bool rests = event.Kind == PointerKind::Move && event.Held == kNoButton;
    if (!rests || !m_tipsPlace.contains(m_place)) Forget();
    if (rests) m_rest.start(QApplication::style()->styleHint(QStyle::SH_ToolTip_WakeUpDelay));
}

void QtToolTip::Forget() {
    m_rest.stop();
    if (!std::exchange(m_tipsPlace, QRect()).isEmpty()) QToolTip::hideText();
}

void QtToolTip::Show() {
    const Control* control = ControlAt(*m_form, m_place.x(), m_place.y());
    if (!control || control->ToolTip.empty()) return;
    m_prepare();
    m_tipsPlace = QRect(control->Left + m_form->picBackground.Left,
                        control->Top + m_form->picBackground.Top, control->Width, control->Height);
    QToolTip::showText(m_onScreen, ToQString(control->ToolTip));
}
