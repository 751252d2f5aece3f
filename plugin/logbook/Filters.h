#pragma once

#include "VrkTableFilterRow.h"

class CModelTable;

/// Hides drafts.
class FilterByStatus : public VrkTableFilterRow
{
    Q_OBJECT

public:
    using VrkTableFilterRow::VrkTableFilterRow;
    bool isAcceptRow(const CMDArray* array, MDRData* record) const override;
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
