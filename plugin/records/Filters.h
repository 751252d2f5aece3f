#pragma once

#include "VrkTableFilterRow.h"

#include <QByteArray>

class CModelTable;

/// Hides drafts, except one that was requested.
class FilterByStatus : public VrkTableFilterRow
{
    Q_OBJECT

public:
    using VrkTableFilterRow::VrkTableFilterRow;
    /// Shows the record with this key in any status.
    void setShown(const QByteArray& recordKey);
    /// Reverses setShown(); for tables that are about to be refilled.
    void forgetShown() { m_shown.clear(); }
    bool isAcceptRow(const CMDArray* array, MDRData* record) const override;

private:
    QByteArray m_shown;
};

/// Shows only approved records.
class FilterOnlyApprove : public VrkTableFilterRow
{
    Q_OBJECT

public:
    using VrkTableFilterRow::VrkTableFilterRow;
    bool isAcceptRow(const CMDArray* array, MDRData* record) const override;
};

/// Shows records with at least one unread comment.
class FilterUnreadedComments : public VrkTableFilterRow
{
    Q_OBJECT

public:
    /// The table of comments; not owned.
    FilterUnreadedComments(CModelTable* comments, QObject* parent);
    bool isAcceptRow(const CMDArray* array, MDRData* record) const override;

private:
    CModelTable* m_comments;
};
