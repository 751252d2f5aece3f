#include "CommentCreatorDialog.h"

#include "KeptDraft.h"
#include "NoticeBar.h"
#include "RecordTitle.h"
#include "ui_CommentCreatorDialog.h"

#include <QShortcut>
#include <QSignalBlocker>

namespace
{
enum Choice { WriteAsNew, TakeKept, DropKept };

constexpr int lettersOfCaption = 60;

QString textOf(const KeptTexts::Text& kept)
{
    return kept.values.value(QStringLiteral("text"));
}
} // namespace

CommentCreatorDialog::CommentCreatorDialog(QWidget* parent, int flag)
    : CPopTemplate(parent, flag),
      m_form(new Ui::CommentCreatorDialog),
      m_warningBar(new NoticeBar(this)),
      m_keptBar(new NoticeBar(this)),
      m_recordTitle(new RecordTitle(this)),
      m_kept(KeptTexts::of(this)),
      m_unsaved(new KeptDraft(this, m_kept, [this] { return unsaved(); }))
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
    m_unsaved->setPlace(keptPlace());
    connect(m_form->commentEdit, &QTextEdit::textChanged, m_unsaved, &KeptDraft::touch);
    setGuarding(true); // the comment goes to the current record of the window below
    connect(m_form->commentEdit, &QTextEdit::textChanged, this,
            [this] { m_form->applyButton->setEnabled(!m_form->commentEdit->toPlainText().isEmpty()); });
    connect(m_form->applyButton, &QPushButton::clicked, this, &CommentCreatorDialog::apply);
    connect(m_form->cancelButton, &QPushButton::clicked, this, &CommentCreatorDialog::close);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter})
        connect(new QShortcut(Qt::CTRL | key, this), &QShortcut::activated, m_form->applyButton,
                &QPushButton::click);
    m_form->applyButton->setToolTip(QStringLiteral("Ctrl + Enter"));
}

CommentCreatorDialog::~CommentCreatorDialog() = default;

void CommentCreatorDialog::setText(const QString& text)
{
    const QSignalBlocker blocker(m_form->commentEdit);
    m_form->commentEdit->setPlainText(text);
    m_clean = text;
}

void CommentCreatorDialog::clear()
{
    m_clean.clear();
    const QSignalBlocker blocker(m_form->commentEdit);
    m_form->commentEdit->clear();
}

void CommentCreatorDialog::keep(const QString& text)
{
    forget(text);
    if (!text.isEmpty())
        m_kept->keep(keptPlace(), valuesOf(text));
}

void CommentCreatorDialog::forget(const QString& text)
{
    m_unsaved->forgetOffered([&text](const KeptTexts::Text& kept) { return textOf(kept) == text; });
}

KeptTexts::Values CommentCreatorDialog::unsaved() const
{
    const QString text = m_form->commentEdit->toPlainText();
    return text.isEmpty() || text == m_clean ? KeptTexts::Values() : valuesOf(text);
}

KeptTexts::Values CommentCreatorDialog::valuesOf(const QString& text) const
{
    QString shown = text.left(lettersOfCaption).simplified();
    if (text.size() > lettersOfCaption)
        shown += QStringLiteral("…");
    return {{QStringLiteral("caption"), tr("комментарий «%1»").arg(shown)},
            {QStringLiteral("text"), text},
            {QStringLiteral("comment"), m_commentKey},
            {QStringLiteral("record"), m_recordKey}};
}

void CommentCreatorDialog::take(const KeptTexts::Text& text)
{
    m_unsaved->take(text);
    m_taken = text;
    m_form->commentEdit->setPlainText(textOf(text));
}

/// Offers an unchanged kept text again that was not applied; other texts were dropped by the user.
void CommentCreatorDialog::giveBack()
{
    if (m_taken.id.isEmpty()) {
        m_unsaved->forget();
        return;
    }
    m_unsaved->release();
    m_kept->keep(keptPlace(), m_taken.values, m_taken.id);
    m_taken = KeptTexts::Text();
}

void CommentCreatorDialog::showKept(const KeptTexts::Text& text)
{
    clear();
    m_commentKey = text.values.value(QStringLiteral("comment"));
    m_recordKey = text.values.value(QStringLiteral("record"));
    m_warning.clear();
    show();
    take(text);
    tellNotices();
}

void CommentCreatorDialog::tellNotices()
{
    if (m_warning.isEmpty())
        m_warningBar->hide();
    else
        m_warningBar->tell(NoticeBar::Warning, m_warning,
                           {{WriteAsNew, tr("Добавить новый"), QStringLiteral("asNewButton")}});
    const QVector<KeptTexts::Text> kept = m_unsaved->offered();
    if (kept.isEmpty())
        m_keptBar->hide();
    else
        m_keptBar->tell(NoticeBar::Question,
                        kept.last().isLeft ? tr("Прошлый текст остался незаписанным.")
                                           : tr("Прошлый текст записать не удалось."),
                        {{TakeKept, tr("Вернуть его"), QStringLiteral("takeKeptButton")},
                         {DropKept, tr("Забыть"), QStringLiteral("dropKeptButton")}});
}

void CommentCreatorDialog::choose(int choice)
{
    if (choice == WriteAsNew) {
        m_commentKey.clear();
        m_warning.clear();
    } else {
        const KeptTexts::Text text = m_unsaved->offered().constLast();
        const QByteArray former = m_taken.id;
        if (choice == DropKept) {
            m_kept->forget(text.id);
        } else {
            giveBack();
            m_kept->putBehind(former); // after all others, so that each is offered
            take(text);
        }
    }
    tellNotices();
    m_form->commentEdit->moveCursor(QTextCursor::End);
    m_form->commentEdit->setFocus();
}

void CommentCreatorDialog::apply()
{
    m_taken = KeptTexts::Text(); // the receiver of the text keeps it if it cannot be written
    emit commentChanged(m_commentKey, m_form->commentEdit->toPlainText());
    m_unsaved->forget();
    close();
}

void CommentCreatorDialog::hideEvent(QHideEvent* event)
{
    giveBack();
    CPopTemplate::hideEvent(event);
}

void CommentCreatorDialog::showEvent(QShowEvent* event)
{
    // Deliberate: disabled until the text changes, even if there is one
    m_form->applyButton->setEnabled(false);
    tellNotices();
    m_form->commentEdit->moveCursor(QTextCursor::End);
    m_form->commentEdit->setFocus();
    resize(600, 400);
    moveToCenter();
    CPopTemplate::showEvent(event);
}
