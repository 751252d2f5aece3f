#include "TemplateFiller.h"

#include "CVrkCliMod.h"
#include "FillerEditors.h"
#include "FillerText.h"
#include "HtmlParser.h"
#include "KeptTexts.h"
#include "LatelyUsed.h"
#include "ReferenceData.h"

#include <QHash>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QSplitter>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>

namespace
{
constexpr int keptTemplates = 50;
const QString textName = QStringLiteral("text.");
const QString keyName = QStringLiteral("key.");
constexpr int namedMissing = 4; ///< parameters without a value that a message names; nobody would read more
} // namespace

struct TemplateFiller::Private {
    explicit Private(TemplateFiller* filler) : q(filler) {}

    void build();
    void readTemplate();
    /// The value that the text itself contains; a label is not a value.
    ParameterValue valueInText(int index) const;
    bool isFilled(int index) const;
    int firstMissing() const; ///< -1 if nothing is missing
    FillerText::Shown shown(int index) const;
    void showParameter(int index);
    void userEdited(int index);
    void goToNext(int index);
    void setCurrent(int index);
    void keepTyped(KeptTexts::Where where);
    void keepShown() { keepTyped(keeps == Everything ? KeptTexts::OnDisk : KeptTexts::InMemory); }
    void takeKept();
    void leaveKept();
    void forgetKept();
    void offerKept();
    void clearKept();
    void fitText();

    TemplateFiller* q;
    QPointer<ReferenceData> reference;
    LatelyUsed latelyUsed;

    QString html;
    HtmlParser parser; ///< over the text in UTF-8
    QVector<ParameterSpec> specs;
    QVector<ParameterValue> initial; ///< values that the text already had
    QVector<ParameterValue> values;
    bool isRecord = false; ///< the text already had values: it is a record, not a template

    QPointer<KeptTexts> texts; ///< one kept text for each template, with the template's html among its values
    QString keptPlace;
    QString keptCaption;
    Keeps keeps = Everything;
    QHash<int, ParameterValue> typed; ///< for the shown template, by the parameter's number
    QByteArray keptId;                ///< id of its kept text; empty: none

    QStackedWidget* pages = nullptr;
    QSplitter* splitter = nullptr;
    QWidget* keptBar = nullptr;
    FillerText* text = nullptr;
    FillerEditors* editors = nullptr;
    bool splitterMoved = false;
};

void TemplateFiller::Private::build()
{
    auto* hint = new QLabel(tr("Выберите шаблон"));
    hint->setAlignment(Qt::AlignCenter);
    hint->setEnabled(false);

    keptBar = new QWidget;
    keptBar->setObjectName(QStringLiteral("keptValuesBar"));
    auto* bar = new QHBoxLayout(keptBar);
    bar->setContentsMargins(4, 2, 4, 2);
    auto* note = new QLabel(tr("Показаны значения, введённые раньше и не записанные"));
    note->setWordWrap(true);
    // Two lines, also in the smallest window.
    note->setMinimumSize(note->fontMetrics().averageCharWidth() * 30, note->fontMetrics().lineSpacing() * 2);
    auto* clear = new QToolButton;
    clear->setObjectName(QStringLiteral("clearKeptButton"));
    clear->setText(tr("Очистить"));
    bar->addWidget(note, 1);
    bar->addWidget(clear);

    text = new FillerText;
    text->setObjectName(QStringLiteral("fillerText"));
    editors = new FillerEditors;
    editors->setObjectName(QStringLiteral("fillerEditors"));
    splitter = new QSplitter(Qt::Vertical);
    splitter->setObjectName(QStringLiteral("fillerSplitter"));
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(text);
    splitter->addWidget(editors);
    splitter->setStretchFactor(1, 1);

    auto* filled = new QWidget;
    auto* column = new QVBoxLayout(filled);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    column->addWidget(keptBar);
    column->addWidget(splitter, 1);
    pages = new QStackedWidget(q);
    pages->addWidget(hint);
    pages->addWidget(filled);
    auto* layout = new QVBoxLayout(q);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(pages);

    connect(clear, &QToolButton::clicked, q, [this] { clearKept(); });
    connect(splitter, &QSplitter::splitterMoved, q, [this] { splitterMoved = true; });
    connect(text, &FillerText::parameterClicked, q, [this](int index) {
        if (index < 0 || index >= specs.size())
            return;
        editors->focusEditor(index);
        emit q->requestEditor(specs.at(index).name, static_cast<unsigned>(index));
    });
    connect(editors, &FillerEditors::edited, q, [this](int index) { userEdited(index); });
    connect(editors, &FillerEditors::judged, q, [this](int index) { showParameter(index); });
    connect(editors, &FillerEditors::entered, q, [this](int index) { setCurrent(index); });
    connect(editors, &FillerEditors::nextRequested, q, [this](int index) { goToNext(index); });
}

