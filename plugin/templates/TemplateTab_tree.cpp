#include "CPopMessageBox.h"
#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "Fields.h"
#include "GenGuid32.h"
#include "LogbookTables.h"
#include "LogText.h"
#include "NoticeBar.h"
#include "QuietSelection.h"
#include "RecordValue.h"
#include "TemplateMoves.h"
#include "TemplatePassport.h"
#include "TemplatesEditSourceModel.h"
#include "TemplatesProxyModel.h"
#include "TemplateTab.h"
#include "ui_TemplateTab.h"
#include "WriteBlock.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMimeData>
#include <QTextCodec>
#include <set>

namespace
{
constexpr int boxWidth = 350;
constexpr int boxHeight = 110;
constexpr int yes = 5;

/// A text, or null for an empty one. The bytes must outlive the value.
MDRVar keyOrNull(const QByteArray& key)
{
    return key.isEmpty() ? MDRValue::null() : MDRValue::text(key);
}

/// Adds the deletion of a record to an edit table.
void addDeletion(CModelTable& edits, const MDRData* record)
{
    const MDRVar key = Row(record).value(Field::KeyLink);
    MDRData* deletion = MDARecNew(edits.data.array);
    MDRSetFlags(deletion, ROW_DELETE);
    MDRSetVal(MDRFldByName(edits.data.array, Field::KeyLink), deletion, &key);
    edits.data.RecPost(deletion);
}

/// A category with its content: descendants come before their ancestors. \a seen guards against cycles.
void addDeletions(TemplateTables& tables, const MDRData* category, std::set<const MDRData*>& seen)
{
    if (!seen.insert(category).second)
        return;
    const QByteArray key = Row(category).key();
    for (const MDRData* child : MDARecsWith(tables.categories.data.array, Field::ParentKey, key.constData()))
        addDeletions(tables, child, seen);
    for (const MDRData* child : MDARecsWith(tables.templates.data.array, Field::CategoryKey, key.constData()))
        addDeletion(tables.templatesEdit, child);
    addDeletion(tables.categoriesEdit, category);
}

void beginTyping(QLineEdit* edit)
{
    edit->setFocus();
    edit->selectAll();
}
} // namespace

MDRData* TemplateTab::newCategory(const QModelIndex& parent, const QString& name, const QByteArray& parentKey,
                                  const QByteArray& orgTypeKey, const QByteArray& departmentKey)
{
    const QByteArray key = GenGuid32();
    const QByteArray nameBytes = codec()->fromUnicode(name);
    CMDArray& rows = m_tables.categoriesEdit.data;
    m_model->beginInsertRow(m_model->folderCount(parent), parent);
    MDRData* record = MDARecNew(rows.array);
    MDRSetFlags(record, ROW_INSERT);
    rows.SetValF(record, Field::KeyLink, MDRValue::text(key));
    rows.SetValF(record, Field::ParentKey, keyOrNull(parentKey));
    rows.SetValF(record, Field::OrgTypeKey, keyOrNull(orgTypeKey));
    rows.SetValF(record, Field::DepartmentKey, keyOrNull(departmentKey));
    rows.SetValF(record, Field::nameLoc, MDRValue::text(nameBytes));
    record = rows.RecPost(record);
    m_model->endInsertRow();
    m_isSent = false;
    setFocusOn(record);
    return record;
}

void TemplateTab::insertTemplate(const QModelIndex& parent, const QByteArray& category,
                                 const QByteArray& name, const MDRVar& html)
{
    const QByteArray key = GenGuid32();
    CMDArray& rows = m_tables.templatesEdit.data;
    m_model->beginAppendRow(parent);
    MDRData* record = MDARecNew(rows.array);
    MDRSetFlags(record, ROW_INSERT);
    rows.SetValF(record, Field::KeyLink, MDRValue::text(key));
    rows.SetValF(record, Field::CategoryKey, keyOrNull(category));
    rows.SetValF(record, Field::nameLoc, MDRValue::text(name));
    rows.SetValF(record, Field::html, html);
    record = rows.RecPost(record);
    m_model->endAppendRow();
    m_isSent = false;
    setFocusOn(record);
    updateEditStatus();
}

