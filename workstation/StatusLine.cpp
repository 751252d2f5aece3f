#include "StatusLine.h"

#include "CVrkCliSes.h"
#include "HistoryDialog.h"
#include "ShownText.h"
#include "StatusLabel.h"
#include "Theme.h"

#include <QEvent>
#include <QIcon>
#include <QMenu>
#include <QShortcut>
#include <QStyle>
#include <QToolButton>

namespace
{
/// A message gets at least this width, at the cost of the other texts.
constexpr int charactersOfMessage = 40;

/// Surname and initials of a full name; any other text is unchanged.
QString shortName(const QString& name)
{
    const QStringList parts = name.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    QString text = parts.value(0);
    for (int i = 1; i < parts.size(); ++i)
        text += QStringLiteral(" %1.").arg(parts[i].at(0));
    return text;
}
} // namespace

StatusLine::StatusLine(CVrkCliSes* session, const QString& user, const QString& department, QWidget* parent)
    : QWidget(parent), m_session(session), m_user(user), m_department(department)
{
    setObjectName(QStringLiteral("statusLine"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 0, 6, 0);
    layout->setSpacing(8);
    m_connectionIcon = StatusLabel::add(QStringLiteral("connectionIcon"), layout);
    m_connectionLabel = StatusLabel::add(QStringLiteral("connectionLabel"), layout);
    m_userLabel = StatusLabel::add(QStringLiteral("userLabel"), layout);
    m_userLabel->setToolTip(ShownText::tip(QStringLiteral("%1, %2").arg(user, department)));

    m_historyButton = new QToolButton;
    m_historyButton->setObjectName(QStringLiteral("historyButton"));
    m_historyButton->setAutoRaise(true);
    m_historyButton->setText(tr("История изменена!"));
    m_historyButton->setStyleSheet(QLatin1String(StatusLabel::failureColours));
    m_historyButton->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_H);
    m_historyButton->hide();
    layout->addWidget(m_historyButton);

    m_modulesButton = new QToolButton;
    m_modulesButton->setObjectName(QStringLiteral("modulesButton"));
    m_modulesButton->setAutoRaise(true);
    m_modulesButton->setPopupMode(QToolButton::InstantPopup);
    m_modulesButton->setText(tr("Модули"));
    m_modulesButton->setToolTip(tr("Другие модули, вид окна и смена пользователя (Ctrl + Shift + M)"));
    m_modulesButton->hide();
    layout->addWidget(m_modulesButton);
    auto* menuKey = new QShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_M), this);
    connect(menuKey, &QShortcut::activated, m_modulesButton, &QToolButton::showMenu);

    m_unreadButton = new QToolButton;
    m_unreadButton->setObjectName(QStringLiteral("unreadButton"));
    m_unreadButton->setAutoRaise(true);
    m_unreadButton->setToolTip(tr("Непрочитанные комментарии к вашим записям"));
    m_unreadButton->hide();
    layout->addWidget(m_unreadButton);
    connect(m_unreadButton, &QToolButton::clicked, this, &StatusLine::unreadCommentsClicked);

    m_messages = new StatusMessages(session, layout, this);

    m_themeButton = new QToolButton;
    m_themeButton->setObjectName(QStringLiteral("themeButton"));
    m_themeButton->setAutoRaise(true);
    m_themeButton->setToolTip(tr("Светлые или тёмные цвета (Ctrl + Shift + D)"));
    layout->addWidget(m_themeButton);
    connect(m_themeButton, &QToolButton::clicked, this, [this] {
        Theme::toggle();
        emit themeChosen(Theme::current());
    });

    m_clock = new ServerClock(session, layout, this);
    connect(m_messages, &StatusMessages::failed, this, &StatusLine::failed);
    connect(m_messages, &StatusMessages::changed, this, &StatusLine::fitTexts);
    connect(session, &CVrkCliSes::connectionChanged, this, &StatusLine::showConnection);
    showConnection(session->isConnected());
}

void StatusLine::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    fitTexts();
}

void StatusLine::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fitTexts();
}

void StatusLine::fitTexts()
{
    setTexts(false);
    const int forMessage = m_messages->isEmpty() ? 0 : charactersOfMessage * fontMetrics().averageCharWidth();
    // The message itself is not included: it takes the remaining space.
    if (layout()->sizeHint().width() + forMessage > width())
        setTexts(true);
}

void StatusLine::setTexts(bool isShort)
{
    // The icon alone is enough for a normal connection.
    m_connectionLabel->setVisible(!isShort || !m_session->isConnected() || !m_session->caution().isEmpty());
    const QString name = isShort ? shortName(m_user) : m_user;
    m_userLabel->setText(m_department.isEmpty() ? name : QStringLiteral("%1, %2").arg(name, m_department));
    m_unreadButton->setText(
        (isShort ? tr("Комментарии: %1") : tr("Непрочитанных комментариев: %1")).arg(m_unread));
    m_themeButton->setText(isShort ? QStringLiteral("◐") : tr("День/ночь"));
    m_themeButton->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_D); // a new text removes the shortcut
    m_clock->setShort(isShort);
}

void StatusLine::setModuleMenu(QMenu* menu)
{
    m_modulesButton->setMenu(menu);
    m_modulesButton->setVisible(menu != nullptr);
    fitTexts();
}

void StatusLine::setHistoryGuard(HistoryGuard* guard)
{
    const auto show = [this, guard] {
        const QString alarm = guard->alarm().text;
        m_historyButton->setVisible(!alarm.isEmpty());
        m_historyButton->setToolTip(ShownText::tip(alarm + tr(" (Ctrl + Shift + H)")));
        fitTexts();
    };
    connect(guard, &HistoryGuard::changed, this, show);
    connect(guard, &HistoryGuard::noticed, m_messages, &StatusMessages::addFailure);
    connect(m_historyButton, &QToolButton::clicked, guard, [this, guard] {
        HistoryDialog dialog(guard, m_user, window());
        dialog.exec();
    });
    show();
}

void StatusLine::setUnreadComments(int count)
{
    m_unread = count;
    m_unreadButton->setVisible(count > 0);
    fitTexts();
}

void StatusLine::showConnection(bool connected)
{
    const QString icon =
        connected ? QStringLiteral(":/vrk/connected.png") : QStringLiteral(":/vrk/disconnected.png");
    const int side = style()->pixelMetric(QStyle::PM_SmallIconSize);
    m_connectionIcon->setPixmap(QIcon(icon).pixmap(side, side));
    const QString caution = connected ? m_session->caution() : QString();
    m_connectionLabel->setText(!connected          ? tr("Нет связи с хранилищем")
                               : caution.isEmpty() ? tr("Подключено")
                                                   : tr("Подключено: %1").arg(caution));
    m_connectionLabel->setStyleSheet(caution.isEmpty() ? QString()
                                                       : QLatin1String(StatusLabel::noticeColours));
    m_connectionIcon->setToolTip(m_connectionLabel->text());
    fitTexts();
}