void TemplateFiller::Private::readTemplate()
{
    parser.setHtml(html.toStdString());
    specs.clear();
    initial.clear();
    isRecord = false;
    const QVector<TemplateText::Run> runs = TemplateText::runs(html);
    for (unsigned i = 0; i < parser.countParameters(); ++i) {
        specs.append(ParameterSpec::read(parser, i));
        initial.append(valueInText(static_cast<int>(i)));
        isRecord = isRecord || !initial.last().isEmpty();
    }
    if (specs.size() == 1) {
        specs.first().wholeText = std::all_of(runs.begin(), runs.end(), [](const TemplateText::Run& run) {
            return run.parameter == 0 || run.text.trimmed().isEmpty();
        });
    }
    values = initial;
    editors->setParameters(specs, reference, &latelyUsed);
    editors->setVisible(!specs.isEmpty());
    QVector<FillerText::Shown> parameters;
    for (int i = 0; i < specs.size(); ++i) {
        editors->setValue(i, values.at(i));
        parameters.append(shown(i));
        editors->setState(i, parameters.last().state);
    }
    text->showText(runs, parameters);
}

ParameterValue TemplateFiller::Private::valueInText(int index) const
{
    const auto i = static_cast<unsigned>(index);
    ParameterValue value{QString::fromStdString(parser.valueText(i)),
                         QString::fromStdString(parser.propertyData(i))};
    if (value.text == QString::fromStdString(parser.propertyValue(i, "locname")))
        value.text.clear();
    return value;
}

bool TemplateFiller::Private::isFilled(int index) const
{
    const ParameterValue& value = values.at(index);
    return !value.key.isEmpty() || (!value.text.trimmed().isEmpty() && value.text != specs.at(index).label);
}

int TemplateFiller::Private::firstMissing() const
{
    for (int i = 0; i < specs.size(); ++i) {
        if (!specs.at(i).optional && !isFilled(i))
            return i;
    }
    return -1;
}

FillerText::Shown TemplateFiller::Private::shown(int index) const
{
    const ParameterSpec& spec = specs.at(index);
    const bool filled = isFilled(index);
    const ParameterState empty = spec.optional ? ParameterState::LeftEmpty : ParameterState::Missing;
    const ParameterState full = editors->isUnknown(index) ? ParameterState::Unknown : ParameterState::Filled;
    const QString& value = values.at(index).text;
    return {spec.shown(value.isEmpty() ? spec.label : value), filled ? full : empty};
}

void TemplateFiller::Private::showParameter(int index)
{
    const FillerText::Shown now = shown(index);
    text->showParameter(index, now);
    editors->setState(index, now.state);
    fitText();
}

void TemplateFiller::Private::userEdited(int index)
{
    values[index] = editors->value(index);
    if (!isRecord) {
        typed.insert(index, values.at(index));
        keepShown();
    }
    showParameter(index);
    emit q->templateChanged();
}

void TemplateFiller::Private::goToNext(int index)
{
    if (index + 1 < specs.size())
        editors->focusEditor(index + 1);
    else
        q->focusNextPrevChild(true);
}

void TemplateFiller::Private::setCurrent(int index)
{
    text->setCurrent(specs.size() > 1 ? index : -1);
    editors->setCurrent(index);
}

