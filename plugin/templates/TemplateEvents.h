#pragma once

#include "CModelTable.h"

#include <QModelIndex>
#include <QObject>

class PageTree;
class QTextCodec;
class TemplateEdits;
class TemplateMoves;
class TemplatePassport;
struct TemplateTables;
struct TEventNciParse;

/// Applies the change events of the server to the tables and the tree of a page of the configurator. The
/// server's state replaces unsaved changes of the same record, which are kept.
class TemplateEvents : public QObject
{
    Q_OBJECT

public:
    /// Nothing is owned.
    TemplateEvents(TemplateTables& tables, PageTree& tree, TemplateEdits& edits, TemplateMoves& moves,
                   TemplatePassport& passport, const QTextCodec* codec, QObject* parent);

    void MessageData(TEventNciParse* event);

signals:
    /// The current row was removed: the new one must be handled as after a change of selection.
    void currentLost();
    void writeLog(QString func, QString text);

private:
    void rowChanged(CModelTable* table, CModelTable* edits, TEventNciParse* event);
    void rowDeleted(CModelTable* table, CModelTable* edits, TEventNciParse* event);
    void rowInserted(CModelTable* table, CModelTable* edits, CModelTable* moved, TEventNciParse* event);
    bool deleteEditRecord(CModelTable* table, TEventNciParse* event);
    /// Turns a new record that the server has received in the meantime into a change.
    void becomeChange(CModelTable* edits, MDRData* pending);
    /// The position of an event's row in this page's tree; \a row stays negative if it does not belong
    /// there.
    void whereInsertRecord(int& row, QModelIndex& parent, TEventNciParse* event) const;
    void moveRow(CModelTable* table, MDRData* record, TEventNciParse* event);
    void setFocusOn(MDRData* record, MDRData* edit = nullptr);

    TemplateTables& m_tables;
    PageTree& m_tree;
    TemplateEdits& m_edits;
    TemplateMoves& m_moves;
    TemplatePassport& m_passport;
    const QTextCodec* m_codec;
};
