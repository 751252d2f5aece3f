#include "CommentCreatorDialog.h"

#include "KeptComments.h"
#include "NoticeBar.h"
#include "RecordTitle.h"
#include "ui_CommentCreatorDialog.h"

#include <QKeyEvent>
#include <QShortcut>
#include <QSignalBlocker>

namespace
{
enum Choice { WriteAsNew, TakeKept, DropKept };
} // namespace

CommentCreatorDialog::CommentCreatorDialog(QWidget* parent, int flag)
    : CPopTemplate(parent, flag),
      m_form(new Ui::CommentCreatorDialog),
      m_warningBar(new NoticeBar(this)),
      m_keptBar(new NoticeBar(this)),
      m_recordTitle(new RecordTitle(this)),
      m_kept(KeptComments::of(parent ? parent : this))
{
    m_form->setupUi(this);
    m_warningBar->setObjectName(QStringLiteral("warningBar"));
    m_keptBar->setObjectName(QStringLiteral("keptBar"));
    for (NoticeBar* bar : {m_keptBar, m_warningBar}) {
        m_form->verticalLayout->insertWidget(0, bar);
        connect(bar, &NoticeBar::chosen, this, &CommentCreatorDialog::choose);
    }
    m_form->verticalLayout->insertWidget(0, m_recordTitle);
    setWindowIcon(QIcon(QStringLiteral(":/icons/comment.png")));
    setGuarding(true); // the comment goes to the current record of the window below
    connect(m_form->commentEdit, &QTextEdit::textChanged, this,
            [this] { m_form->applyButton->setEnabled(!m_form->commentEdit->toPlainText().isEmpty()); });
    connect(m_form->applyButton, &QPushButton::clicked, this, &CommentCreatorDialog::apply);
    connect(m_form->cancelButton, &QPushButton::clicked, this, &CommentCreatorDialog::close);
    for (int key : {Qt::Key_Return, Qt::Key_Enter})
        connect(new QShortcut(Qt::CTRL + key, this), &QShortcut::activated, m_form->applyButton,
                &QPushButton::click);
    m_form->applyButton->setToolTip(QStringLiteral("Ctrl + Enter"));
}

CommentCreatorDialog::~CommentCreatorDialog() = default;

void CommentCreatorDialog::setText(const QString& text)
{
    const QSignalBlocker blocker(m_form->commentEdit);
    m_form->commentEdit->setPlainText(text);
}

void CommentCreatorDialog::clear()
{
    const QSignalBlocker blocker(m_form->commentEdit);
    m_form->commentEdit->clear();
}

void CommentCreatorDialog::warn(const QString& text)
{
    m_warning = text;
}

void CommentCreatorDialog::keep(const QString& text)
{
    m_kept->texts.removeAll(text);
    if (!text.isEmpty())
        m_kept->texts.append(text);
}

void CommentCreatorDialog::forget(const QString& text)
{
    m_kept->texts.removeAll(text);
}

void CommentCreatorDialog::tellNotices()
{
    if (m_warning.isEmpty())
        m_warningBar->hide();
    else
        m_warningBar->tell(NoticeBar::Warning, m_warning,
                           {{WriteAsNew, tr("Добавить новый"), QStringLiteral("asNewButton")}});
    if (m_kept->texts.isEmpty())
        m_keptBar->hide();
    else
        m_keptBar->tell(NoticeBar::Question, tr("Прошлый текст записать не удалось."),
                        {{TakeKept, tr("Вернуть его"), QStringLiteral("takeKeptButton")},
                         {DropKept, tr("Забыть"), QStringLiteral("dropKeptButton")}});
}

void CommentCreatorDialog::choose(int choice)
{
    if (choice == WriteAsNew) {
        m_commentKey.clear();
        m_warning.clear();
    } else {
        const QString text = m_kept->texts.takeLast();
        if (choice == TakeKept) {
            if (!m_taken.isEmpty())
                m_kept->texts.prepend(m_taken); // behind all the others, so that each gets its turn
            m_taken = text;
            m_form->commentEdit->setPlainText(text);
        }
    }
    tellNotices();
    m_form->commentEdit->moveCursor(QTextCursor::End);
    m_form->commentEdit->setFocus();
}

void CommentCreatorDialog::apply()
{
    m_taken.clear(); // whoever takes the text now keeps it when it cannot be written
    emit commentChanged(m_commentKey, m_form->commentEdit->toPlainText());
    close();
}

void CommentCreatorDialog::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    CPopTemplate::keyPressEvent(event);
}

void CommentCreatorDialog::hideEvent(QHideEvent* event)
{
    keep(m_taken);
    m_taken.clear();
    CPopTemplate::hideEvent(event);
}

void CommentCreatorDialog::showEvent(QShowEvent* event)
{
    m_form->applyButton->setEnabled(false); // until the text changes, also when there is one: meant
    tellNotices();
    m_form->commentEdit->moveCursor(QTextCursor::End);
    m_form->commentEdit->setFocus();
    resize(600, 400);
    moveToCenter();
    CPopTemplate::showEvent(event);
}