void TemplateFiller::Private::keepTyped(KeptTexts::Where where)
{
    KeptTexts::Values kept;
    kept.insert(QStringLiteral("html"), html);
    kept.insert(QStringLiteral("caption"), keptCaption);
    for (auto it = typed.cbegin(); it != typed.cend(); ++it) {
        const QString number = QString::number(it.key());
        kept.insert(textName + number, it->text);
        kept.insert(keyName + number, it->key);
    }
    const bool isNew = keptId.isEmpty();
    keptId = texts->keep(keptPlace, kept, keptId, where);
    if (keeps == Everything)
        texts->hold(keptId, q);
    const QVector<KeptTexts::Text> all = isNew ? texts->offered(keptPlace) : QVector<KeptTexts::Text>();
    for (int i = 0; i < all.size() - keptTemplates; ++i)
        texts->forget(all.at(i).id);
}

/// Finds the values typed earlier for the shown template.
void TemplateFiller::Private::takeKept()
{
    KeptTexts::Values kept;
    for (const KeptTexts::Text& one : texts->offered(keptPlace)) {
        if (one.values.value(QStringLiteral("html")) != html)
            continue;
        keptId = one.id;
        kept = one.values;
    }
    for (int i = 0; i < specs.size(); ++i) {
        const QString number = QString::number(i);
        if (kept.contains(textName + number))
            typed.insert(i, {kept.value(textName + number), kept.value(keyName + number)});
    }
    if (keeps == Everything)
        texts->hold(keptId, q);
}

/// Called when another template is shown.
void TemplateFiller::Private::leaveKept()
{
    if (!keptId.isEmpty())
        keepTyped(KeptTexts::OnDisk);
    texts->hold(keptId, nullptr);
    keptId.clear();
    typed.clear();
}

void TemplateFiller::Private::forgetKept()
{
    texts->forget(keptId);
    keptId.clear();
    typed.clear();
}

void TemplateFiller::Private::offerKept()
{
    if (!isRecord && !html.isEmpty())
        takeKept();
    bool any = false;
    for (auto it = typed.cbegin(); it != typed.cend(); ++it) {
        values[it.key()] = it.value();
        editors->setValue(it.key(), it.value());
        showParameter(it.key());
        any = any || !it.value().isEmpty();
    }
    keptBar->setVisible(any);
}

void TemplateFiller::Private::clearKept()
{
    const QList<int> cleared = typed.keys();
    forgetKept();
    for (const int index : cleared) {
        values[index] = initial.at(index);
        editors->setValue(index, initial.at(index));
        showParameter(index);
    }
    keptBar->hide();
    if (!specs.isEmpty())
        editors->focusEditor(0);
    emit q->templateChanged();
}

void TemplateFiller::Private::fitText()
{
    if (splitterMoved || splitter->orientation() != Qt::Vertical || specs.isEmpty())
        return;
    const int whole = splitter->height();
    const int wanted = qMin(text->neededHeight(), whole * 45 / 100);
    if (whole > 0 && splitter->sizes().value(0) != wanted)
        splitter->setSizes({wanted, whole - wanted});
}

TemplateFiller::TemplateFiller(QWidget* parent) : QWidget(parent), d(new Private(this))
{
    d->build();
    d->texts = new KeptTexts(this);
    setTemplate(QString());
}

TemplateFiller::~TemplateFiller()
{
    d->editors->blockSignals(true); // they lose the focus after d is destroyed
}

void TemplateFiller::setModule(CVrkCliMod* module)
{
    d->reference = ReferenceData::of(module);
}

void TemplateFiller::setOrientation(Qt::Orientation orientation)
{
    d->splitter->setOrientation(orientation);
}

void TemplateFiller::setKept(const QString& place, const QString& caption, Keeps keeps)
{
    d->leaveKept();
    d->texts = KeptTexts::of(this);
    d->keptPlace = place;
    d->keptCaption = caption;
    d->keeps = keeps;
}

