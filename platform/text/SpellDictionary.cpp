#include "SpellDictionary.h"

#include "SearchWords.h"
#include "TextMatch.h"

#include <algorithm>
#include <hunspell.hxx>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSaveFile>
#include <QStandardPaths>
#include <QTextCodec>
#include <QThread>

namespace
{
constexpr int shortestWord = 3;
constexpr int longestWord = 60; ///< longer runs of letters are no words
constexpr int mostSuggestions = 7;

bool isCyrillic(QChar character)
{
    return (character >= QChar(0x410) && character <= QChar(0x44F)) || character == QChar(0x401) ||
           character == QChar(0x451);
}

/// Letters or digits next to a run of Cyrillic letters make a name of it, such as "Т2".
bool isOfWord(QChar character)
{
    return character.isLetterOrNumber() || character == QLatin1Char('_');
}

bool isExamined(const QString& word)
{
    return word.size() >= shortestWord && word.size() <= longestWord && word != word.toUpper();
}

bool isWord(const QString& line)
{
    const QVector<SpellDictionary::Place> places = SpellDictionary::words(line);
    return places.size() == 1 && places[0].length == line.size() && line.size() <= longestWord;
}

QTextCodec* codecOf(const Hunspell& hunspell)
{
    QTextCodec* codec = QTextCodec::codecForName(hunspell.get_dict_encoding().c_str());
    return codec ? codec : QTextCodec::codecForName("UTF-8");
}
} // namespace

SpellDictionary::SpellDictionary(QObject* parent) : QObject(parent)
{
    connect(this, &SpellDictionary::changed, this, [this] { m_answers.clear(); });
}

SpellDictionary::~SpellDictionary()
{
    if (!m_reader)
        return;
    m_reader->wait();
    delete m_reader;
}

QString SpellDictionary::installed()
{
    for (const char* folder : {"hunspell", "myspell/dicts"}) {
        const QString file = QStandardPaths::locate(QStandardPaths::GenericDataLocation,
                                                    QLatin1String(folder) + QStringLiteral("/ru_RU.dic"));
        const QString stem = file.left(file.size() - 4);
        if (!file.isEmpty() && QFile::exists(stem + QStringLiteral(".aff")))
            return stem;
    }
    return QString();
}

// Reading takes a tenth of a second: in the background, because it begins when the user begins to type.
void SpellDictionary::load()
{
    const QString stem = installed();
    if (m_reader || stem.isEmpty())
        return;
    const auto read = std::make_shared<std::unique_ptr<Hunspell>>();
    m_reader = QThread::create([read, stem] {
        *read = std::make_unique<Hunspell>(QFile::encodeName(stem + QStringLiteral(".aff")).constData(),
                                           QFile::encodeName(stem + QStringLiteral(".dic")).constData());
    });
    connect(m_reader, &QThread::finished, this, [this, read] {
        m_hunspell = std::move(*read);
        emit changed();
    });
    m_reader->start();
}

QVector<SpellDictionary::Place> SpellDictionary::words(const QString& text)
{
    QVector<Place> found;
    int at = 0;
    while (at < text.size()) {
        if (!isOfWord(text[at])) {
            ++at;
            continue;
        }
        const int begin = at;
        bool isPure = true;
        for (; at < text.size(); ++at) {
            const bool isInner =
                text[at] == QLatin1Char('-') && at + 1 < text.size() && isOfWord(text[at + 1]);
            if (!isOfWord(text[at]) && !isInner)
                break;
            isPure = isPure && (isCyrillic(text[at]) || isInner);
        }
        if (isPure)
            found.append({begin, at - begin});
    }
    return found;
}

bool SpellDictionary::isKnown(const QString& word) const
{
    constexpr int mostAnswers = 20000;
    if (!m_hunspell || !isExamined(word))
        return true;
    const auto answer = m_answers.constFind(word);
    if (answer != m_answers.constEnd())
        return answer.value();
    if (m_answers.size() >= mostAnswers)
        m_answers.clear();
    const bool isRight = examine(word);
    m_answers.insert(word, isRight);
    return isRight;
}

