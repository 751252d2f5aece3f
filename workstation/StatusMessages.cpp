#include "StatusMessages.h"

#include "CVrkCliSes.h"
#include "ShownText.h"
#include "StatusLabel.h"

#include <algorithm>
#include <QHash>
#include <QToolButton>

namespace
{
constexpr int noticeMs = 12000;

/// Names of the tables of a refused write; names that a dispatcher does not know are omitted.
QString titlesOf(const QString& tables)
{
    static const QHash<QString, QString> titles{
        {QStringLiteral("LogbookWorkshifts"), StatusMessages::tr("смена")},
        {QStringLiteral("LogbookWorkersWorkshift"), StatusMessages::tr("состав смены")},
        {QStringLiteral("LogbookRecords"), StatusMessages::tr("записи")},
        {QStringLiteral("LogbookComments"), StatusMessages::tr("комментарии")},
        {QStringLiteral("LogbookFiles"), StatusMessages::tr("файлы")},
        {QStringLiteral("LogbookCatsTemplate"), StatusMessages::tr("категории шаблонов")},
        {QStringLiteral("LogbookTemplates"), StatusMessages::tr("шаблоны")},
        {QStringLiteral("TemplateParamCategories"), StatusMessages::tr("категории параметров")},
        {QStringLiteral("TemplateParams"), StatusMessages::tr("параметры")},
    };
    QStringList shown;
    for (const QString& table : tables.split(QStringLiteral(", ")))
        if (titles.contains(table))
            shown << titles.value(table);
    return shown.join(QStringLiteral(", "));
}
} // namespace

StatusMessages::StatusMessages(const CVrkCliSes* session, QHBoxLayout* line, QObject* parent)
    : QObject(parent),
      m_label(StatusLabel::add(QStringLiteral("messageLabel"), line, 1)),
      m_acknowledgeButton(new QToolButton)
{
    m_label->setTextFormat(Qt::PlainText);
    m_label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_acknowledgeButton->setObjectName(QStringLiteral("acknowledgeButton"));
    m_acknowledgeButton->setText(tr("Понятно"));
    m_acknowledgeButton->setToolTip(tr("Убрать сообщения о неудачах (Ctrl + Shift + K)"));
    m_acknowledgeButton->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_K);
    line->addWidget(m_acknowledgeButton);
    connect(m_acknowledgeButton, &QToolButton::clicked, this, [this] {
        m_failures.clear();
        show();
    });
    connect(session, &CVrkCliSes::requestFailed, this, &StatusMessages::requestFailed);
    connect(session, &CVrkCliSes::writeEnded, this, &StatusMessages::writeEnded);
    connect(session, &CVrkCliSes::writeSettled, this, [this](bool written) {
        addFailure(written ? tr("Связь вернулась: последнее изменение записано, повторять его не нужно.")
                           : tr("Связь вернулась: последнее изменение не записано, повторите его."));
    });
    connect(session, &CVrkCliSes::historyChanged, this, [this] {
        addFailure(tr("История хранилища сменилась: закройте программу и откройте её снова."));
    });

    m_noticeTimer.setSingleShot(true);
    m_noticeTimer.setInterval(noticeMs);
    connect(&m_noticeTimer, &QTimer::timeout, this, [this] {
        m_notice.clear();
        show();
    });
    show();
}

void StatusMessages::addFailure(const QString& text)
{
    const QDateTime now = QDateTime::currentDateTime();
    if (!m_failures.isEmpty() && m_failures.constLast().text == text) {
        ++m_failures.last().count;
        m_failures.last().last = now;
    } else {
        m_failures.append({text, now, 1, {}});
        emit failed(text);
    }
    show();
}

QStringList StatusMessages::failures() const
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

void StatusMessages::showNotice(const QString& text)
{
    m_notice = text;
    m_noticeTimer.start();
    show();
}

void StatusMessages::requestFailed(bool write, const QString& table, const QString& reason)
{
    const QString titles = titlesOf(table);
    const QString where = titles.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(titles);
    addFailure((write ? tr("Не записано%1: %2") : tr("Не прочитано%1: %2")).arg(where, reason));
}

void StatusMessages::writeEnded(bool written, const WrittenRows& rows)
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
    show();
}

void StatusMessages::show()
{
    m_acknowledgeButton->setVisible(!m_failures.isEmpty());
    const QStringList reported = failures();
    QString text = m_notice;
    if (!reported.isEmpty()) {
        text = reported.constLast();
        if (reported.size() > 1)
            text += tr(" (и ещё %1)").arg(reported.size() - 1);
    }
    m_label->setText(text);
    QStringList tips;
    for (const QString& one : reported.isEmpty() ? QStringList(m_notice) : reported)
        tips << ShownText::tip(one);
    m_label->setToolTip(tips.join(QLatin1Char('\n')));

    // A colour in addition to the words.
    m_label->setStyleSheet(m_failures.isEmpty() ? QString() : QLatin1String(StatusLabel::failureColours));
    emit changed();
}
