#include "MarkedText.h"

namespace
{
struct Element {
    TemplateText::Look look;
    const char* name;
};
constexpr Element elements[] = {
    {TemplateText::Bold, "b"},      {TemplateText::Italic, "i"},   {TemplateText::Underlined, "u"},
    {TemplateText::StruckOut, "s"}, {TemplateText::Raised, "sup"}, {TemplateText::Lowered, "sub"},
};
} // namespace

QString MarkedText::passage(const QString& text, TemplateText::Looks looks)
{
    QString before;
    QString after;
    for (const Element& one : elements) {
        if (!looks.testFlag(one.look))
            continue;
        before += QStringLiteral("<%1>").arg(QLatin1String(one.name));
        after.prepend(QStringLiteral("</%1>").arg(QLatin1String(one.name)));
    }
    QString content = text.toHtmlEscaped();
    // Html shows only the first of several spaces.
    content.replace(QLatin1String("  "), QLatin1String("&nbsp; "))
        .replace(QLatin1Char('\n'), QLatin1String("<br>"));
    return before + content + after;
}

QString MarkedText::html(const QString& html, const QVector<SearchWords::Term>& terms)
{
    const QVector<TemplateText::Run> runs = TemplateText::runs(html);
    QString whole;
    for (const TemplateText::Run& run : runs)
        whole += run.text;
    const QVector<SearchWords::Place> places = SearchWords::places(whole, terms);
    if (places.isEmpty())
        return html;

    QString marked;
    int begin = 0; // position of the run in the whole text
    int next = 0;  // the first match that does not end before the current position
    for (const TemplateText::Run& run : runs) {
        const int end = begin + run.text.size();
        for (int at = begin; at < end;) {
            while (next < places.size() && places.at(next).begin + places.at(next).length <= at)
                ++next;
            const bool isPlace = next < places.size() && places.at(next).begin <= at;
            int until = end;
            if (next < places.size())
                until = qMin(end, isPlace ? places.at(next).begin + places.at(next).length
                                          : places.at(next).begin);
            const TemplateText::Looks mark =
                TemplateText::Looks(TemplateText::Bold) | TemplateText::Underlined;
            marked += passage(whole.mid(at, until - at), isPlace ? run.looks | mark : run.looks);
            at = until;
        }
        begin = end;
    }
    return marked;
}
