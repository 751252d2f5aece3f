#pragma once

#include "NearWords.h"
#include "VrkExport.h"

#include <functional>
#include <memory>
#include <QHash>
#include <QObject>
#include <QSet>
#include <QStringList>
#include <QVector>

class Hunspell;
class QThread;

/// The Russian words that are spelt right: those of the installed dictionary, which is read in the background; the
/// user's own, kept in a file; and those of names, places and equipment, in any form.
class VRK_EXPORT SpellDictionary : public QObject
{
    Q_OBJECT

public:
    explicit SpellDictionary(QObject* parent = nullptr);
    ~SpellDictionary() override;

    /// The installed dictionary's file without its suffix; empty if there is none.
    static QString installed();

    /// Starts to read the installed dictionary; changed() is emitted when it is read. Does nothing without one, or again.
    void load();
    bool isReady() const { return m_hunspell != nullptr; }

    /// Until the dictionary is read, every word is known. Words without Cyrillic letters, very short ones and
    /// abbreviations in capitals are not examined.
    bool isKnown(const QString& word) const;
    /// At most 7 words that may have been wanted: those of the near texts (setReferenceTexts) first, then those of the
    /// dictionary, the likeliest first. Takes up to half a second.
    QStringList suggestions(const QString& word) const;

    /// The words of these texts are known in any form, in place of those of the last call. Those of the texts in
    /// \a near, the ones of the user's own department, are also proposed, as they are written there.
    void setReferenceTexts(const QStringList& texts, const QStringList& near = {});
    /// The user's file, one word in a line; it need not exist. Lines that are no words are ignored.
    void openOwnWords(const QString& file);
    QStringList ownWords() const { return m_own; }
    /// False with errorText(): the word is known now, and lost at the end of the program.
    bool addOwnWord(const QString& word);
    bool removeOwnWord(const QString& word);
    QString errorText() const { return m_errorText; }

    /// A word in a text.
    struct Place {
        int begin;
        int length;
    };
    /// The runs of Cyrillic letters, with the hyphens inside of them.
    static QVector<Place> words(const QString& text);

signals:
    /// Other words are known now.
    void changed();

private:
    bool examine(const QString& word) const;
    bool change(const std::function<void(QStringList*)>& edit);
    void readOwnWords();

    std::unique_ptr<Hunspell> m_hunspell;
    QThread* m_reader = nullptr;
    QString m_file;
    QStringList m_own;
    QSet<QString> m_ownFolded;
    QSet<QString> m_referenceStems;
    NearWords m_near;
    QString m_errorText;
    mutable QHash<QString, bool> m_answers; ///< by word: a paragraph is examined at each of its keys
};
