#include "CommentCreatorDialog.h"

#include "ui_CommentCreatorDialog.h"

#include <QKeyEvent>
#include <QShortcut>
#include <QSignalBlocker>

CommentCreatorDialog::CommentCreatorDialog(QWidget* parent, int flag)
    : CPopTemplate(parent, flag), m_form(new Ui::CommentCreatorDialog)
{
    m_form->setupUi(this);
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

void CommentCreatorDialog::apply()
{
    emit commentChanged(m_commentKey, m_form->commentEdit->toPlainText());
    close();
}

void CommentCreatorDialog::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    CPopTemplate::keyPressEvent(event);
}

void CommentCreatorDialog::showEvent(QShowEvent* event)
{
    m_form->applyButton->setEnabled(false); // until the text changes, also when there is one: meant
    m_form->commentEdit->moveCursor(QTextCursor::End);
    m_form->commentEdit->setFocus();
    resize(600, 400);
    moveToCenter();
    CPopTemplate::showEvent(event);
}