bool SpellDictionary::examine(const QString& word) const
{
    const QTextCodec* codec = codecOf(*m_hunspell);
    if (m_hunspell->spell(codec->fromUnicode(word).toStdString()) ||
        m_ownFolded.contains(TextMatch::folded(word)))
        return true;
    const QStringList stems = SearchWords::stems(word);
    const bool isOfReference =
        !stems.isEmpty() && std::all_of(stems.begin(), stems.end(), [this](const QString& stem) {
            return m_referenceStems.contains(stem);
        });
    if (isOfReference)
        return true;
    const QStringList parts = word.split(QLatin1Char('-'), Qt::SkipEmptyParts);
    return parts.size() > 1 &&
           std::all_of(parts.begin(), parts.end(), [this](const QString& part) { return isKnown(part); });
}

QStringList SpellDictionary::suggestions(const QString& word) const
{
    QStringList found;
    if (!m_hunspell || word.size() > longestWord)
        return found;
    found = m_near.of(word);
    const QTextCodec* codec = codecOf(*m_hunspell);
    for (const std::string& one : m_hunspell->suggest(codec->fromUnicode(word).toStdString())) {
        const QString text = codec->toUnicode(one.data(), static_cast<int>(one.size()));
        if (!found.contains(text) && found.size() < mostSuggestions)
            found << text;
    }
    return found;
}

void SpellDictionary::setReferenceTexts(const QStringList& texts, const QStringList& near)
{
    QStringList nearWords;
    for (const QString& text : near)
        for (const Place& place : words(text))
            nearWords << text.mid(place.begin, place.length);
    m_near.setWords(nearWords);
    QSet<QString> stems;
    for (const QString& text : texts) {
        for (const QString& stem : SearchWords::stems(text))
            stems.insert(stem);
        // A surname such as "Озеров" looks like a form of another word; its own forms begin with the whole name.
        for (const Place& place : words(text)) {
            for (const QString& part :
                 TextMatch::folded(text.mid(place.begin, place.length)).split(QLatin1Char('-')))
                stems.insert(part);
        }
    }
    if (stems == m_referenceStems)
        return;
    m_referenceStems = stems;
    emit changed();
}

void SpellDictionary::openOwnWords(const QString& file)
{
    m_file = file;
    m_errorText.clear();
    readOwnWords();
    emit changed();
}

void SpellDictionary::readOwnWords()
{
    m_own.clear();
    m_ownFolded.clear();
    QFile file(m_file);
    if (!m_file.isEmpty() && file.open(QIODevice::ReadOnly)) {
        constexpr qint64 longestFile = 1000000;
        for (const QByteArray& line : file.read(longestFile).split('\n')) {
            const QString word = QString::fromUtf8(line).trimmed();
            if (isWord(word) && !m_own.contains(word))
                m_own << word;
        }
    }
    for (const QString& word : qAsConst(m_own))
        m_ownFolded.insert(TextMatch::folded(word));
}

// Reads the file again first: another program of the same user may have added words.
bool SpellDictionary::change(const std::function<void(QStringList*)>& edit)
{
    QDir().mkpath(QFileInfo(m_file).absolutePath());
    QLockFile lock(m_file + QStringLiteral(".lock"));
    const bool isLocked = lock.tryLock(2000);
    QStringList words = m_own;
    if (isLocked) {
        readOwnWords();
        words = m_own;
    }
    edit(&words);
    QSaveFile file(m_file);
    const QByteArray bytes = words.join(QLatin1Char('\n')).toUtf8() + '\n';
    const bool isKept =
        isLocked && file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
    m_errorText = isKept ? QString() : tr("Свой словарь не удаётся записать в «%1».").arg(m_file);
    m_own = words;
    m_ownFolded.clear();
    for (const QString& word : qAsConst(m_own))
        m_ownFolded.insert(TextMatch::folded(word));
    emit changed();
    return isKept;
}

bool SpellDictionary::addOwnWord(const QString& word)
{
    if (!isWord(word))
        return false;
    return change([&word](QStringList* words) {
        if (!words->contains(word))
            words->append(word);
    });
}

bool SpellDictionary::removeOwnWord(const QString& word)
{
    return change([&word](QStringList* words) { words->removeAll(word); });
}
