#include "RecordTitle.h"

#include "CVrkCliSes.h"
#include "Fields.h"
#include "HfnWrapper.h"
#include "RecordValue.h"
#include "ShownText.h"
#include "TemplateText.h"

#include <QDateTime>
#include <QTextCodec>

namespace
{
constexpr int longestText = 500;
} // namespace

RecordTitle::RecordTitle(QWidget* parent) : QLabel(parent)
{
    setObjectName(QStringLiteral("recordTitle"));
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    setMargin(4);
    hide();
}

void RecordTitle::showRecord(const MDRData* record, CVrkCliSes* session, CModelTable* workers)
{
    setVisible(record != nullptr);
    if (!record)
        return;
    const QTextCodec* codec = session->codec();
    const MDRVar time = Row(record).value(Field::recordTime);
    QStringList words;
    if (MDRValue::hasTime(time))
        words << session->HfnTimeToSesTime(time.value.real).toString(QStringLiteral("dd.MM.yyyy hh:mm"));
    const QString author =
        HfnWrapper::workerShortName(codec, workers, QString::fromUtf8(Row(record).bytes(Field::WorkerKey)));
    if (!author.isEmpty())
        words << author;
    const QString html = Row(record).text(Field::html, codec);
    m_lines = QStringList{tr("Запись: %1").arg(words.join(QStringLiteral(", "))),
                          TemplateText::plain(html).left(longestText).simplified()};
    setToolTip(ShownText::tip(m_lines.join(QLatin1Char('\n'))));
    elide();
}

void RecordTitle::elide()
{
    QStringList shown;
    for (const QString& line : qAsConst(m_lines))
        shown << fontMetrics().elidedText(line, Qt::ElideRight,
                                          qMax(0, contentsRect().width() - 2 * margin()));
    setText(shown.join(QLatin1Char('\n')));
}

void RecordTitle::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    elide();
}
