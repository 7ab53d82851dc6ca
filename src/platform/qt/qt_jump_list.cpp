// Rows of one height, asked for only as they come into sight: a list of thousands opens at once.
#include "platform/qt/qt_jump_list.h"

#include <QAbstractListModel>
#include <QCoreApplication>
#include <QFont>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QSortFilterProxyModel>
#include <QVBoxLayout>

#include "platform/qt/qt_text.h"

namespace {

constexpr int kWidthPx = 420, kHeightPx = 360;

// Row numbers are those of the list, from 0; the marked one is bold.
class Rows : public QAbstractListModel {
public:
    Rows(QObject* parent, const std::vector<Text>& rows, std::size_t marked)
        : QAbstractListModel(parent), m_rows(rows), m_marked(marked) {}

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        const auto row = static_cast<std::size_t>(index.row());
        if (role == Qt::DisplayRole) {
            const QString mark = row + 1 == m_marked ? QStringLiteral("\u25B6 ") : QString();
            return QVariant(mark + ToQString(m_rows[row]));
        }
        if (role != Qt::FontRole || row + 1 != m_marked) return {};
        QFont bold;
        bold.setBold(true);
        return bold;
    }

private:
    const std::vector<Text>& m_rows;
    std::size_t m_marked;
};

} // namespace

JumpList::JumpList(const std::vector<Text>& rows, std::size_t marked)
    : m_found(new QSortFilterProxyModel(this)), m_field(new QLineEdit(this)),
      m_list(new QListView(this)) {
    setWindowTitle(QStringLiteral("Jump"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_field);
    layout->addWidget(m_list);
    m_found->setSourceModel(new Rows(this, rows, marked));
    m_found->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_list->setModel(m_found);
    m_list->setUniformItemSizes(true);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setAccessibleName(windowTitle());
    m_field->installEventFilter(this);
    connect(m_field, &QLineEdit::textChanged, this,
            [this](const QString& words) { Search(words); });
    connect(m_field, &QLineEdit::returnPressed, this, &QDialog::accept);
    connect(m_list, &QListView::activated, this, &QDialog::accept);
    resize(kWidthPx, kHeightPx);
    if (rows.empty()) return;
    const int at = marked > 0 && marked <= rows.size() ? static_cast<int>(marked) - 1 : 0;
    m_list->setCurrentIndex(m_found->index(at, 0));
    m_list->scrollTo(m_list->currentIndex(), QAbstractItemView::PositionAtCenter);
}

void JumpList::Search(const QString& words) {
    m_found->setFilterFixedString(words);
    // The first that fits; the list by itself would keep to the neighbour of what fell out.
    m_list->setCurrentIndex(m_found->index(0, 0));
}

bool JumpList::eventFilter(QObject* field, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(field, event);
    switch (static_cast<QKeyEvent&>(*event).key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        QCoreApplication::sendEvent(m_list, event);
        return true;
    default:
        return QDialog::eventFilter(field, event);
    }
}

std::size_t JumpList::Row() const {
    const QModelIndex chosen = m_found->mapToSource(m_list->currentIndex());
    return chosen.isValid() ? static_cast<std::size_t>(chosen.row()) + 1 : 0;
}
