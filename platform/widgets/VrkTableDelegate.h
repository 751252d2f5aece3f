#pragma once

#include <QCache>
#include <QDate>
#include <QStyledItemDelegate>

class QTableView;
class QTextDocument;
class VrkTableProxyModel;
struct MDRData;

/// Paints and measures the cells of a record table: wrapped texts aligned to the top, rendered template
/// text, centred icons, and while the table is sorted by a time, a line with the date above the first
/// record of each day.
class VrkTableDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    VrkTableDelegate(VrkTableProxyModel* model, QTableView* view);
    ~VrkTableDelegate() override;

    /// A plain text prepared for layout: its lines end with QChar::LineSeparator, the initials of a name
    /// are kept together.
    static QString laidOutText(QString text);
    /// Height that a cell needs at this column width, without the day line.
    int heightForWidth(const QModelIndex& index, int width) const;
    /// Width that a cell needs for a text in one line (\a longestWord false) or for its longest word.
    int naturalWidth(const QModelIndex& index, bool longestWord) const;
    /// naturalWidth() of a cell without text and icon; a cell with content needs more.
    static int emptyWidth();
    /// Height of the day line above a row of the proxy, 0 without one.
    int dayLineHeight(int row) const;
    /// The date in the day line above a row; invalid without one.
    QDate dayLine(int row) const;
    /// The day of a row in a table with day lines, otherwise an invalid date.
    QDate dayOf(int row) const { return m_hasDayLines ? day(row) : QDate(); }
    void setDayLines(bool shown, bool aboveFirstRow)
    {
        m_hasDayLines = shown;
        m_hasFirstDayLine = aboveFirstRow;
    }
    /// Drops cached data of a record, or of all.
    void forget(const MDRData* record) { m_documents.remove(record); }
    void forgetAll() { m_documents.clear(); }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    QStyleOptionViewItem cellOption(const QModelIndex& index) const;
    bool isTemplateText(const QModelIndex& index) const;
    QTextDocument* document(const QModelIndex& index, const QFont& font, int width) const;
    void paintDayLine(QPainter* painter, const QRect& cell, int row) const;
    void paintContents(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
    void paintLines(QPainter* painter, const QStyleOptionViewItem& option) const;
    QDate day(int row) const;

    VrkTableProxyModel* m_model;
    QTableView* m_view;
    bool m_hasDayLines = true;
    bool m_hasFirstDayLine = false;
    mutable QCache<const MDRData*, QTextDocument> m_documents;
};
