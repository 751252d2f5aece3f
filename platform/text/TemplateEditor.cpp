#include "TemplateEditor.h"

#include "FillerText.h"
#include "HtmlParser.h"
#include "ParameterKind.h"
#include "TemplateEditorDialog.h"
#include "TemplateEditorHtml.h"
#include "TemplateEditorPanel.h"
#include "TemplateEditorText.h"
#include "WrapLayout.h"

#include <QAction>
#include <QLabel>
#include <QPointer>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QSplitter>
#include <QStyle>
#include <QTimer>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>

namespace
{
constexpr int usualHeight = 400;

/// A line around a view that is visible on any background: that of the style almost disappears in the dark
/// theme.
void frame(QFrame* view)
{
    view->setFrameStyle(QFrame::Box | QFrame::Plain);
    view->setForegroundRole(QPalette::PlaceholderText);
}
} // namespace

struct TemplateEditor::Private {
    explicit Private(TemplateEditor* editor) : q(editor) {}

    void build();
    QWidget* buildTools();
    QToolButton* tool(QAction* action, const char* name);
    QAction* action(const QString& text, const QKeySequence& shortcut, const char* name);
    void load(const QString& html);
    void contentsChanged();
    void showPreview();
    void showState();
    void tell(const QString& notice);
    void editChip(int position);
    void take(const QString& html);

    TemplateEditor* q;
    TemplateEditorText* text = nullptr;
    TemplateEditorPanel* panel = nullptr;
    FillerText* preview = nullptr;
    QLabel* notice = nullptr;
    QAction* bold = nullptr;
    QAction* struckOut = nullptr;
    QAction* undo = nullptr;
    QAction* redo = nullptr;
    QAction* parameter = nullptr;
    QAction* insertion = nullptr;
    QPointer<TemplateEditorDialog> dialog;

    bool enabled = true;
    bool loading = false;
    QString untouched;  ///< the text that was set; valid while the document is unmodified
    QString properties; ///< the elements with template properties
    QString announced;  ///< the text as the receivers know it
    bool warned = false;

    // The cursor position in a text that was cleared: restored if the same text is set next.
    QString clearedText;
    int clearedPosition = 0;
    int clearedScroll = 0;
};

void TemplateEditor::Private::build()
{
    text = new TemplateEditorText(q);
    text->setObjectName(QStringLiteral("templateText"));
    text->setAccessibleName(tr("Текст шаблона"));
    text->setMinimumHeight(text->fontMetrics().lineSpacing() * 3);
    preview = new FillerText(q);
    preview->setObjectName(QStringLiteral("templatePreview"));
    frame(text);
    frame(preview);
    panel = new TemplateEditorPanel(q);
    frame(panel->tree());
    panel->setObjectName(QStringLiteral("templateParameters"));
    notice = new QLabel(q);
    notice->setObjectName(QStringLiteral("templateNotice"));
    notice->setWordWrap(true);
    notice->setFrameShape(QFrame::StyledPanel);
    notice->setAutoFillBackground(true);
    notice->setBackgroundRole(QPalette::ToolTipBase);
    notice->setForegroundRole(QPalette::ToolTipText);
    notice->setMargin(3);
    notice->hide();

    auto* shown = new QWidget(q);
    auto* shownLayout = new QVBoxLayout(shown);
    shownLayout->setContentsMargins(0, 0, 0, 0);
    shownLayout->setSpacing(2);
    auto* caption = new QLabel(tr("Вид в журнале"), shown);
    preview->setAccessibleName(caption->text());
    shownLayout->addWidget(caption);
    shownLayout->addWidget(preview, 1);

    auto* column = new QSplitter(Qt::Vertical, q);
    column->setObjectName(QStringLiteral("templateTextSplitter"));
    column->setChildrenCollapsible(false);
    column->addWidget(text);
    column->addWidget(shown);
    column->setStretchFactor(0, 3);
    column->setStretchFactor(1, 2);
    auto* sides = new QSplitter(Qt::Horizontal, q);
    sides->setObjectName(QStringLiteral("templateSplitter"));
    sides->addWidget(column);
    sides->addWidget(panel);
    sides->setCollapsible(0, false);
    sides->setStretchFactor(0, 1);
    sides->setStretchFactor(1, 0);

    auto* layout = new QVBoxLayout(q);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(buildTools());
    layout->addWidget(notice);
    layout->addWidget(sides, 1);
    q->setFocusProxy(text);

    connect(text->document(), &QTextDocument::contentsChanged, q, [this] { contentsChanged(); });
    connect(text, &QTextEdit::cursorPositionChanged, q, [this] { showState(); });
    connect(text, &QTextEdit::selectionChanged, q, [this] { showState(); });
    connect(text, &QTextEdit::currentCharFormatChanged, q, [this] { showState(); });
    connect(text, &QTextEdit::undoAvailable, q, [this] { showState(); });
    connect(text, &QTextEdit::redoAvailable, q, [this] { showState(); });
    connect(text, &TemplateEditorText::chipRequested, q, [this](int position) { editChip(position); });
    connect(text, &TemplateEditorText::parameterDropped, q, [this](const QString& html) { take(html); });
    connect(text, &TemplateEditorText::refused, q, [this](const QString& words) { tell(words); });
    connect(panel, &TemplateEditorPanel::left, text, [this] { text->setFocus(Qt::OtherFocusReason); });
    connect(panel, &TemplateEditorPanel::taken, q, [this](const QString& html) { take(html); });
    showState();
}

