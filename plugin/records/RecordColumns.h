#pragma once

#include <QFont>
#include <QObject>

class AbstractHfnCellConversion;
class CModelTable;
class CVrkCliSes;
class StrikeOutCell;
class VrkTableTool;

/// The columns of a table of journal records: their conversions, headers, order and visibility. Owns the conversions.
class RecordColumns : public QObject
{
    Q_OBJECT

public:
    RecordColumns(CVrkCliSes* session, CModelTable* workers, const QFont& font, QObject* parent);

    /// Configures the columns and sorts by the time of the record. The tool must have its array, preferably
    /// without records, since every conversion updates its whole column. Widths are fitted later, from the
    /// rows.
    void configure(VrkTableTool* tool);
    /// The font of the cells' texts.
    void setFont(const QFont& font);

private:
    CVrkCliSes* m_session;
    StrikeOutCell* m_strikeOut;
    AbstractHfnCellConversion* m_time;
    AbstractHfnCellConversion* m_worker;
    AbstractHfnCellConversion* m_status;
    AbstractHfnCellConversion* m_sign;
    AbstractHfnCellConversion* m_comment;
    AbstractHfnCellConversion* m_file;
    AbstractHfnCellConversion* m_direction;
    AbstractHfnCellConversion* m_firstMarker;
    AbstractHfnCellConversion* m_secondMarker;
    AbstractHfnCellConversion* m_execution;
};
