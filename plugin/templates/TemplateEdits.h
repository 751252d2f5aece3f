#pragma once

#include "KeptEdits.h"
#include "SentEdits.h"

#include <initializer_list>
#include <QObject>
#include <set>

class CVrkCliSes;
class KeptDraft;
class NoticeBar;
class PageTree;

/// The unsaved changes of a page of the configurator: creates the edit records, saves and cancels them.
/// Knows those that were sent until their events arrive, and keeps those that were neither saved nor
/// dropped, so that the user can restore them, also after the program has ended.
class TemplateEdits : public QObject
{
    Q_OBJECT

public:
    /// Nothing is owned. \a notice offers the kept changes.
    TemplateEdits(CVrkCliSes* session, TemplateTables& tables, PageTree& tree, NoticeBar* notice,
                  QWidget* page);

    /// The edit record of the current item, created if necessary; null if the item has none.
    MDRData* editedCategory();
    MDRData* editedTemplate();
    /// A new record was posted to an edit table, with its row: selects it.
    void add(MDRData* record);
    /// The user has changed an edit record.
    void changed();

    /// Saves all changes. False, with a message, if they have a fault or could not be written; changes that
    /// could not be written are only kept.
    bool sendChangesToServer();
    /// Cancels all changes. They are offered until the user continues.
    void cancelChanges();
    void forgetOffer();
    /// Deletes a category with its content, or a template. Unsaved changes are written in the same block.
    void deleteItem(const MDRData* record);
    /// The records in the edit tables were written, and nothing was changed since.
    bool isSent() const { return m_isSent; }
    SentEdits& sent() { return m_sent; }

    /// Offers changes that were neither saved nor dropped when the program ended, if \a canRestore; from
    /// now on changes are kept at this place.
    void offerLeft(const QString& place, bool canRestore);
    bool hasKept() const { return !m_kept.isEmpty(); }
    /// Keeps an edit record that is about to be dropped.
    void keep(const MDRData* edit) { m_kept.keep(m_tables, edit); }
    /// Offers the kept changes.
    void tellKept(const QString& text);
    /// The content of the edit tables has changed.
    void updateEditStatus();

signals:
    void dataEdited();
    void editDataReseted();
    void writeLog(QString func, QString text);
    /// A message for the user.
    void failed(QString text);
    /// The passport must show this record.
    void shown(MDRData* record);
    /// The current item must be handled as after a change of selection.
    void currentLost();

private:
    MDRData* editedRecord(CModelTable* table, CModelTable* edits, std::initializer_list<const char*> copied);
    bool inspectEditCategories();
    bool inspectEditTemplates();
    void sendEdits(const CModelTable& edits);
    void removePending();
    void clearEditTables();
    void dropUnsaved(const QString& reason);
    void deleteTemplate(const MDRData* record);
    /// Descendants come before their ancestors. \a seen guards against cycles.
    void deleteFolder(const MDRData* record, std::set<const MDRData*>& seen);
    void writeLogUnsaved(const QString& func, const QString& text);

    // TemplateEdits_kept.cpp
    KeptTexts::Values unsaved() const;
    void answer(int choice);
    void restoreKept();
    void restoreFrom(const CModelTable& kept, const CModelTable& table, CModelTable* edits,
                     MDRData** restored);
    MDRData* restoreRecord(const CModelTable& table, CModelTable* edits, const MDRData* kept);
    QModelIndex placeOf(const MDRData* kept) const;

    CVrkCliSes* m_session;
    TemplateTables& m_tables;
    PageTree& m_tree;
    NoticeBar* m_notice;
    KeptEdits m_kept;
    KeptDraft* m_unsaved; ///< the edit tables and the kept edits, in case the program ends
    SentEdits m_sent;
    bool m_isSent = false;
    bool m_isPassingOffer = false; ///< the kept edits were cancelled by the user, and are dropped when he
                                   ///< continues
};
