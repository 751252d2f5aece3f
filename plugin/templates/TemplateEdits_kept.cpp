#include "CVrkCliSes.h"
#include "Fields.h"
#include "KeptDraft.h"
#include "NoticeBar.h"
#include "PageTree.h"
#include "QuietSelection.h"
#include "RecordValue.h"
#include "TemplateEdits.h"
#include "TemplatesEditSourceModel.h"

#include <QTextCodec>

/// Changes that were neither saved nor dropped: kept, offered, restored.

namespace
{
enum NoticeChoice { Restore, Dismiss };

/// The key of the row under which a record belongs; empty at the top.
QByteArray keyAbove(const MDRData* record)
{
    for (const char* field :
         fieldNames(Field::CategoryKey, Field::ParentKey, Field::OrgTypeKey, Field::DepartmentKey)) {
        const QByteArray key = MDRValue::copy(Row(record).value(field));
        if (!key.isEmpty())
            return key;
    }
    return {};
}
} // namespace

KeptTexts::Values TemplateEdits::unsaved() const
{
    KeptEdits all;
    if (!m_isPassingOffer)
        all.keepAll(m_kept);
    all.keepAll(m_tables);
    return all.values(m_session->codec());
}

void TemplateEdits::offerLeft(const QString& place, bool canRestore)
{
    m_unsaved->setPlace(place);
    m_unsaved->forgetOffered([this](const KeptTexts::Text& text) {
        m_kept.read(text.values, m_tables);
        return true;
    });
    if (!m_kept.isEmpty() && canRestore)
        tellKept(tr("С прошлого раза остались несохранённые изменения."));
    m_unsaved->keepNow();
}

void TemplateEdits::tellKept(const QString& text)
{
    m_isPassingOffer = false;
    m_unsaved->touch();
    m_notice->tell(NoticeBar::Warning, text,
                   {{Restore, tr("Вернуть изменения"), QStringLiteral("restoreButton")},
                    {Dismiss, tr("Скрыть"), QStringLiteral("dismissButton")}});
}

void TemplateEdits::answer(int choice)
{
    if (choice == Restore && !m_kept.isEmpty())
        restoreKept();
    else
        m_kept.clear();
    m_notice->setVisible(!m_kept.isEmpty());
    m_unsaved->touch();
}

/// The offer to undo a cancellation lasts until the user continues.
void TemplateEdits::forgetOffer()
{
    if (!m_isPassingOffer)
        return;
    m_isPassingOffer = false;
    m_kept.clear();
    m_notice->hide();
    m_unsaved->touch();
}

void TemplateEdits::restoreKept()
{
    if (m_tables.isEdited()) {
        emit failed(tr("Сначала сохраните или отмените изменения!"));
        return;
    }
    QuietSelection quiet(m_tree.selection());
    MDRData* restored = nullptr;
    restoreFrom(m_kept.categories(), m_tables.categories, &m_tables.categoriesEdit, &restored);
    restoreFrom(m_kept.templates(), m_tables.templates, &m_tables.templatesEdit, &restored);
    quiet.end();
    if (!restored) {
        const bool isTemplate = m_kept.templates().data.RecCount() > 0;
        emit failed(isTemplate
                        ? tr("Места, где был шаблон, больше нет. Выберите категорию, в которую его вернуть.")
                        : tr("Вернуть изменения некуда: элемента больше нет в дереве."));
        return;
    }
    // A changed record is not a row of the tree: its base record is selected, and the passport shows the
    // change.
    const MDRVar key = Row(restored).value(Field::KeyLink);
    const bool isCategory = TemplateTables::isContains(&m_tables.categoriesEdit, restored);
    MDRData* base =
        recordByKeyLink(isCategory ? &m_tables.categories : &m_tables.templates, key.value.text.data);
    m_tree.setFocusOn(restored->flags & ROW_INSERT ? restored : base);
    emit shown(restored);
    updateEditStatus();
}

void TemplateEdits::restoreFrom(const CModelTable& kept, const CModelTable& table, CModelTable* edits,
                                MDRData** restored)
{
    for (int i = 0; i < kept.data.RecCount();) {
        const MDRData* record = MDARec(kept.data.array, 0, i);
        MDRData* back = restoreRecord(table, edits, record);
        if (back) {
            *restored = back;
            m_kept.forget(kept, Row(record).key());
        } else {
            ++i;
        }
    }
}

/// Null if it has no place in this tree.
MDRData* TemplateEdits::restoreRecord(const CModelTable& table, CModelTable* edits, const MDRData* kept)
{
    const QByteArray key = Row(kept).key();
    const MDRData* base = recordByKeyLink(&table, key.constData());
    const bool isTemplate = edits == &m_tables.templatesEdit;
    QModelIndex parent;
    if (base && !m_tree.model()->indexByRecord(base).isValid())
        return nullptr; // moved to another level
    if (!base) {
        parent = placeOf(kept);
        const bool isTop = !isTemplate && m_tree.model()->isTopOfCategories() && keyAbove(kept).isEmpty();
        if (!parent.isValid() && !isTop)
            return nullptr;
        m_tree.model()->beginInsertRow(
            isTemplate ? m_tree.model()->rowCount(parent) : m_tree.model()->folderCount(parent), parent);
    }
    MDRData* record = MDARecNew(edits->data.array);
    KeptEdits::copyRecord(kept, record);
    MDRSetFlags(record, base ? ROW_UPDATE : ROW_INSERT);
    for (int i = 0; !base && i < MDAFldCount(edits->data.array); ++i)
        MDRSetUser(MDRFldByNum(edits->data.array, i), record, 1);
    if (!base && isTemplate) {
        const QByteArray category = parent.data(Qt::UserRole).toString().toUtf8();
        edits->data.SetValF(record, Field::CategoryKey, MDRValue::text(category));
    }
    record = edits->data.RecPost(record);
    if (!base)
        m_tree.model()->endInsertRow();
    return record;
}

/// The index to which a missing record belongs. A template whose category no longer exists goes to the
/// current place.
QModelIndex TemplateEdits::placeOf(const MDRData* kept) const
{
    const QModelIndex folder = m_tree.folder(keyAbove(kept));
    if (folder.isValid() || !MDRFldByName(MDARecArr(kept), Field::CategoryKey))
        return folder;
    const QModelIndex current = m_tree.currentSource();
    for (const QModelIndex& place : {current, current.parent()})
        if (TemplateTables::isContains(&m_tables.categories, m_tree.model()->recordByIndex(place)))
            return place;
    return {};
}
