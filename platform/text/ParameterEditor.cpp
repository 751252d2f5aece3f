#include "ParameterEditor.h"

#include "DateTimeParameterEditor.h"
#include "ListParameterEditor.h"
#include "ReferenceParameterEditor.h"
#include "TextParameterEditor.h"

#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

ParameterEditor* ParameterEditor::create(const ParameterSpec& spec, ReferenceData* reference,
                                         LatelyUsed* latelyUsed, QWidget* parent)
{
    switch (spec.kind) {
    case ParameterKind::Text:
        break;
    case ParameterKind::DateTime:
    case ParameterKind::Interval:
        return new DateTimeParameterEditor(spec, reference, parent);
    case ParameterKind::List:
        if (spec.values.isEmpty())
            break;
        return new ListParameterEditor(spec, parent);
    case ParameterKind::Voltage:
        if (!spec.values.isEmpty())
            return new ListParameterEditor(spec, parent);
        return new ReferenceParameterEditor(spec, reference, parent);
    default:
        return new ReferenceParameterEditor(spec, reference, parent);
    }
    return new TextParameterEditor(spec, latelyUsed, parent);
}

ParameterEditor::ParameterEditor(const ParameterSpec& spec, QWidget* parent)
    : QWidget(parent), m_spec(spec), m_rows(new QVBoxLayout), m_complaint(new QLabel(this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    m_rows->setSpacing(2);
    layout->addLayout(m_rows);
    layout->addWidget(m_complaint);
    m_complaint->setObjectName(QStringLiteral("complaint"));
    m_complaint->setWordWrap(true);
    m_complaint->hide();
}

void ParameterEditor::addInput(QWidget* input)
{
    input->setAccessibleName(m_spec.label);
    input->installEventFilter(this); // no proxy: Tab would stop at the editor, which stands behind its inputs
}

void ParameterEditor::remark(const QString& text)
{
    m_complaint->setText(text);
    m_complaint->setVisible(!text.isEmpty());
}

void ParameterEditor::finish(QWidget*) {}

bool ParameterEditor::eventFilter(QObject* watched, QEvent* event)
{
    auto* widget = static_cast<QWidget*>(watched);
    switch (event->type()) {
    case QEvent::FocusIn:
        emit entered();
        break;
    case QEvent::FocusOut:
        finish(widget);
        break;
    case QEvent::KeyPress: {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter)
            break;
        if (!enterPressed(widget, key->modifiers() & ~Qt::KeypadModifier)) {
            finish(widget);
            emit nextRequested();
        }
        return true;
    }
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}
