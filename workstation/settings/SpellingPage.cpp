#include "SpellingPage.h"

#include "EmptyHint.h"
#include "SpellDictionary.h"
#include "UserSettings.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>

SpellingPage::SpellingPage(UserSettings* settings, SpellDictionary* dictionary, QWidget* parent)
    : SettingsPage(settings, tr("Правописание"), parent), m_dictionary(dictionary), m_words(new QListWidget)
{
    const bool isInstalled = !SpellDictionary::installed().isEmpty();
    QCheckBox* box = addSwitch(
        Setting::spelling, tr("Подчёркивать незнакомые слова"),
        isInstalled
            ? tr("Красной волнистой линией. Правая кнопка мыши предлагает замену; сама программа ничего "
                 "не исправляет. Фамилии, подразделения и оборудование из справочников знакомы.")
            : tr("Проверка не работает: на этом компьютере нет русского словаря. Его ставит "
                 "администратор: пакет hunspell-ru."),
        tr("орфография проверка ошибки опечатки словарь"));
    box->setEnabled(isInstalled);
    addRow(tr("Мой словарь"), makeWords(), tr("Слова, которые вы добавили правой кнопкой мыши в тексте."),
           tr("орфография слово удалить"));
    addSwitch(
        Setting::abbreviations, tr("Разворачивать сокращения"),
        tr("Набрав сокращение из списка организации и пробел или знак препинания, вы получите полный текст. "
           "Ctrl+Z возвращает сокращение. Список ведёт администратор."),
        tr("аббревиатуры автозамена"));
    connect(dictionary, &SpellDictionary::changed, this, &SpellingPage::showWords);
    showWords();
}

QWidget* SpellingPage::makeWords()
{
    auto* row = new QWidget;
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    m_words->setObjectName(QStringLiteral("ownWordsList"));
    m_words->setAccessibleName(tr("Мой словарь"));
    m_words->setMinimumHeight(8 * fontMetrics().height());
    new EmptyHint(m_words, [] { return tr("Своих слов пока нет."); });
    auto* remove = new QPushButton(tr("Удалить"));
    remove->setObjectName(QStringLiteral("removeWordButton"));
    remove->setAutoDefault(false);
    line->addWidget(m_words, 1);
    line->addWidget(remove, 0, Qt::AlignTop);
    row->setFocusProxy(m_words);
    connect(remove, &QPushButton::clicked, this, &SpellingPage::removeWord);
    return row;
}

void SpellingPage::showWords()
{
    const int row = m_words->currentRow();
    m_words->clear();
    m_words->addItems(m_dictionary->ownWords());
    m_words->setCurrentRow(qMin(row, m_words->count() - 1));
}

void SpellingPage::removeWord()
{
    if (const QListWidgetItem* item = m_words->currentItem()) {
        m_dictionary->removeOwnWord(item->text());
        emit keepingFailed(m_dictionary->errorText());
    }
}
