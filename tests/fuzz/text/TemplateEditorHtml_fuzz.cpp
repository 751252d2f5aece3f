#include "FuzzTarget.h"
#include "HtmlParser.h"
#include "TemplateEditorHtml.h"
#include "TemplateEditorText.h"
#include "TemplateText.h"

#include <QApplication>
#include <QMimeData>

// The template editor accepts any text: its result is a template's text that stays the same when read
// again, a copied passage is unchanged, and any payload of the clipboard or of a drag leaves a valid text.

namespace
{
class Editor : public TemplateEditorText
{
public:
    void drop(const QMimeData& payload) { insertFromMimeData(&payload); }
};

void requireSound(const QString& html)
{
    const std::string text = html.toStdString();
    fuzzRequire(HtmlParser(text).readyHtml(true) == text);
}
/// Equal for a reader: the words, and the parameters with their values.
void requireSame(const QString& left, const QString& right)
{
    fuzzRequire(TemplateText::plain(left) == TemplateText::plain(right));
    const HtmlParser one(left.toStdString());
    const HtmlParser other(right.toStdString());
    fuzzRequire(one.countParameters() == other.countParameters());
    for (unsigned i = 0; i < one.countParameters(); ++i)
        fuzzRequire(one.properties(i) == other.properties(i) && one.displayText(i) == other.displayText(i));
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static int count = 1;
    static char name[] = "editor_fuzz";
    static char* names[] = {name, nullptr};
    static const QApplication application(count, names);
    static Editor editor;

    const QString input = QString::fromUtf8(reinterpret_cast<const char*>(data),
                                            static_cast<int>(qMin<std::size_t>(size, 4096)));
    TemplateEditorHtml::uncarried(input);
    const QString bare = TemplateEditorHtml::withoutProperties(input);
    TemplateEditorHtml::properties(input);

    editor.setContent(bare);
    const QString once = editor.content();
    requireSound(once);
    editor.setContent(once);
    const QString twice = editor.content();
    requireSame(once, twice);
    editor.setContent(twice); // invisible text may lose its looks, but only once
    fuzzRequire(editor.content() == twice);

    const int end = editor.document()->characterCount() - 1;
    const QString passage = TemplateEditorHtml::fragment(editor.document(), 0, end);
    editor.selectAll();
    QMimeData copied;
    copied.setData(QStringLiteral("logbook_template_text"), passage.toUtf8());
    copied.setHtml(passage);
    editor.drop(copied);
    requireSound(editor.content());

    // A payload with the input as its bytes; its length chooses one of the formats that a payload can name.
    const QString formats[] = {QStringLiteral("text/html"), QStringLiteral("text/plain"),
                               TemplateEditorText::parameterFormat(), QStringLiteral("application/x-color")};
    QMimeData payload;
    payload.setData(formats[size % 4],
                    QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size)));
    editor.drop(payload);
    requireSound(editor.content());
    return 0;
}

std::vector<QByteArray> fuzzSeeds()
{
    const auto bytes = [](const std::string& text) { return QByteArray::fromStdString(text); };
    const std::string list = HtmlParser::createListProperty({"a|b", "", "c"});
    return {
        bytes("<b>a</b> " + HtmlParser::createParameter({{"name", "text"}, {"locname", "l"}}, "x <&> y") +
              "<br/><span style=\" text-decoration: line-through;\">c</span> &nbsp;&#8470;&laquo;"),
        bytes(HtmlParser::createParameter({{"name", "list"}, {"list", list}, {"optional", ""}}, ",z") +
              "  \t"),
        QByteArrayLiteral("<p>a</p><table><tr><td>b</td></tr></table><img src='file:///x'><ul><li>c</ul>"),
        QByteArrayLiteral(
            "<s>a<a href=\"parameter:name=text;data=%4B\">b</s></a><META NAME=template CONTENT=a;b=1>")};
}
