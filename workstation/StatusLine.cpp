#include "StatusLine.h"

#include "CVrkCliSes.h"
#include "ShownText.h"
#include "Theme.h"

#include <algorithm>
#include <QDateTime>
#include <QEvent>
#include <QHash>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QMenu>
#include <QShortcut>
#include <QStyle>
#include <QToolButton>

namespace
{
constexpr int noticeMs = 12000;
/// A message gets at least this width, at the cost of the other texts.
constexpr int charactersOfMessage = 40;
/// The server is asked for its time at this interval; in between our own clock continues it.
constexpr int secondsBetweenSynchronizations = 60;
/// A larger deviation of this computer's clock is reported.
constexpr qint64 toleratedDeviationMs = 5000;
/// Legible on light and dark backgrounds.
const char noticeColours[] = "color: black; background: #F2C94C; padding: 1px 6px;";

/// Names of the tables of a refused write; names that a dispatcher does not know are omitted.
QString titlesOf(const QString& tables)
{
    static const QHash<QString, QString> titles{
        {QStringLiteral("LogbookWorkshifts"), StatusLine::tr("смена")},
        {QStringLiteral("LogbookWorkersWorkshift"), StatusLine::tr("состав смены")},
        {QStringLiteral("LogbookRecords"), StatusLine::tr("записи")},
        {QStringLiteral("LogbookComments"), StatusLine::tr("комментарии")},
        {QStringLiteral("LogbookFiles"), StatusLine::tr("файлы")},
        {QStringLiteral("LogbookCatsTemplate"), StatusLine::tr("категории шаблонов")},
        {QStringLiteral("LogbookTemplates"), StatusLine::tr("шаблоны")},
        {QStringLiteral("TemplateParamCategories"), StatusLine::tr("категории параметров")},
        {QStringLiteral("TemplateParams"), StatusLine::tr("параметры")},
    };
    QStringList shown;
    for (const QString& table : tables.split(QStringLiteral(", ")))
        if (titles.contains(table))
            shown << titles.value(table);
    return shown.join(QStringLiteral(", "));
}

/// Surname and initials of a full name; any other text is unchanged.
QString shortName(const QString& name)
{
    const QStringList parts = name.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    QString text = parts.value(0);
    for (int i = 1; i < parts.size(); ++i)
        text += QStringLiteral(" %1.").arg(parts[i].at(0));
    return text;
}

QLabel* panel(const QString& name, QHBoxLayout* layout, int stretch = 0)
{
    auto* label = new QLabel;
    label->setObjectName(name);
    layout->addWidget(label, stretch);
    return label;
}
} // namespace