QAction* TemplateEditor::Private::action(const QString& words, const QKeySequence& shortcut, const char* name)
{
    auto* made = new QAction(words, q);
    made->setObjectName(QLatin1String(name));
    made->setShortcut(shortcut);
    // Several editors may exist in one window.
    made->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    made->setToolTip(words + QLatin1Char(' ') + shortcut.toString(QKeySequence::PortableText));
    q->addAction(made);
    return made;
}

QToolButton* TemplateEditor::Private::tool(QAction* action, const char* name)
{
    auto* button = new QToolButton(q);
    button->setObjectName(QLatin1String(name));
    button->setDefaultAction(action);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus); // a click leaves the focus in the text
    return button;
}

QWidget* TemplateEditor::Private::buildTools()
{
    bold = action(tr("Полужирный"), QKeySequence(Qt::CTRL | Qt::Key_B), "boldAction");
    bold->setIconText(tr("Ж"));
    bold->setCheckable(true);
    struckOut = action(tr("Зачёркнутый"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_X), "struckOutAction");
    struckOut->setIconText(tr("З"));
    struckOut->setCheckable(true);
    undo = action(tr("Отменить"), QKeySequence(Qt::CTRL | Qt::Key_Z), "undoAction");
    redo = action(tr("Вернуть"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), "redoAction");
    parameter = action(tr("Параметр…"), QKeySequence(Qt::Key_F2), "parameterAction");
    insertion =
        action(tr("Найти параметр"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_P), "findParameterAction");

    auto* tools = new QWidget(q);
    auto* row = new WrapLayout(tools); // a column of the configurator may be narrow
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    QToolButton* boldButton = tool(bold, "boldButton");
    QFont heavy = boldButton->font();
    heavy.setBold(true);
    boldButton->setFont(heavy);
    QToolButton* struckButton = tool(struckOut, "struckOutButton");
    QFont struck = struckButton->font();
    struck.setStrikeOut(true);
    struckButton->setFont(struck);
    for (QToolButton* button : {boldButton, struckButton, tool(undo, "undoButton"), tool(redo, "redoButton"),
                                tool(parameter, "parameterButton"), tool(insertion, "findParameterButton")})
        row->addWidget(button);

    connect(bold, &QAction::triggered, q, [this](bool on) { text->setBold(on); });
    connect(struckOut, &QAction::triggered, q, [this](bool on) { text->setStruckOut(on); });
    connect(undo, &QAction::triggered, text, &TemplateEditorText::undoStep);
    connect(redo, &QAction::triggered, text, &TemplateEditorText::redoStep);
    connect(parameter, &QAction::triggered, q, [this] { editChip(text->currentChip()); });
    connect(insertion, &QAction::triggered, panel, [this] { panel->setFocus(Qt::ShortcutFocusReason); });
    return tools;
}

void TemplateEditor::Private::load(const QString& html)
{
    const QScopedValueRollback<bool> rollback(loading, true);
    if (dialog)
        dialog->reject(); // it belongs to the text that is being replaced
    untouched = html;
    announced = html;
    properties = TemplateEditorHtml::properties(html);
    warned = false;
    text->setContent(html);
    notice->hide();
    showPreview();
    showState();
}

void TemplateEditor::Private::contentsChanged()
{
    if (loading)
        return;
    const QString now = q->templateText();
    if (now == announced)
        return;
    announced = now;
    notice->hide();
    const QStringList lost = warned ? QStringList() : TemplateEditorHtml::uncarried(untouched);
    if (!lost.isEmpty()) {
        warned = true;
        tell(tr("Шаблон не переносит: %1. После правки от них остаётся только текст")
                 .arg(lost.join(QLatin1String(", "))));
    }
    showPreview();
    emit q->templateChanged(now);
}

void TemplateEditor::Private::showPreview()
{
    const HtmlParser parser(announced.toStdString());
    QVector<FillerText::Shown> shown;
    for (unsigned i = 0; i < parser.countParameters(); ++i) {
        const ParameterSpec spec = ParameterSpec::read(parser, i);
        const QString value = QString::fromStdString(parser.valueText(i));
        const bool filled = !value.trimmed().isEmpty() && value != spec.label;
        const ParameterState empty = spec.optional ? ParameterState::LeftEmpty : ParameterState::Missing;
        shown.append(
            {spec.shown(value.isEmpty() ? spec.label : value), filled ? ParameterState::Filled : empty});
    }
    const int scrolled = preview->verticalScrollBar()->value();
    preview->showText(TemplateText::runs(announced), shown);
    preview->verticalScrollBar()->setValue(scrolled);
}

