#include "CVrkCliMod.h"
#include "CVrkCliSes.h"
#include "LogText.h"
#include "NewItems.h"
#include "NoticeBar.h"
#include "PageMessages.h"
#include "PageTree.h"
#include "RecordValue.h"
#include "TemplateEdits.h"
#include "TemplateMoves.h"
#include "TemplatePassport.h"
#include "TemplatesEditSourceModel.h"
#include "TemplateTab.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMimeData>
#include <QTreeView>

/// The operations on the tree.

namespace
{
void beginTyping(QLineEdit* edit)
{
    edit->setFocus();
    edit->selectAll();
}
} // namespace

void TemplateTab::applyChanges()
{
    if (isExistUnsaved() && isAnyAdmin())
        m_edits->sendChangesToServer();
}

void TemplateTab::cancelChanges()
{
    m_edits->cancelChanges();
}

void TemplateTab::createRootFolder()
{
    m_newItems->newRootFolder();
    beginTyping(m_passport->categoryNameEditor());
}

void TemplateTab::createFolder()
{
    const QModelIndex index = m_tree->currentSource();
    if (!index.isValid())
        return;
    if (!m_newItems->newFolder(index))
        emit writeLog(levelSignature("newFolder"), QLatin1String(m_level->noParent));
    beginTyping(m_passport->categoryNameEditor());
}

void TemplateTab::createTemplate()
{
    const QModelIndex index = m_tree->currentSource();
    if (!index.isValid())
        return;
    if (!m_newItems->newTemplate(index))
        emit writeLog(levelSignature("newTemplate"), QLatin1String(TemplateLevels::noCategory));
    beginTyping(m_passport->templateNameEditor());
}

void TemplateTab::deleteSelected()
{
    const QModelIndex index = m_tree->currentSource();
    if (!index.isValid()) {
        showError(tr("Не выбран элемент для удаления!"));
        return;
    }
    const MDRData* record = model()->recordByIndex(index);
    QString question;
    if (TemplateTables::isContains(&m_tables.categories, record)) {
        question =
            model()->rowCount(index) < 1
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
    m_messages->showMsgBox(tr("Удаление"), question, MessageIconQuestion, MessageTypeYesNo, this,
                           SLOT(answerDelete(QAbstractButton*)));
}

void TemplateTab::answerDelete(QAbstractButton* button)
{
    if (m_messages->isConfirmed(button))
        m_edits->deleteItem(currentRecord());
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
    if (const MDRData* record = recordByKeyLink(&m_tables.templates, key.constData()))
        m_newItems->pasteTemplate(record);
    else if (!m_edits->hasKept()) // its notice has priority
        m_notice->tell(
            NoticeBar::Information,
            tr("Вставить нечего: скопированный шаблон удалён или появился на другой странице после "
               "открытия конфигуратора."),
            {{0, tr("Скрыть"), QStringLiteral("dismissButton")}});
    QGuiApplication::clipboard()->clear(); // a copy pastes once
}

void TemplateTab::moveItem(const QString& keyLink, const QModelIndex& target)
{
    if (keyLink.isEmpty())
        return;
    const MDRData* targetRecord = model()->recordByIndex(target);
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
