#pragma once

#include "VrkTableFilterRow.h"

#include <QByteArray>

class CModelTable;

/// Hides drafts, but for one that may be asked for.
class FilterByStatus : public VrkTableFilterRow
{
    Q_OBJECT

public:
    using VrkTableFilterRow::VrkTableFilterRow;
    /// The record with this key is shown whatever its status.
    void setShown(const QByteArray& recordKey);
    /// Takes that back; for tables that are about to be filled anew.
    void forgetShown() { m_shown.clear(); }
    bool isAcceptRow(const CMDArray* array, MDRData* record) const override;

private:
    QByteArray m_shown;
};

/// Shows approved records only.
class FilterOnlyApprove : public VrkTableFilterRow
{
    Q_OBJECT

public:
    using VrkTableFilterRow::VrkTableFilterRow;
    bool isAcceptRow(const CMDArray* array, MDRData* record) const override;
};

/// Shows records with at least one comment that nobody has read.
class FilterUnreadedComments : public VrkTableFilterRow
{
    Q_OBJECT

public:
    /// The table of comments to look in; not owned.
    FilterUnreadedComments(CModelTable* comments, QObject* parent);
    bool isAcceptRow(const CMDArray* array, MDRData* record) const override;

private:
    CModelTable* m_comments;
};