void TemplateEditor::Private::showState()
{
    for (QAction* each : {bold, struckOut, insertion})
        each->setEnabled(enabled);
    bold->setChecked(text->isBold());
    struckOut->setChecked(text->isStruckOut());
    undo->setEnabled(enabled && text->document()->isUndoAvailable());
    redo->setEnabled(enabled && text->document()->isRedoAvailable());
    parameter->setEnabled(enabled && text->currentChip() >= 0);
}

void TemplateEditor::Private::tell(const QString& words)
{
    notice->setText(words);
    notice->setAccessibleName(words);
    notice->show();
}

void TemplateEditor::Private::editChip(int position)
{
    if (!enabled || position < 0 || dialog)
        return;
    // A cursor keeps the position if the surrounding text changes in the meantime.
    QTextCursor place(text->document());
    place.setPosition(position);
    place.setKeepPositionOnInsert(true);
    const TemplateEditorChip before = text->chipAt(position);
    dialog = new TemplateEditorDialog(before, q);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, q, [this, place, before] {
        const TemplateEditorChip after = dialog->chip();
        if (after.html() != before.html() && text->chipAt(place.position()).html() == before.html())
            text->replaceChip(place.position(), after);
    });
    connect(dialog, &QDialog::finished, text, [this] { text->setFocus(Qt::OtherFocusReason); });
    dialog->open();
}

void TemplateEditor::Private::take(const QString& html)
{
    text->insertParameter(html);
    text->setFocus(Qt::OtherFocusReason);
    const TemplateEditorChip chip = text->chipAt(text->currentChip());
    const bool isEmptyList = ParameterSpec::kindOf(chip.property("name")) == ParameterKind::List &&
                             chip.property("list").isEmpty();
    if (isEmptyList) // later, because the end of the change that a drop belongs to removes notices
        QTimer::singleShot(0, q,
                           [this] { tell(tr("Список пока пуст: значения задаются в окне параметра (F2)")); });
}

TemplateEditor::TemplateEditor(QWidget* parent) : QWidget(parent), d(new Private(this))
{
    d->build();
}

TemplateEditor::~TemplateEditor()
{
    d->text->blockSignals(true); // it may lose the focus after d is destroyed
    d->text->document()->blockSignals(true);
    delete d->dialog;
}

QSize TemplateEditor::sizeHint() const
{
    const QSize hint = QWidget::sizeHint();
    return QSize(hint.width(), qMin(hint.height(), usualHeight));
}

void TemplateEditor::setTextCodec(QTextCodec* codec)
{
    d->panel->setTextCodec(codec);
}

void TemplateEditor::setCatsParametersTable(CModelTable* table)
{
    d->panel->setCategories(table);
}

void TemplateEditor::setParametersTable(CModelTable* table)
{
    d->panel->setParameters(table);
}

void TemplateEditor::setParameterFilter(const QStringList& names)
{
    d->panel->setFilter(names);
}

void TemplateEditor::setEnabled(bool enabled)
{
    d->enabled = enabled;
    d->text->setReadOnly(!enabled);
    if (!enabled)
        d->text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    d->panel->setTaking(enabled);
    if (!enabled && d->dialog)
        d->dialog->reject();
    d->showState();
}

bool TemplateEditor::isEnabled() const
{
    return QWidget::isEnabled() && d->enabled;
}

void TemplateEditor::setTemplateText(const QString& html)
{
    const QString now = templateText();
    if (html == now)
        return;
    if (!now.isEmpty() &&
        TemplateEditorHtml::withoutProperties(html) == TemplateEditorHtml::withoutProperties(now)) {
        const bool modified = d->text->document()->isModified();
        d->properties = TemplateEditorHtml::properties(html);
        d->untouched = modified ? d->properties + TemplateEditorHtml::withoutProperties(d->untouched) : html;
        d->announced = html;
        return;
    }
    d->load(html);
    if (html == d->clearedText && !html.isEmpty()) {
        QTextCursor cursor = d->text->textCursor();
        cursor.setPosition(qMin(d->clearedPosition, d->text->document()->characterCount() - 1));
        d->text->setTextCursor(cursor);
        d->text->verticalScrollBar()->setValue(d->clearedScroll);
    }
}

void TemplateEditor::clearTemplateText()
{
    if (!templateText().isEmpty()) {
        d->clearedText = templateText();
        d->clearedPosition = d->text->textCursor().position();
        d->clearedScroll = d->text->verticalScrollBar()->value();
    }
    d->load(QString());
}

QString TemplateEditor::templateText() const
{
    return d->text->document()->isModified() ? d->properties + d->text->content() : d->untouched;
}

void TemplateEditor::reloadParameters()
{
    d->panel->reload();
}

void TemplateEditor::updateParameters(MDRData* record)
{
    d->panel->update(record);
}
