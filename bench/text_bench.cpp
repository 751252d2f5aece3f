// Template texts: the cost of reading the visible text of a record, rendering it for painting, and finding
// its parameters, each compared with Qt's own way; and a keystroke in a list of 5,000 pieces of equipment.

#include "HtmlParser.h"
#include "SuggestionModel.h"
#include "TemplateText.h"
#include "TextMatch.h"

#include <benchmark/benchmark.h>
#include <QGuiApplication>
#include <QTextDocument>
#include <QXmlStreamReader>

namespace
{
QString record()
{
    HtmlParser parser;
    std::string html;
    for (int i = 0; i < 6; ++i)
        html += "Отдана команда на <b>переключения</b> " +
                HtmlParser::createParameter({{"name", "substation"}, {"locname", "Подстанция"}},
                                            "ПС 110 кВ Заречная") +
                ". ";
    parser.setHtml(html);
    parser.setTemplateProperty("time_exec", true);
    return QString::fromStdString(parser.readyHtml(true));
}

void plainText(benchmark::State& state)
{
    const QString html = record();
    for (auto _ : state)
        benchmark::DoNotOptimize(TemplateText::plain(html));
}
BENCHMARK(plainText);

void plainTextByDocument(benchmark::State& state)
{
    const QString html = record();
    QTextDocument document;
    for (auto _ : state) {
        document.setHtml(html);
        benchmark::DoNotOptimize(document.toPlainText());
    }
}
BENCHMARK(plainTextByDocument);

void rendered(benchmark::State& state)
{
    const QString html = record();
    QTextDocument document;
    for (auto _ : state)
        TemplateText::fill(&document, html);
}
BENCHMARK(rendered);

void renderedByDocument(benchmark::State& state)
{
    const QString html = record();
    QTextDocument document;
    for (auto _ : state)
        document.setHtml(html);
}
BENCHMARK(renderedByDocument);

void parameters(benchmark::State& state)
{
    const std::string html = record().toStdString();
    for (auto _ : state) {
        const HtmlParser parser(html);
        for (unsigned i = 0; i < parser.countParameters(); ++i)
            benchmark::DoNotOptimize(parser.propertyNameValue(i));
    }
}
BENCHMARK(parameters);

void parametersByXmlReader(benchmark::State& state)
{
    const QString html = QStringLiteral("<p>") +
                         QString(record()).replace(QStringLiteral("exec\">"), QStringLiteral("exec\"/>")) +
                         QStringLiteral("</p>");
    for (auto _ : state) {
        QXmlStreamReader reader(html);
        while (!reader.atEnd()) {
            if (reader.readNext() == QXmlStreamReader::StartElement)
                benchmark::DoNotOptimize(reader.attributes().value(QLatin1String("href")).toString());
        }
        if (reader.hasError())
            state.SkipWithError("the peer does not read the text");
    }
}
BENCHMARK(parametersByXmlReader);

void keystroke(benchmark::State& state)
{
    QVector<ReferenceItem> items;
    for (int i = 0; i < 5000; ++i) {
        ReferenceItem item;
        item.text = QStringLiteral("Выключатель В-%1").arg(i);
        item.detail = QStringLiteral("ПС 110 кВ Заречная №%1").arg(i % 40);
        item.folded = TextMatch::folded(item.text + QLatin1Char(' ') + item.detail);
        items.append(item);
    }
    SuggestionModel model;
    model.setItems(items);
    for (auto _ : state)
        model.setQuery(QStringLiteral("зареч в-4"));
}
BENCHMARK(keystroke);
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