void TemplateTab::createRootFolder()
{
    newCategory(QModelIndex(), tr("Новая категория"), {}, {}, {});
    beginTyping(m_passport->categoryNameEditor());
    updateEditStatus();
}

void TemplateTab::createFolder()
{
    const QModelIndex index = currentSource();
    if (!index.isValid())
        return;
    newFolder(index, m_model->recordByIndex(index));
    beginTyping(m_passport->categoryNameEditor());
}

void TemplateTab::createTemplate()
{
    const QModelIndex index = currentSource();
    if (!index.isValid())
        return;
    newTemplate(index, m_model->recordByIndex(index));
    beginTyping(m_passport->templateNameEditor());
}

void TemplateTab::newFolder(const QModelIndex& index, MDRData* record)
{
    QModelIndex parent = index;
    const bool isRoot = TemplateTables::isContains(roots(), record);
    if (!isRoot && !TemplateTables::isContains(&m_tables.categories, record)) { // a template is selected
        parent = index.parent();
        record = m_model->recordByIndex(parent);
    }
    if (!isRoot && !TemplateTables::isContains(&m_tables.categories, record)) {
        emit writeLog(levelSignature("newFolder"), QLatin1String(m_level->noParent));
        return;
    }
    const QByteArray key = Row(record).key();
    const auto scope = [&](const char* field) {
        return isRoot && qstrcmp(m_level->scopeField, field) == 0 ? key : QByteArray();
    };
    newCategory(parent, tr("Новая подкатегория"), isRoot ? QByteArray() : key, scope(Field::OrgTypeKey),
                scope(Field::DepartmentKey));
    updateEditStatus();
}

void TemplateTab::newTemplate(QModelIndex index, MDRData* record)
{
    if (!TemplateTables::isContains(&m_tables.categories, record)) {
        index = index.parent();
        record = m_model->recordByIndex(index);
    }
    if (!TemplateTables::isContains(&m_tables.categories, record)) {
        emit writeLog(levelSignature("newTemplate"), QLatin1String(TemplateLevels::noCategory));
        return;
    }
    insertTemplate(index, Row(record).key(), codec()->fromUnicode(tr("Новый шаблон")), MDRValue::null());
}

void TemplateTab::deleteSelected()
{
    const QModelIndex current = m_form->templatesTree->currentIndex();
    if (!current.isValid()) {
        showError(tr("Не выбран элемент для удаления!"));
        return;
    }
    const QModelIndex index = m_proxy->mapToSource(current);
    const MDRData* record = m_model->recordByIndex(index);
    QString question;
    if (TemplateTables::isContains(&m_tables.categories, record)) {
        question =
            m_model->rowCount(index) < 1
                ? tr("Удалить категорию?")
                : tr("Категория не пуста, удалится также содержимой этой категории.\nУдалить категорию?");
    } else if (TemplateTables::isContains(&m_tables.templates, record)) {
        question = tr("Удалить шаблон?");
    } else {
        showError(tr("Не удалось определить элемент для удаления"));
        LogText::warn(QStringLiteral("void TemplateTab::deleteSelected()"),
                      QStringLiteral("index contains unknown record in internalPointer()."));
        return;
    }
    m_messageBox->setMessage(tr("Удаление"), question, MessageIconQuestion, MessageTypeYesNo);
    connect(m_messageBox->buttonBox(), &QDialogButtonBox::clicked, this, &TemplateTab::answerDelete);
    m_messageBox->resize(boxWidth, boxHeight);
    m_messageBox->show();
}

