// The list of all entries, with a field that searches in it.
#pragma once

#include <QDialog>
#include <vector>

#include "platform/text.h"

class QLineEdit;
class QListView;
class QSortFilterProxyModel;

/// One question: which of the rows.
class JumpList : public QDialog {
public:
    JumpList(const std::vector<Text>& rows, std::size_t marked);

    /// The row that is chosen, counted from 1; 0 for none.
    [[nodiscard]] std::size_t Row() const;

protected:
    /// The arrows of the field move in the list.
    bool eventFilter(QObject* field, QEvent* event) override;

private:
    void Search(const QString& words);

    QSortFilterProxyModel* m_found;
    QLineEdit* m_field;
    QListView* m_list;
};
