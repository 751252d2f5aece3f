#include "TemplateMarks.h"

namespace
{
struct Pair {
    const char* old;
    const char* present;
};

/// Order matters: each replacement uses the result of those above it.
constexpr Pair replacements[] = {
    {"\r", ""},       {"\n", " "},
    {"][", "] ["},    {" ]", "] "},
    {"[ ", " ["},     {">,", "> ,"},
    {">.", "> ."},    {"[", "<span style=\" text-decoration: line-through;\">"},
    {"]", "</span>"}, {"</a><a", "</a> <a"},
};

constexpr Pair markers[] = {
    {"Авария", ":/markers/exclamation_mark.png"},
    {"Допуск бригады", ":/markers/worker_red.png"},
    {"Завершение работ бригады", ":/markers/worker_blue.png"},
    {"Передача вышестоящей организации", ":/markers/arrow_up_blue.png"},
    {"Передача от вышестоящей организации", ":/markers/arrow_down_red.png"},
    {"Снято заземление", ":/markers/thunder_blue.png"},
    {"Установлено заземление", ":/markers/thunder_red.png"},
};

/// The first \a bracket at or after \a position, given that of an earlier position; -1 if there is none.
int nextBracket(const QString& text, char bracket, int last, int position)
{
    return last >= 0 && last < position ? text.indexOf(QLatin1Char(bracket), position) : last;
}
} // namespace

bool TemplateMarks::parameters(const QString& text, QMap<QString, bool>* parameters)
{
    int opening = text.indexOf(QLatin1Char('['));
    int closing = text.indexOf(QLatin1Char(']'));
    for (int begin = text.indexOf(QLatin1Char('<')); begin >= 0;) {
        const int end = text.indexOf(QLatin1Char('>'), begin);
        if (end < 0)
            return false;
        opening = nextBracket(text, '[', opening, end + 1);
        closing = nextBracket(text, ']', closing, end + 1);
        // Deliberate: no "[" follows in the last struck-out passage, and the parameter counts as not struck
        // out.
        parameters->insert(text.mid(begin, end + 1 - begin), opening > closing);
        begin = text.indexOf(QLatin1Char('<'), end + 1);
    }
    return true;
}

QString TemplateMarks::normalized(QString text)
{
    for (const Pair& pair : replacements)
        text.replace(QLatin1String(pair.old), QLatin1String(pair.present));
    return text;
}

QString TemplateMarks::toResourcesIcon(QString name)
{
    name.remove(QLatin1String(".png"));
    for (const Pair& pair : markers)
        if (name == QString::fromUtf8(pair.old))
            return QString::fromLatin1(pair.present);
    return {};
}