StatusLine::StatusLine(CVrkCliSes* session, const QString& user, const QString& department, QWidget* parent)
    : QWidget(parent), m_session(session), m_user(user), m_department(department)
{
    setObjectName(QStringLiteral("statusLine"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 0, 6, 0);
    layout->setSpacing(8);
    m_connectionIcon = panel(QStringLiteral("connectionIcon"), layout);
    m_connectionLabel = panel(QStringLiteral("connectionLabel"), layout);
    m_userLabel = panel(QStringLiteral("userLabel"), layout);
    m_userLabel->setToolTip(ShownText::tip(QStringLiteral("%1, %2").arg(user, department)));

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

    m_messageLabel = panel(QStringLiteral("messageLabel"), layout, 1);
    m_messageLabel->setTextFormat(Qt::PlainText);
    m_messageLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_acknowledgeButton = new QToolButton;
    m_acknowledgeButton->setObjectName(QStringLiteral("acknowledgeButton"));
    m_acknowledgeButton->setText(tr("Понятно"));
    m_acknowledgeButton->setToolTip(tr("Убрать сообщения о неудачах (Ctrl + Shift + K)"));
    m_acknowledgeButton->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_K);
    layout->addWidget(m_acknowledgeButton);

    m_themeButton = new QToolButton;
    m_themeButton->setObjectName(QStringLiteral("themeButton"));
    m_themeButton->setAutoRaise(true);
    m_themeButton->setToolTip(tr("Светлые или тёмные цвета (Ctrl + Shift + D)"));
    layout->addWidget(m_themeButton);
    connect(m_themeButton, &QToolButton::clicked, this, [] { Theme::toggle(); });

    m_deviationLabel = panel(QStringLiteral("deviationLabel"), layout);
    m_deviationLabel->setStyleSheet(QLatin1String(noticeColours));
    m_deviationLabel->setToolTip(tr("Журнал живёт по времени сервера. Сверьте часы этого компьютера."));
    m_clockLabel = panel(QStringLiteral("clockLabel"), layout);
    m_clockLabel->setToolTip(tr("Время сервера"));

    connect(m_acknowledgeButton, &QToolButton::clicked, this, &StatusLine::acknowledge);
    connect(session, &CVrkCliSes::requestFailed, this, &StatusLine::requestFailed);
    connect(session, &CVrkCliSes::writeEnded, this, &StatusLine::writeEnded);
    connect(session, &CVrkCliSes::connectionChanged, this, &StatusLine::showConnection);
    connect(session, &CVrkCliSes::writeSettled, this, [this](bool written) {
        addFailure(written ? tr("Связь вернулась: последнее изменение записано, повторять его не нужно.")
                           : tr("Связь вернулась: последнее изменение не записано, повторите его."));
    });
    connect(session, &CVrkCliSes::historyChanged, this, [this] {
        addFailure(tr("Хранилище восстановлено из копии: закройте программу и откройте её снова."));
    });

    m_noticeTimer.setSingleShot(true);
    m_noticeTimer.setInterval(noticeMs);
    connect(&m_noticeTimer, &QTimer::timeout, this, [this] {
        m_notice.clear();
        showMessage();
    });
    m_clockTimer.setInterval(1000);
    connect(&m_clockTimer, &QTimer::timeout, this, [this] {
        if (++m_ticks % secondsBetweenSynchronizations == 0)
            synchronizeClock();
        showClock();
    });
    m_clockTimer.start();

    showConnection(session->isConnected());
    showMessage();
    synchronizeClock();
    showClock();
    fitTexts();
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
    const int forMessage =
        m_messageLabel->text().isEmpty() ? 0 : charactersOfMessage * fontMetrics().averageCharWidth();
    // The message itself is not included: it takes the remaining space.
    if (layout()->sizeHint().width() + forMessage > width())
        setTexts(true);
}

void StatusLine::setTexts(bool isShort)
{
    m_isShort = isShort;
    // The icon alone is enough for a normal connection.
    m_connectionLabel->setVisible(!isShort || !m_session->isConnected() || !m_session->caution().isEmpty());
    const QString name = isShort ? shortName(m_user) : m_user;
    m_userLabel->setText(m_department.isEmpty() ? name : QStringLiteral("%1, %2").arg(name, m_department));
    m_unreadButton->setText(
        (isShort ? tr("Комментарии: %1") : tr("Непрочитанных комментариев: %1")).arg(m_unread));
    m_themeButton->setText(isShort ? QStringLiteral("◐") : tr("День/ночь"));
    m_themeButton->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_D); // a new text removes the shortcut
    showClock();
}

void StatusLine::addFailure(const QString& text)
{
    const QDateTime now = QDateTime::currentDateTime();
    if (!m_failures.isEmpty() && m_failures.constLast().text == text) {
        ++m_failures.last().count;
        m_failures.last().last = now;
    } else {
        m_failures.append({text, now, 1, {}});
    }
    showMessage();
}

QStringList StatusLine::failures() const
{
    QStringList texts;
    for (const Failure& failure : m_failures) {
        QString text =
            QStringLiteral("%1 %2").arg(failure.last.toString(QStringLiteral("hh:mm:ss")), failure.text);
        if (failure.count > 1)
            text += tr(" (раз: %1)").arg(failure.count);
        texts << text;
    }
    return texts;
}