void TemplateTab::answerDelete(QAbstractButton* button)
{
    disconnect(m_messageBox->buttonBox(), SIGNAL(clicked(QAbstractButton*)), nullptr, nullptr);
    m_messageBox->close();
    if (!button || m_messageBox->ButtonRole(button) != yes)
        return;

    MDRData* record = currentRecord();
    const bool hadUnsaved = isExistUnsaved();
    std::set<const MDRData*> seen;
    if (TemplateTables::isContains(&m_tables.categories, record))
        addDeletions(m_tables, record, seen);
    else if (TemplateTables::isContains(&m_tables.templates, record))
        addDeletion(m_tables.templatesEdit, record);

    CVrkCliSes* session = m_module->session();
    WriteBlock block(session);
    if (m_tables.templatesEdit.data.RecCount() > 0)
        session->SqlUpdate(LogbookTable::Templates, m_tables.templatesEdit.data.array, true, nullptr);
    if (m_tables.categoriesEdit.data.RecCount() > 0)
        session->SqlUpdate(LogbookTable::CatsTemplate, m_tables.categoriesEdit.data.array, true, nullptr);
    const bool isDone = block.commit();
    if (!isDone)
        showError(tr("При изменения данных возникла ошибка.\nДанные не были изменены!"));

    // Unsaved changes go with the deletions: they are sent in the same block, or dropped with it.
    if (!isDone)
        m_kept.keepAll(m_tables);
    QuietSelection quiet(m_form->templatesTree->selectionModel());
    removePending();
    if (quiet.end() || !isDone)
        raiseUpPassport(m_form->templatesTree->currentIndex());
    updateEditStatus();
    if (!isDone && hadUnsaved)
        tellKept(tr("Изменения не сохранены. %1").arg(session->lastErrorText()));
}

void TemplateTab::copyItem()
{
    if (!canCopyCurrent())
        return;
    const QByteArray key = Row(currentRecord()).key();
    if (key.isEmpty())
        return;
    auto* mime = new QMimeData;
    mime->setData(clipboardFormat(), key);
    QGuiApplication::clipboard()->setMimeData(mime);
}

void TemplateTab::pasteItem()
{
    if (!isAnyAdmin())
        return;
    const QMimeData* mime = QGuiApplication::clipboard()->mimeData();
    const QByteArray key =
        mime ? QByteArray(mime->data(clipboardFormat()).constData()) : QByteArray(); // up to the NUL
    if (MDRData* record = recordByKeyLink(&m_tables.templates, key.constData()))
        pasteTemplate(record);
    else if (m_kept.isEmpty()) // its notice has priority
        m_notice->tell(
            NoticeBar::Information,
            tr("Вставить нечего: скопированный шаблон удалён или появился на другой странице после "
               "открытия конфигуратора."),
            {{0, tr("Скрыть"), QStringLiteral("dismissButton")}});
    QGuiApplication::clipboard()->clear(); // a copy pastes once
}

void TemplateTab::pasteTemplate(MDRData* record)
{
    QModelIndex index = currentSource();
    if (TemplateTables::isContains(&m_tables.templates, m_model->recordByIndex(index)))
        index = index.parent();
    insertTemplate(index, index.data(Qt::UserRole).toString().toUtf8(), Row(record).copy(Field::nameLoc),
                   Row(record).value(Field::html));
}

void TemplateTab::moveItem(const QString& keyLink, const QModelIndex& target)
{
    if (keyLink.isEmpty())
        return;
    const MDRData* targetRecord = m_model->recordByIndex(target);
    const QByteArray key = keyLink.toUtf8();
    if (const MDRData* category = recordByKeyLink(&m_tables.categories, key.constData())) {
        if (!m_moves->moveCategory(category, targetRecord))
            emit writeLog(QStringLiteral("void TemplateTab::moveCategory(MDArrayRec*, MDArrayRec*)"),
                          QStringLiteral("Can not find destination parent"));
        return;
    }
    const MDRData* item = recordByKeyLink(&m_tables.templates, key.constData());
    if (item && targetRecord)
        m_moves->moveTemplate(item, targetRecord);
}
