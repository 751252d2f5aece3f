#include "DirectoryWindow.h"
#include "NoticeBar.h"
#include "SaveDialog.h"
#include "SheetPage.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

namespace
{
/// The pointer of a program at work, as long as it exists.
class BusyPointer
{
public:
    BusyPointer() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyPointer() { QApplication::restoreOverrideCursor(); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
};

QString noteOf(const DirectoryDraft::Meanwhile& meanwhile)
{
    return meanwhile.rows > 0
               ? DirectoryWindow::tr("Пока вы правили, другие изменили строк: %1. Их правки взяты в таблицы.")
                     .arg(meanwhile.rows)
               : QString();
}
} // namespace

bool DirectoryWindow::look(DirectoryDraft::Meanwhile* meanwhile)
{
    for (SheetPage* page : qAsConst(m_pages))
        page->commit();
    const BusyPointer busy;
    StoreError error;
    if (m_draft.look(m_store.get(), meanwhile, &error))
        return true;
    fail(tr("Журнал не прочитан: %1 Ничего не записано, правки остались в окне.").arg(error.text));
    return false;
}

void DirectoryWindow::refresh()
{
    DirectoryDraft::Meanwhile meanwhile;
    if (!look(&meanwhile))
        return;
    if (!meanwhile.conflicts.isEmpty())
        return prepare(meanwhile);
    m_draft.adopt(meanwhile, false);
    check();
    showState();
    m_notice->tell(NoticeBar::Information,
                   meanwhile.rows > 0 ? noteOf(meanwhile) : tr("Изменений от других нет."));
}

void DirectoryWindow::save()
{
    DirectoryDraft::Meanwhile meanwhile;
    if (look(&meanwhile))
        prepare(meanwhile);
}

void DirectoryWindow::prepare(const DirectoryDraft::Meanwhile& meanwhile)
{
    if (meanwhile.conflicts.isEmpty())
        return propose(meanwhile, false);
    auto* dialog = new ConflictDialog(meanwhile, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, this,
            [this, dialog, meanwhile] { propose(meanwhile, dialog->wantsTheirs()); });
    connect(dialog, &QDialog::rejected, this, [this] { m_closesAfterSaving = false; });
    dialog->open();
}

void DirectoryWindow::propose(const DirectoryDraft::Meanwhile& meanwhile, bool theirs)
{
    m_draft.adopt(meanwhile, theirs);
    check();
    showState();
    if (!m_draft.faults().isEmpty()) {
        fail(tr("Сохранить нельзя, ошибок: %1. Ничего не записано.").arg(m_draft.faults().size()));
        return showFault(0);
    }
    if (!m_draft.isEdited()) {
        m_notice->tell(NoticeBar::Information, tr("Сохранять нечего. %1").arg(noteOf(meanwhile)).trimmed());
        if (m_closesAfterSaving)
            close();
        return;
    }
    m_notice->hide();
    auto* dialog = new SaveDialog(m_draft, noteOf(meanwhile), this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, this, &DirectoryWindow::write);
    connect(dialog, &QDialog::rejected, this, [this] { m_closesAfterSaving = false; });
    dialog->open();
}

void DirectoryWindow::write()
{
    DirectoryDraft::Meanwhile meanwhile;
    if (!look(&meanwhile))
        return;
    if (meanwhile.rows > 0) // somebody wrote while the question was open: the answer was about another state
        return prepare(meanwhile);
    StoreError error;
    DirectoryDraft::Outcome outcome;
    {
        const BusyPointer busy;
        m_draft.save(m_store.get(), m_url, &outcome, &error);
    }
    showFaults();
    showState();
    if (error)
        return fail(outcome.isWritten ? tr("Правки записаны, но не всё удалось: %1").arg(error.text)
                                      : tr("Ничего не записано: %1 Правки остались в окне.").arg(error.text));
    if (outcome.shared > 0) {
        m_closesAfterSaving = false;
        return m_notice->tell(NoticeBar::Warning,
                              tr("Записано. В тот же миг кто-то другой изменил строк: %1. Проверьте их: что "
                                 "было, скажет vrk-admin history.")
                                  .arg(outcome.shared));
    }
    m_notice->tell(NoticeBar::Information, tr("Записано."));
    if (m_closesAfterSaving)
        close();
}

void DirectoryWindow::closeEvent(QCloseEvent* event)
{
    for (SheetPage* page : qAsConst(m_pages))
        page->commit();
    if (!m_draft.isEdited())
        return event->accept();
    event->ignore();
    auto* box = new QMessageBox(QMessageBox::Question, tr("Справочники"),
                                tr("Правки не сохранены. Сохранить их перед закрытием?"),
                                QMessageBox::NoButton, this);
    box->setObjectName(QStringLiteral("unsaved"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    QPushButton* save = box->addButton(tr("Сохранить"), QMessageBox::AcceptRole);
    QPushButton* drop = box->addButton(tr("Не сохранять"), QMessageBox::DestructiveRole);
    QPushButton* stay = box->addButton(tr("Отмена"), QMessageBox::RejectRole);
    save->setObjectName(QStringLiteral("save"));
    drop->setObjectName(QStringLiteral("drop"));
    stay->setObjectName(QStringLiteral("stay"));
    box->setDefaultButton(save);
    box->setEscapeButton(stay);
    connect(save, &QPushButton::clicked, this, [this] {
        m_closesAfterSaving = true;
        QTimer::singleShot(0, this, &DirectoryWindow::save); // when the box is closed
    });
    connect(drop, &QPushButton::clicked, this, [this] {
        QTimer::singleShot(0, this, [this] {
            m_draft.drop();
            close();
        });
    });
    box->open();
}
