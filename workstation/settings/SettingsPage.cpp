#include "SettingsPage.h"

#include "SearchWords.h"
#include "TextMatch.h"
#include "UserSettings.h"

#include <algorithm>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace
{
/// A word is found by its part or by any of its forms.
bool contains(const QString& text, const QString& query)
{
    const QString folded = TextMatch::folded(text);
    const QStringList stems = SearchWords::stems(text);
    const QStringList parts = TextMatch::parts(query);
    return std::all_of(parts.begin(), parts.end(), [&](const QString& part) {
        const QString stem = SearchWords::stems(part).value(0);
        return folded.contains(part) ||
               (!stem.isEmpty() && std::any_of(stems.begin(), stems.end(),
                                               [&](const QString& one) { return one.startsWith(stem); }));
    });
}
} // namespace

SettingsPage::SettingsPage(UserSettings* settings, const QString& title, QWidget* parent)
    : QWidget(parent), m_settings(settings), m_title(title), m_layout(new QVBoxLayout(this))
{
    m_layout->setSpacing(14);
    m_layout->addStretch();
}

void SettingsPage::addRow(const QString& caption, QWidget* control, const QString& explanation,
                          const QString& words)
{
    auto* row = new QWidget;
    auto* column = new QVBoxLayout(row);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(3);
    if (!caption.isEmpty()) {
        auto* label = new QLabel(caption);
        label->setBuddy(control);
        column->addWidget(label);
        if (control->accessibleName().isEmpty())
            control->setAccessibleName(caption);
    }
    column->addWidget(control);
    auto* text = new QLabel(explanation);
    text->setWordWrap(true);
    text->setForegroundRole(QPalette::PlaceholderText);
    text->setTextFormat(Qt::PlainText);
    column->addWidget(text);
    control->setAccessibleDescription(explanation);
    m_layout->insertWidget(m_layout->count() - 1, row);
    m_rows.append({row, QStringList{m_title, caption, explanation, words}.join(QLatin1Char(' '))});
}

QCheckBox* SettingsPage::addSwitch(const char* name, const QString& text, const QString& explanation,
                                   const QString& words)
{
    auto* box = new QCheckBox(text);
    box->setObjectName(nameOf(name, "Box"));
    addRow(QString(), box, explanation, text + QLatin1Char(' ') + words);
    follow(name, [box](const QVariant& value) {
        const QSignalBlocker quiet(box);
        box->setChecked(value.toBool());
    });
    connect(box, &QCheckBox::toggled, this, [this, name](bool on) { keep(name, on); });
    return box;
}

QComboBox* SettingsPage::addChoice(const char* name, const QString& caption,
                                   const QVector<QPair<QString, QString>>& choices,
                                   const QString& explanation, const QString& words)
{
    auto* combo = new QComboBox;
    combo->setObjectName(nameOf(name, "Combo"));
    combo->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    QStringList texts;
    for (const auto& choice : choices) {
        combo->addItem(choice.second, choice.first);
        texts << choice.second;
    }
    addRow(caption, combo, explanation, texts.join(QLatin1Char(' ')) + QLatin1Char(' ') + words);
    follow(name, [combo](const QVariant& value) {
        const QSignalBlocker quiet(combo);
        combo->setCurrentIndex(combo->findData(value));
    });
    connect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            [this, combo, name] { keep(name, combo->currentData()); });
    return combo;
}

void SettingsPage::keep(const char* name, const QVariant& value)
{
    m_settings->setValue(name, value);
    emit keepingFailed(m_settings->errorText());
}

void SettingsPage::follow(const char* name, const std::function<void(const QVariant&)>& show)
{
    m_before.insert(name, m_settings->value(name));
    show(m_settings->value(name));
    connect(m_settings, &UserSettings::changed, this, [this, name, show](const QByteArray& changed) {
        if (changed == name)
            show(m_settings->value(name));
    });
}

QString SettingsPage::nameOf(const char* setting, const char* kind)
{
    QString name = QString::fromLatin1(setting);
    return name.remove(QLatin1Char('.')) + QLatin1String(kind);
}

int SettingsPage::showMatching(const QString& query)
{
    int shown = 0;
    for (const Row& row : qAsConst(m_rows)) {
        const bool isFound = contains(row.words, query);
        row.widget->setVisible(isFound);
        shown += isFound ? 1 : 0;
    }
    return shown;
}

void SettingsPage::remember()
{
    for (auto it = m_before.begin(); it != m_before.end(); ++it)
        it.value() = m_settings->value(it.key());
}

void SettingsPage::takeBack()
{
    const QHash<QByteArray, QVariant> before = m_before;
    for (auto it = before.begin(); it != before.end(); ++it) {
        if (m_settings->value(it.key()) != it.value())
            keep(it.key(), it.value());
    }
}

void SettingsPage::setDefaults()
{
    const QList<QByteArray> names = m_before.keys();
    for (const QByteArray& name : names)
        keep(name, UserSettings::defaultValue(name));
}
