#include "DateTimeParameterEditor.h"

#include "DateTimeLine.h"
#include "ReferenceData.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QRegularExpression>
#include <QSignalBlocker>
#include <QToolButton>

namespace
{
QString intervalFormat()
{
    return QStringLiteral("dd.MM.yyyy hh:mm");
}
} // namespace

DateTimeParameterEditor::DateTimeParameterEditor(const ParameterSpec& spec, ReferenceData* reference,
                                                 QWidget* parent)
    : ParameterEditor(spec, parent)
{
    if (spec.kind == ParameterKind::Interval) {
        m_lines << addLine(tr("с"), intervalFormat(), reference);
        m_lines << addLine(tr("по"), intervalFormat(), reference);
    } else {
        m_lines << addLine(QString(), spec.format, reference);
    }
    alignCaptions();
}

void DateTimeParameterEditor::changeEvent(QEvent* event)
{
    ParameterEditor::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        alignCaptions();
}

void DateTimeParameterEditor::alignCaptions()
{
    int widest = 0;
    for (const QLabel* caption : qAsConst(m_captions))
        widest = qMax(widest, caption->fontMetrics().horizontalAdvance(caption->text()) + 2);
    for (QLabel* caption : qAsConst(m_captions))
        caption->setMinimumWidth(widest);
}

DateTimeLine* DateTimeParameterEditor::addLine(const QString& caption, const QString& format,
                                               ReferenceData* reference)
{
    auto* line = new DateTimeLine(format, this);
    auto* now = new QToolButton(this);
    now->setText(tr("Сейчас"));
    now->setToolTip(tr("Текущее время (F5)"));
    now->setFocusPolicy(Qt::NoFocus);
    auto* row = new QHBoxLayout;
    row->setSpacing(4);
    if (!caption.isEmpty()) {
        auto* label = new QLabel(caption, this);
        m_captions << label;
        row->addWidget(label);
    }
    row->addWidget(line, 1);
    row->addWidget(now);
    rows()->addLayout(row);
    const QPointer<ReferenceData> clock = reference;
    line->setClock([clock] { return clock ? clock->now() : QDateTime::currentDateTime(); });
    connect(now, &QToolButton::clicked, line, [line] {
        line->setFocus();
        line->setNow();
    });
    connect(line, &QLineEdit::textEdited, this, &DateTimeParameterEditor::lineEdited);
    addInput(line);
    if (!caption.isEmpty())
        line->setAccessibleName(spec().label + QStringLiteral(", ") + caption);
    return line;
}

void DateTimeParameterEditor::lineEdited()
{
    m_isGiven = false;
    if (fault().isEmpty())
        complain(QString());
    emit edited();
}

QString DateTimeParameterEditor::fault() const
{
    QVector<QDateTime> times;
    int empty = 0;
    for (const DateTimeLine* line : m_lines) {
        times << line->time();
        const bool blank = line->text().trimmed().isEmpty();
        empty += blank ? 1 : 0;
        if (!blank && !times.last().isValid())
            return tr("Ожидается %1").arg(DateTimeLine::shownFormat(line->format()));
    }
    if (!isInterval() || empty == 2)
        return QString();
    if (empty == 1)
        return tr("Укажите начало и конец");
    return times.at(1) < times.at(0) ? tr("Конец раньше начала") : QString();
}

ParameterValue DateTimeParameterEditor::value() const
{
    if (m_isGiven)
        return m_given;
    if (!fault().isEmpty() || m_lines.first()->text().trimmed().isEmpty())
        return ParameterValue();
    const auto text = [](const DateTimeLine* line) { return line->time().toString(line->format()); };
    if (isInterval())
        return {tr("с %1 по %2").arg(text(m_lines.at(0)), text(m_lines.at(1))), QString()};
    return {text(m_lines.first()), QString()};
}

void DateTimeParameterEditor::setValue(const ParameterValue& value)
{
    const QSignalBlocker blocker(this);
    m_given = value;
    m_isGiven = !value.isEmpty();
    complain(QString());
    for (DateTimeLine* line : qAsConst(m_lines))
        line->clear();
    if (!isInterval()) {
        m_lines.first()->setText(value.text);
        return;
    }
    static const QRegularExpression interval(QStringLiteral("^с (.+) по (.+)$"));
    const QRegularExpressionMatch match = interval.match(value.text);
    if (match.hasMatch()) {
        m_lines.at(0)->setText(match.captured(1));
        m_lines.at(1)->setText(match.captured(2));
    } else if (!value.text.isEmpty()) {
        complain(tr("В тексте: %1").arg(value.text));
    }
}

QWidget* DateTimeParameterEditor::input() const
{
    return m_lines.first();
}

bool DateTimeParameterEditor::enterPressed(QWidget* input, Qt::KeyboardModifiers)
{
    if (!isInterval() || input != m_lines.first())
        return false;
    m_lines.last()->setFocus(Qt::TabFocusReason); // completes the first line
    return true;
}

void DateTimeParameterEditor::finish(QWidget* input)
{
    if (m_isGiven)
        return;
    static_cast<DateTimeLine*>(input)->complete();
    // No error yet while the user moves from the first time to the second.
    const bool between = isInterval() && input == m_lines.first() && m_lines.first()->time().isValid() &&
                         m_lines.last()->text().isEmpty();
    complain(between ? QString() : fault());
}