void TemplateFiller::setTemplate(const QString& html)
{
    d->leaveKept();
    d->html = html;
    if (d->reference)
        d->latelyUsed.setUser(d->reference->userKey());
    d->readTemplate();
    d->offerKept();
    d->pages->setCurrentIndex(html.isEmpty() ? 0 : 1);
    d->fitText();
    emit templateChanged();
}

QVector<unsigned int> TemplateFiller::findParameter(const QString& name) const
{
    QVector<unsigned int> indexes;
    for (int i = 0; i < d->specs.size(); ++i) {
        if (d->specs.at(i).name == name)
            indexes << static_cast<unsigned>(i);
    }
    return indexes;
}

void TemplateFiller::setParameterValue(unsigned int index, const QString& text, const QString& key)
{
    if (index >= static_cast<unsigned>(d->specs.size()))
        return;
    const int i = static_cast<int>(index);
    const ParameterValue value{text == d->specs.at(i).label ? QString() : text, key};
    if (d->values.at(i) == value)
        return;
    d->values[i] = value;
    if (d->typed.remove(i) > 0) { // it is no longer the typed value
        if (d->typed.isEmpty())
            d->forgetKept();
        else
            d->keepShown();
    }
    d->editors->setValue(i, value);
    d->showParameter(i);
    emit templateChanged();
}

QString TemplateFiller::filledTemplate(bool emptyOptional) const
{
    HtmlParser filled = d->parser;
    for (int i = 0; i < d->specs.size(); ++i) {
        const auto index = static_cast<unsigned>(i);
        const ParameterValue& value = d->values.at(i);
        const ParameterSpec& spec = d->specs.at(i);
        const bool leftEmpty = value.text.isEmpty() && spec.optional && emptyOptional;
        if (value == d->initial.at(i) && !leftEmpty)
            continue;
        const bool label = value.text.isEmpty() && !leftEmpty;
        const QString text = label ? spec.label : value.text.isEmpty() ? QString() : spec.shown(value.text);
        if (QString::fromStdString(filled.displayText(index)) != text)
            filled.setDisplayText(index, text.toStdString());
        filled.setPropertyData(index, value.key.toStdString());
    }
    return QString::fromStdString(filled.readyHtml(true));
}

bool TemplateFiller::isFilled() const
{
    return !d->html.isEmpty() && d->firstMissing() < 0;
}

bool TemplateFiller::focusMissing()
{
    const int missing = d->firstMissing();
    if (missing >= 0)
        d->editors->focusEditor(missing);
    return missing >= 0;
}

QString TemplateFiller::missing() const
{
    if (d->html.isEmpty())
        return tr("Выберите шаблон");
    QStringList labels;
    for (int i = 0; i < d->specs.size(); ++i) {
        if (!d->specs.at(i).optional && !d->isFilled(i))
            labels.append(d->specs.at(i).label);
    }
    if (labels.isEmpty())
        return {};
    const QString named = labels.mid(0, namedMissing).join(QStringLiteral(", "));
    return labels.size() > namedMissing
               ? tr("Не заполнено: %1 и ещё %2").arg(named).arg(labels.size() - namedMissing)
               : tr("Не заполнено: %1").arg(named);
}

void TemplateFiller::MessageData(TEventNciParse* event)
{
    if (d->reference)
        d->reference->MessageData(event);
}

void TemplateFiller::valuesWritten()
{
    for (int i = 0; i < d->specs.size(); ++i) {
        const ParameterSpec& spec = d->specs.at(i);
        const bool freeText =
            spec.kind == ParameterKind::Text || (spec.kind == ParameterKind::List && spec.values.isEmpty());
        if (freeText && d->isFilled(i))
            d->latelyUsed.add(spec.label, d->values.at(i).text);
    }
    forgetValues();
}

void TemplateFiller::forgetValues()
{
    d->forgetKept();
    d->keptBar->hide();
}

void TemplateFiller::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    d->fitText();
}

void TemplateFiller::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    if (!d->specs.isEmpty() && !focusMissing())
        d->editors->focusEditor(0);
}
