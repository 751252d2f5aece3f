#pragma once

#include <QSortFilterProxyModel>

/// The rows of a sheet that contain all typed words, in any columns. Rows that the store has as retired appear only on
/// request; new rows always.
class SheetFilter : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    explicit SheetFilter(QObject* parent = nullptr);

    void setWords(const QString& typed);
    void showFormer(bool shown);

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

private:
    QStringList m_words;
    bool m_showsFormer = false;
};