void StatusLine::setModuleMenu(QMenu* menu)
{
    m_modulesButton->setMenu(menu);
    m_modulesButton->setVisible(menu != nullptr);
    fitTexts();
}

void StatusLine::setUnreadComments(int count)
{
    m_unread = count;
    m_unreadButton->setVisible(count > 0);
    fitTexts();
}

void StatusLine::setOwnClock(std::function<QDateTime()> clock)
{
    m_ownClock = std::move(clock);
    synchronizeClock();
    showClock();
}

void StatusLine::showNotice(const QString& text)
{
    m_notice = text;
    m_noticeTimer.start();
    showMessage();
}

void StatusLine::requestFailed(bool write, const QString& table, const QString& reason)
{
    const QString titles = titlesOf(table);
    const QString where = titles.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(titles);
    addFailure((write ? tr("Не записано%1: %2") : tr("Не прочитано%1: %2")).arg(where, reason));
}

void StatusLine::writeEnded(bool written, const WrittenRows& rows)
{
    if (!written && !m_failures.isEmpty()) {
        m_failures.last().unwritten.append(rows); // just reported
        return;
    }
    for (int i = m_failures.size() - 1; written && i >= 0; --i) {
        Failure& failure = m_failures[i];
        const int before = failure.unwritten.size();
        failure.unwritten.erase(
            std::remove_if(failure.unwritten.begin(), failure.unwritten.end(),
                           [&rows](const WrittenRows& missing) { return missing.areAllIn(rows); }),
            failure.unwritten.end());
        failure.count -= before - failure.unwritten.size();
        if (failure.count == 0)
            m_failures.removeAt(i);
    }
    showMessage();
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
    m_connectionLabel->setStyleSheet(caution.isEmpty() ? QString() : QLatin1String(noticeColours));
    m_connectionIcon->setToolTip(m_connectionLabel->text());
    if (m_clockLabel)
        fitTexts();
}

void StatusLine::showMessage()
{
    m_acknowledgeButton->setVisible(!m_failures.isEmpty());
    const QStringList reported = failures();
    QString text = m_notice;
    if (!reported.isEmpty()) {
        text = reported.constLast();
        if (reported.size() > 1)
            text += tr(" (и ещё %1)").arg(reported.size() - 1);
    }
    m_messageLabel->setText(text);
    QStringList tips;
    for (const QString& one : reported.isEmpty() ? QStringList(m_notice) : reported)
        tips << ShownText::tip(one);
    m_messageLabel->setToolTip(tips.join(QLatin1Char('\n')));

    // A colour in addition to the words: legible on light and dark backgrounds.
    m_messageLabel->setStyleSheet(
        m_failures.isEmpty() ? QString()
                             : QStringLiteral("color: white; background: #B3261E; padding: 1px 6px;"));
    fitTexts();
}

void StatusLine::acknowledge()
{
    m_failures.clear();
    showMessage();
}

void StatusLine::synchronizeClock()
{
    const double now = m_session->GetHfnTime();
    if (now > 0)
        m_serverAhead = m_ownClock().msecsTo(HfnTime_to_DateTime(now, -1));
    showDeviation();
}

void StatusLine::showDeviation()
{
    const bool isWrong = qAbs(m_serverAhead) > toleratedDeviationMs;
    const qint64 seconds = qAbs(m_serverAhead) / 1000;
    m_deviationLabel->setVisible(isWrong);
    m_deviationLabel->setText(!isWrong ? QString()
                              : m_serverAhead > 0 ? tr("Часы компьютера отстают на %1 с").arg(seconds)
                                                  : tr("Часы компьютера спешат на %1 с").arg(seconds));
}

void StatusLine::showClock()
{
    m_clockLabel->setText(
        m_ownClock()
            .addMSecs(m_serverAhead)
            .toString(m_isShort ? QStringLiteral("hh:mm:ss") : QStringLiteral("dd.MM.yyyy hh:mm:ss")));
}
