#pragma once

#include "ReferenceData.h"

#include <QAbstractListModel>

/// The items that a few typed words find, best ones first: those that begin with the query, those in which
/// a word begins with it, then others that contain all the words; near ones before far ones. Fast enough
/// for thousands of items at each keystroke.
class SuggestionModel : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Roles {
        DetailRole = Qt::UserRole,
        MoreRole, ///< true for the row that represents the far items
    };
    static constexpr int shownAtMost = 200;

    explicit SuggestionModel(QObject* parent = nullptr);

    void setItems(const QVector<ReferenceItem>& items);
    /// Finds only near items, and offers the others with one more row at the end.
    void setNearOnly(bool nearOnly);
    void setQuery(const QString& query);

    /// The item of a row; null for the row of the far items.
    const ReferenceItem* item(int row) const;
    bool isEmpty() const { return m_items.isEmpty(); } ///< there are no items to search
    /// The row of the item with this text, -1 if it is not shown.
    int rowOf(const QString& text) const;
    /// The item with this text, or null.
    const ReferenceItem* itemByText(const QString& text) const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    void find();

    QVector<ReferenceItem> m_items;
    QString m_query;
    bool m_nearOnly = false;
    QVector<int> m_rows;
    int m_far = 0; ///< far items that match and are not shown
};
