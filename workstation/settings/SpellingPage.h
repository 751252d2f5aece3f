#pragma once

#include "SettingsPage.h"

class QListWidget;
class SpellDictionary;

/// Spelling: on or off, and the user's own words.
class SpellingPage : public SettingsPage
{
    Q_OBJECT

public:
    SpellingPage(UserSettings* settings, SpellDictionary* dictionary, QWidget* parent = nullptr);

private:
    QWidget* makeWords();
    void showWords();
    void removeWord();

    SpellDictionary* m_dictionary;
    QListWidget* m_words;
};
