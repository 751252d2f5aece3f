#include "ListParameterEditor.h"

#include <QComboBox>
#include <QEvent>
#include <QSignalBlocker>
#include <QVBoxLayout>

ListParameterEditor::ListParameterEditor(const ParameterSpec& spec, QWidget* parent)
    : ParameterEditor(spec, parent), m_combo(new QComboBox(this))
{
    m_combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_combo->setMinimumContentsLength(12);
    m_combo->addItem(tr("— не выбрано —"));
    for (const QString& value : spec.values)
        m_combo->addItem(value, value);
    rows()->addWidget(m_combo);
    addInput(m_combo);
    connect(m_combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this] {
        m_key.clear();
        emit edited();
    });
}

ParameterValue ListParameterEditor::value() const
{
    return {m_combo->currentData().toString(), m_key};
}

void ListParameterEditor::setValue(const ParameterValue& value)
{
    const QSignalBlocker blocker(this);
    int index = value.text.isEmpty() ? 0 : m_combo->findData(value.text);
    if (index < 0) { // from an older list, or written by hand
        m_combo->addItem(value.text, value.text);
        index = m_combo->count() - 1;
    }
    m_combo->setCurrentIndex(index);
    m_key = value.key;
}

QWidget* ListParameterEditor::input() const
{
    return m_combo;
}

bool ListParameterEditor::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Wheel) {
        event->ignore(); // scrolling over it must not choose; the pane scrolls instead
        return true;
    }
    return ParameterEditor::eventFilter(watched, event);
}
