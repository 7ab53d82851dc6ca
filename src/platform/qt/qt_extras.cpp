// What is no widget has no keys and no drops of its own: they are taken from its events.
#include "platform/qt/qt_extras.h"

#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QSocketNotifier>
#include <algorithm>
#include <utility>

#include "platform/qt/qt_jump_list.h"
#include "platform/qt/qt_owner.h"
#include "platform/qt/qt_window.h"

namespace {

struct KeyRow {
    int Code;
    Key Meaning;
};

constexpr KeyRow kKeys[] = {
    {Qt::Key_Space, Key::Space}, {Qt::Key_Return, Key::Return}, {Qt::Key_Enter, Key::Return},
    {Qt::Key_Left, Key::Left},   {Qt::Key_Right, Key::Right},   {Qt::Key_Up, Key::Up},
    {Qt::Key_Down, Key::Down},   {Qt::Key_PageUp, Key::PageUp}, {Qt::Key_PageDown, Key::PageDown},
    {Qt::Key_O, Key::O},         {Qt::Key_J, Key::J},           {Qt::Key_F1, Key::F1},
};

constexpr char kTokenVariable[] = "XDG_ACTIVATION_TOKEN";
constexpr char kUriList[] = "text/uri-list";

std::vector<std::string> AddressesOf(const QMimeData& data) {
    std::vector<std::string> addresses;
    // The bytes as they are: the toolkit's own list would lose names that aren't UTF-8.
    for (const QByteArray& line : data.data(QString::fromLatin1(kUriList)).split('\n')) {
        const QByteArray address = line.trimmed();
        if (!address.isEmpty() && !address.startsWith('#'))
            addresses.push_back(address.toStdString());
    }
    return addresses;
}

} // namespace

std::string HandoverMessage(const Text& commandLine) {
    // What lies in the environment holds no line end.
    return qgetenv(kTokenVariable).toStdString() + '\n' + Utf8(commandLine);
}

QtExtras::QtExtras(QtWindow& window, QtLoop& loop, std::unique_ptr<Doorway> door)
    : m_window(window), m_loop(loop), m_door(std::move(door)) {}

void QtExtras::Listen(ExtraEvents& events) {
    m_events = &events;
    m_window.installEventFilter(this);
}

bool QtExtras::eventFilter(QObject* window, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
        if (TakeKey(static_cast<QKeyEvent&>(*event))) return true;
        break;
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        if (TakeDrop(static_cast<QDropEvent&>(*event))) return true;
        break;
    default:
        break;
    }
    return QObject::eventFilter(window, event);
}

bool QtExtras::TakeKey(const QKeyEvent& event) {
    if ((event.modifiers() & ~Qt::KeypadModifier) != 0 || m_window.IsBlocked()) return false;
    const auto* const row =
        std::find_if(std::begin(kKeys), std::end(kKeys),
                     [&](const KeyRow& one) { return one.Code == event.key(); });
    if (row == std::end(kKeys)) return false;
    // Not at once: a dialog that it opens would wait inside the event.
    m_loop.Post([this, key = row->Meaning, isRepeated = event.isAutoRepeat()] {
        if (!m_window.IsBlocked()) m_events->OnKey(key, isRepeated);
    });
    return true;
}

bool QtExtras::TakeDrop(QDropEvent& event) {
    const bool takes = m_events->TakesDrops() && !m_window.IsBlocked() &&
                       event.mimeData()->hasFormat(QString::fromLatin1(kUriList));
    if (!takes) {
        event.ignore();
        return true;
    }
    // Whatever the other side proposes, the files stay where they are.
    event.setDropAction(Qt::CopyAction);
    event.accept();
    if (event.type() == QEvent::Drop)
        m_loop.Post(
            [this, addresses = AddressesOf(*event.mimeData())] { m_events->OnDrop(addresses); });
    return true;
}

void QtExtras::OpenDoor(bool open) {
    if (!open) {
        m_knocks.reset();
        m_door.reset();
        return;
    }
    const std::optional<std::string> place = DoorwayPath();
    if (!m_door && place) m_door = std::make_unique<Doorway>(*place);
    if (!m_door || !m_door->IsOpen() || m_knocks) return;
    auto knocks = std::make_unique<QSocketNotifier>(m_door->Descriptor(), QSocketNotifier::Read);
    connect(knocks.get(), &QSocketNotifier::activated, this, [this] { LetIn(); });
    m_knocks = std::move(knocks);
}

void QtExtras::LetIn() {
    auto guest = std::make_shared<Handover>(m_door->Accept());
    if (guest->Descriptor() < 0) return;
    auto* said = new QSocketNotifier(guest->Descriptor(), QSocketNotifier::Read, this);
    connect(said, &QSocketNotifier::activated, said, [this, guest, said] {
        if (guest->Read()) return;
        said->setEnabled(false);
        said->deleteLater();
        if (!guest->Taken()) return;
        const std::string& message = *guest->Taken();
        const std::size_t token = std::min(message.find('\n'), message.size());
        qputenv(kTokenVariable, QByteArray::fromStdString(message.substr(0, token)));
        m_loop.Post(
            [this, line = TextFromBytes(message.substr(std::min(token + 1, message.size())))] {
                m_events->OnSecondStart(line);
            });
    });
}

void QtExtras::Raise() {
    if (m_window.windowStates() & Qt::WindowMinimized) m_window.showNormal();
    m_window.raise();
    m_window.requestActivate();
    qunsetenv(kTokenVariable);
}

std::size_t QtExtras::ChooseRow(const std::vector<Text>& rows, std::size_t marked) {
    m_window.PrepareDialog();
    JumpList list(rows, marked);
    PutBefore(list, &m_window);
    return list.exec() == QDialog::Accepted ? list.Row() : 0;
}
