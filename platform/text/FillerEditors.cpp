#include "FillerEditors.h"

#include "ParameterEditor.h"

#include <QEvent>
#include <QFormLayout>
#include <QLabel>
#include <QTimer>

FillerEditors::FillerEditors(QWidget* parent) : QScrollArea(parent)
{
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void FillerEditors::setParameters(const QVector<ParameterSpec>& specs, ReferenceData* reference,
                                  LatelyUsed* latelyUsed)
{
    // The old editors emit signals when they lose the focus, with numbers that now belong to the new
    // editors. One of them may have emitted the signal that led here, so they are deleted later.
    for (const Row& row : qAsConst(m_rows))
        row.editor->blockSignals(true);
    if (QWidget* old = takeWidget())
        old->deleteLater();
    m_rows.clear();
    m_current = -1;
    auto* content = new QWidget;
    auto* form = new QFormLayout(content);
    form->setContentsMargins(4, 4, 4, 4);
    form->setVerticalSpacing(4);
    form->setRowWrapPolicy(QFormLayout::WrapLongRows);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->setLabelAlignment(Qt::AlignLeft | Qt::AlignTop);
    for (int i = 0; i < specs.size(); ++i) {
        auto* label = new QLabel(content);
        label->setObjectName(QStringLiteral("parameterLabel_%1").arg(i));
        label->setContentsMargins(4, 3, 4, 3);
        ParameterEditor* editor = ParameterEditor::create(specs.at(i), reference, latelyUsed, content);
        editor->setObjectName(QStringLiteral("parameterEditor_%1").arg(i));
        editor->input()->setObjectName(QStringLiteral("parameterInput_%1").arg(i));
        label->setBuddy(editor->input());
        if (specs.at(i).wholeText) {
            form->addRow(label);
            form->addRow(editor);
        } else {
            form->addRow(label, editor);
        }
        m_rows.append({label, editor});
        connect(editor, &ParameterEditor::edited, this, [this, i] { emit edited(i); });
        connect(editor, &ParameterEditor::judged, this, [this, i] { emit judged(i); });
        connect(editor, &ParameterEditor::entered, this, [this, i] { emit entered(i); });
        connect(editor, &ParameterEditor::nextRequested, this, [this, i] { emit nextRequested(i); });
    }
    setWidget(content);
    fitWidths();
    placeInTabOrder();
}

void FillerEditors::changeEvent(QEvent* event)
{
    QScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        QTimer::singleShot(0, this, &FillerEditors::fitWidths); // the editors get the font after this widget
}

void FillerEditors::fitWidths()
{
    // Below this width the label moves above its editor.
    for (const Row& row : qAsConst(m_rows)) {
        row.editor->setMinimumWidth(
            qMax(fontMetrics().averageCharWidth() * 26, row.editor->minimumSizeHint().width()));
    }
}

void FillerEditors::placeInTabOrder()
{
    // New widgets are last in the window's focus chain; the editors must have the position of this area,
    // which is in the chain only while it accepts the focus itself.
    setFocusPolicy(Qt::TabFocus);
    QWidget* before = this;
    for (QWidget* input : widget()->findChildren<QWidget*>()) {
        const bool walked = (input->focusPolicy() & Qt::TabFocus) && !input->focusProxy();
        if (!walked || input->window() != window()) // the popup of a combo box is a separate window
            continue;
        setTabOrder(before, input);
        before = input;
    }
    setFocusPolicy(Qt::NoFocus);
}

int FillerEditors::indexOf(const QWidget* widget) const
{
    for (int i = 0; i < m_rows.size(); ++i) {
        const ParameterEditor* editor = m_rows.at(i).editor;
        if (widget && (widget == editor || editor->isAncestorOf(widget)))
            return i;
    }
    return -1;
}

void FillerEditors::setState(int index, ParameterState state)
{
    QLabel* label = m_rows.at(index).label;
    QString text = m_rows.at(index).editor->spec().label;
    text.replace(QLatin1Char('&'), QStringLiteral("&&"));
    switch (state) {
    case ParameterState::Missing:
        label->setText(QStringLiteral("● ") + text);
        label->setToolTip(tr("Нужно заполнить"));
        break;
    case ParameterState::LeftEmpty:
        label->setText(QStringLiteral("○ ") + text);
        label->setToolTip(tr("Можно не заполнять"));
        break;
    case ParameterState::Filled:
        label->setText(QStringLiteral("✓ ") + text);
        label->setToolTip(tr("Заполнено"));
        break;
    case ParameterState::Unknown:
        label->setText(QStringLiteral("✎ ") + text);
        label->setToolTip(tr("Заполнено тем, чего нет в справочнике"));
        break;
    }
}

void FillerEditors::setCurrent(int index)
{
    const auto mark = [this](int row, bool current) {
        if (row < 0)
            return;
        QLabel* label = m_rows.at(row).label;
        label->setBackgroundRole(current ? QPalette::Highlight : QPalette::NoRole);
        label->setForegroundRole(current ? QPalette::HighlightedText : QPalette::NoRole);
        label->setAutoFillBackground(current);
    };
    mark(m_current, false);
    m_current = index;
    mark(m_rows.size() > 1 ? m_current : -1, true);
    if (index >= 0)
        ensureWidgetVisible(m_rows.at(index).editor, 0, 8);
}
