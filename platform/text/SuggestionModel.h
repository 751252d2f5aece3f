#pragma once

#include "ReferenceData.h"

#include <QAbstractListModel>

/// The items that a few typed words find, best ones first: those that begin with the query, those of which a word does,
/// the others that hold all the words; near ones before far ones. Thousands of items answer within a keystroke.
class SuggestionModel : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Roles {
        DetailRole = Qt::UserRole,
        MoreRole, ///< true for the row that stands for the far items
    };
    static constexpr int shownAtMost = 200;

    explicit SuggestionModel(QObject* parent = nullptr);

    void setItems(const QVector<ReferenceItem>& items);
    /// Finds near items only, and offers the others with one more row behind them.
    void setNearOnly(bool nearOnly);
    bool isNearOnly() const { return m_nearOnly; }
    void setQuery(const QString& query);

    /// The item of a row; null for the row of the far items.
    const ReferenceItem* item(int row) const;
    bool isEmpty() const { return m_items.isEmpty(); } ///< there is nothing to be found
    /// The row of the item that reads like this, -1 when it is not shown.
    int rowOf(const QString& text) const;
    /// The item that reads like this, or null.
    const ReferenceItem* itemByText(const QString& text) const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    void find();

    QVector<ReferenceItem> m_items;
    QString m_query;
    bool m_nearOnly = false;
    QVector<int> m_rows;
    int m_far = 0; ///< far items that were found and are not shown
};
