#include "NoticeBar.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

namespace
{
QString iconPath(NoticeBar::Kind kind)
{
    switch (kind) {
    case NoticeBar::Information:
        return QStringLiteral(":/vrk/information.png");
    case NoticeBar::Warning:
        return QStringLiteral(":/vrk/warning.png");
    case NoticeBar::Question:
        return QStringLiteral(":/vrk/question.png");
    case NoticeBar::Error:
        break;
    }
    return QStringLiteral(":/vrk/error.png");
}
} // namespace

NoticeBar::NoticeBar(QWidget* parent)
    : QFrame(parent), m_layout(new QHBoxLayout(this)), m_icon(new QLabel(this)), m_text(new QLabel(this))
{
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::AlternateBase);
    m_layout->setContentsMargins(8, 4, 8, 4);
    m_icon->setObjectName(QStringLiteral("noticeIcon"));
    m_text->setObjectName(QStringLiteral("noticeText"));
    m_text->setWordWrap(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_layout->addWidget(m_icon);
    m_layout->addWidget(m_text, 1);
    hide();
}

void NoticeBar::tell(Kind kind, const QString& text, const QVector<Choice>& choices)
{
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
    m_icon->setPixmap(QIcon(iconPath(kind)).pixmap(size, size));
    m_text->setText(text);
    setAccessibleName(text);
    for (QWidget* button : qAsConst(m_buttons)) {
        button->hide();
        button->setObjectName(QString());
        button->deleteLater(); // pressing a button may change the bar
    }
    m_buttons.clear();
    m_ids.clear();
    for (const Choice& choice : choices) {
        auto* button = new QPushButton(choice.text, this);
        button->setObjectName(choice.name);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [this, id = choice.id] { emit chosen(id); });
        m_layout->addWidget(button);
        m_buttons.append(button);
        m_ids.append(choice.id);
    }
    show();
}

QString NoticeBar::text() const
{
    return m_text->text();
}

void NoticeBar::focusChoice(int id)
{
    if (QWidget* button = m_buttons.value(m_ids.indexOf(id)))
        button->setFocus(Qt::OtherFocusReason);
}

void NoticeBar::keyPressEvent(QKeyEvent* event)
{
    auto* button = qobject_cast<QPushButton*>(focusWidget());
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && button && event->modifiers() == Qt::NoModifier && m_buttons.contains(button))
        button->click();
    else
        QFrame::keyPressEvent(event);
}
