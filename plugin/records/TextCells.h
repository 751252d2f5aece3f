#pragma once

#include "AbstractHfnCellConversion.h"

#include <QFont>

class CModelTable;
class CVrkCliSes;

/// Foreground: grey for deleted records.
class ColorCell : public AbstractHfnCellConversion
{
    Q_OBJECT

public:
    using AbstractHfnCellConversion::AbstractHfnCellConversion;
    QVariant data(const AbstractHfnCellData& cell) const override;
};

/// Font: struck out for deleted records.
class StrikeOutCell : public AbstractHfnCellConversion
{
    Q_OBJECT

public:
    StrikeOutCell(const QFont& font, QObject* parent);
    void setFont(const QFont& font);
    QVariant data(const AbstractHfnCellData& cell) const override;

private:
    QFont m_font;
    QFont m_struckOut;
};

/// Text: a time in a given format.
class DateTimeCell : public AbstractHfnCellConversion
{
    Q_OBJECT

public:
    DateTimeCell(const QString& format, CVrkCliSes* session, QObject* parent);
    QVariant data(const AbstractHfnCellData& cell) const override;

private:
    QString m_format;
    CVrkCliSes* m_session;
};

/// Text: the short name of the worker with the key in the field.
class WorkerCell : public AbstractHfnCellConversion
{
    Q_OBJECT

public:
    WorkerCell(CModelTable* workers, QObject* parent);
    QVariant data(const AbstractHfnCellData& cell) const override;

private:
    CModelTable* m_workers;
};
