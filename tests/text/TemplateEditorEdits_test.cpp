#include "DemoTemplates.h"
#include "LogWatch.h"
#include "TemplateEditorBench.h"

#include <QCheckBox>
#include <QPushButton>
#include <QRandomGenerator>

namespace
{
using Bench = TemplateEditorBench;
using Properties = std::vector<HtmlParser::Property>;

/// One character of a text: a letter, a line end, or a chip.
struct Atom {
    QChar letter;
    Properties chip; ///< empty: a letter
    bool bold = false;
    bool struck = false;

    bool isChip() const { return !chip.empty(); }
};
using Text = std::vector<Atom>;

const MDRFieldDescr CategoryFields[] = {
    {"KeyLink", 32, mdr_TChar}, {"ParentKey", 32, mdr_TChar}, {"nameLoc", 100, mdr_TChar}};
const MDRFieldDescr ParameterFields[] = {{"KeyLink", 32, mdr_TChar},
                                         {"CategoryKey", 32, mdr_TChar},
                                         {"nameLoc", 100, mdr_TChar},
                                         {"html", 0, mdr_TMemo}};

const std::string& label(const Properties& properties)
{
    static const std::string none;
    for (const HtmlParser::Property& property : properties) {
        if (property.first == "locname")
            return property.second;
    }
    return none;
}

/// The visible text, letter by letter, with the looks; chips by their labels. Line ends at the end are
/// invisible.
QStringList seen(const Text& text)
{
    QStringList letters;
    const auto add = [&letters](QChar letter, const Atom& atom) {
        const QString looks = letter == QLatin1Char('\n')
                                  ? QString()
                                  : QString::number((atom.bold ? 1 : 0) + (atom.struck ? 2 : 0));
        letters << QString(letter) + looks;
    };
    for (const Atom& atom : text) {
        if (atom.isChip()) {
            for (const QChar letter : QString::fromStdString(label(atom.chip)))
                add(letter, atom);
        } else {
            add(atom.letter, atom);
        }
    }
    while (!letters.isEmpty() && letters.last() == QLatin1String("\n"))
        letters.removeLast();
    return letters;
}

QStringList seen(const QString& html)
{
    Text text;
    for (const TemplateText::Run& run : TemplateText::runs(html)) {
        for (const QChar letter : run.text) {
            Atom atom;
            atom.letter = letter == QChar::Nbsp ? QLatin1Char(' ') : letter;
            atom.bold = run.looks & TemplateText::Bold;
            atom.struck = run.looks & TemplateText::StruckOut;
            text.push_back(atom);
        }
    }
    return seen(text);
}

/// An editor and a plain list of its expected content.
class Pair : public Bench
{
public:
    explicit Pair(quint32 seed) : m_random(seed)
    {
        m_offered = {{{"name", "text"}, {"locname", "Кто"}},
                     {{"name", "datetime"}, {"format", "hh:mm"}, {"locname", "Срок"}, {"own", "a;<b>"}},
                     {{"name", "list"},
                      {"list", HtmlParser::createListProperty({"да", "нет"})},
                      {"locname", "Схема"}}};
        for (const Properties& properties : m_offered) {
            const QString name = QString::fromStdString(label(properties));
            m_parameters.add({{"KeyLink", name},
                              {"nameLoc", name},
                              {"html", QString::fromStdString(
                                           HtmlParser::createParameter(properties, label(properties)))}});
        }
        editor.setTextCodec(QTextCodec::codecForName("Windows-1251"));
        editor.setCatsParametersTable(&m_categories);
        editor.setParametersTable(&m_parameters);
    }

    void step()
    {
        switch (number(14)) {
        case 0:
        case 1:
        case 2:
            typeWord();
            break;
        case 3:
            breakLine();
            break;
        case 4:
            removeOne(Qt::Key_Backspace);
            break;
        case 5:
            removeOne(Qt::Key_Delete);
            break;
        case 6:
        case 7:
            move();
            break;
        case 8:
            toggle(Qt::Key_B, Qt::ControlModifier, &Atom::bold);
            break;
        case 9:
            toggle(Qt::Key_X, Qt::ControlModifier | Qt::ShiftModifier, &Atom::struck);
            break;
        case 10:
            copyOrCut();
            break;
        case 11:
            paste();
            break;
        case 12:
            insertParameter();
            break;
        default:
            number(2) ? editParameter() : undoAndRedo();
        }
    }

    void compare()
    {
        const QString html = now();
        QCOMPARE(seen(html), seen(m_model));
        const HtmlParser parser(html.toStdString());
        std::vector<Properties> chips;
        for (const Atom& atom : m_model) {
            if (atom.isChip())
                chips.push_back(atom.chip);
        }
        QCOMPARE(parser.countParameters(), static_cast<unsigned>(chips.size()));
        for (unsigned i = 0; i < parser.countParameters(); ++i) {
            QCOMPARE(parser.properties(i), chips[i]);
            QCOMPARE(parser.displayText(i), label(chips[i]));
        }
        // Written text that is read and written again is unchanged.
        TemplateEditorText again;
        again.setContent(html);
        QCOMPARE(again.content(), html);
        if (changes.count() > 0)
            QCOMPARE(changes.last().first().toString(), html);
    }

private:
    int number(int below) { return m_random.bounded(below); }
    int position() { return text()->textCursor().position(); }
    int start() { return text()->textCursor().selectionStart(); }
    int end() { return text()->textCursor().selectionEnd(); }
    Atom written(QChar letter)
    {
        Atom atom;
        atom.letter = letter;
        atom.bold = text()->isBold(); // the buttons show the look of typed text
        atom.struck = text()->isStruckOut();
        return atom;
    }
    void put(int at, const Text& atoms) { m_model.insert(m_model.begin() + at, atoms.begin(), atoms.end()); }
    void take(int from, int to) { m_model.erase(m_model.begin() + from, m_model.begin() + to); }
    void clearSelection()
    {
        if (start() == end())
            return;
        take(start(), end());
        press(Qt::Key_Delete);
    }

    void typeWord()
    {
        static const QString letters = QStringLiteral("абв  <&,.\"");
        clearSelection();
        for (int i = number(4); i >= 0; --i) {
            const QChar letter = letters.at(number(letters.size()));
            put(position(), {written(letter)});
            type(QString(letter));
        }
    }
    void breakLine()
    {
        clearSelection();
        put(position(), {written(QLatin1Char('\n'))});
        press(Qt::Key_Return);
    }
    void removeOne(Qt::Key key)
    {
        if (start() != end())
            take(start(), end());
        else if (key == Qt::Key_Backspace && position() > 0)
            take(position() - 1, position());
        else if (key == Qt::Key_Delete && position() < int(m_model.size()))
            take(position(), position() + 1);
        press(key);
    }
    void move()
    {
        static const Qt::Key keys[] = {Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End, Qt::Key_Up};
        const Qt::Key key = keys[number(5)];
        press(key, number(2) ? Qt::ShiftModifier : Qt::NoModifier, 1 + number(6));
    }
    void toggle(Qt::Key key, Qt::KeyboardModifiers modifiers, bool Atom::*look)
    {
        const bool on = look == &Atom::bold ? !text()->isBold() : !text()->isStruckOut();
        press(key, modifiers);
        for (int i = start(); i < end(); ++i)
            m_model[static_cast<std::size_t>(i)].*look = on;
    }
    void copyOrCut()
    {
        if (start() == end())
            return;
        m_clip.assign(m_model.begin() + start(), m_model.begin() + end());
        if (number(2)) {
            take(start(), end());
            press(Qt::Key_X, Qt::ControlModifier);
        } else {
            press(Qt::Key_C, Qt::ControlModifier);
        }
    }
    void paste()
    {
        if (m_clip.empty() || m_model.size() > 400)
            return;
        const int at = start();
        take(start(), end());
        put(at, m_clip);
        press(Qt::Key_V, Qt::ControlModifier);
    }
    void insertParameter()
    {
        clearSelection();
        const Properties& properties = m_offered[static_cast<std::size_t>(number(3))];
        const int at = position();
        Atom chip = written(QChar());
        chip.chip = properties;
        Text atoms{chip};
        if (at > 0 && m_model[static_cast<std::size_t>(at - 1)].isChip())
            atoms.insert(atoms.begin(), written(QLatin1Char(' ')));
        if (at < int(m_model.size()) && m_model[static_cast<std::size_t>(at)].isChip())
            atoms.push_back(written(QLatin1Char(' ')));
        put(at, atoms);
        auto* search = child("parameterSearch");
        QTest::keyClick(search, Qt::Key_A, Qt::ControlModifier);
        typeText(search, QString::fromStdString(label(properties)));
        QTest::keyClick(search, Qt::Key_Return);
    }
    void editParameter()
    {
        std::vector<std::size_t> places;
        for (std::size_t i = 0; i < m_model.size(); ++i) {
            if (m_model[i].isChip())
                places.push_back(i);
        }
        if (places.empty())
            return;
        const std::size_t place = places[static_cast<std::size_t>(number(int(places.size())))];
        QTextCursor cursor(text()->document());
        cursor.setPosition(int(place));
        cursor.setPosition(int(place) + 1, QTextCursor::KeepAnchor);
        text()->setTextCursor(cursor);
        press(Qt::Key_Return);
        if (!dialog())
            qFatal("no dialog");
        Properties& properties = m_model[place].chip;
        const std::string name = "Имя " + std::to_string(number(100));
        for (HtmlParser::Property& property : properties) {
            if (property.first == "locname")
                property.second = name;
        }
        typeText(dialog()->focusWidget(), QString::fromStdString(name));
        if (number(2)) {
            const auto isOptional = [](const HtmlParser::Property& p) { return p.first == "optional"; };
            const auto found = std::find_if(properties.begin(), properties.end(), isOptional);
            if (found == properties.end())
                properties.emplace_back("optional", "1");
            else
                properties.erase(found);
            QTest::keyClick(dialog()->findChild<QCheckBox*>(QStringLiteral("parameterOptional")),
                            Qt::Key_Space);
        }
        QTest::mouseClick(dialog()->findChild<QPushButton*>(QStringLiteral("parameterApply")),
                          Qt::LeftButton);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    /// Undoing and redoing some steps ends where it began.
    void undoAndRedo()
    {
        const QString before = now();
        int steps = 0;
        while (steps < 3 && text()->document()->isUndoAvailable()) {
            press(Qt::Key_Z, Qt::ControlModifier);
            ++steps;
        }
        for (; steps > 0; --steps)
            press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(now(), before);
    }

    QRandomGenerator m_random;
    MadeTable m_categories{"TemplateParamCategories", CategoryFields, "KeyLink"};
    MadeTable m_parameters{"TemplateParams", ParameterFields, "KeyLink"};
    std::vector<Properties> m_offered;
    Text m_model;
    Text m_clip;
};
} // namespace

class TemplateEditorEdits_test : public QObject
{
    Q_OBJECT

private slots:
    void anyEditsKeepTextAndParametersInStep_data();
    void anyEditsKeepTextAndParametersInStep();
    void anEditedTextReadsAsBefore_data();
    void anEditedTextReadsAsBefore();
};

void TemplateEditorEdits_test::anyEditsKeepTextAndParametersInStep_data()
{
    QTest::addColumn<quint32>("seed");
    const quint32 seeds = qEnvironmentVariableIsSet("VRK_LONG") ? 40 : 4;
    for (quint32 seed = 1; seed <= seeds; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void TemplateEditorEdits_test::anyEditsKeepTextAndParametersInStep()
{
    QFETCH(quint32, seed);
    LogWatch log;
    Pair pair(seed);
    for (int step = 0; step < 200; ++step) {
        pair.step();
        pair.compare();
        if (QTest::currentTestFailed())
            QFAIL(qPrintable(QStringLiteral("at step %1").arg(step)));
    }
    const QString last = pair.now();
    while (pair.text()->document()->isUndoAvailable())
        pair.press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(pair.now(), QString());
    while (pair.text()->document()->isRedoAvailable())
        pair.press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(pair.now(), last);
    QCOMPARE(log.take(), QStringList());
}

void TemplateEditorEdits_test::anEditedTextReadsAsBefore_data()
{
    QTest::addColumn<QString>("html");
    for (const DemoTemplate& demo : DemoTemplates::builtIn())
        QTest::newRow(demo.name.toUtf8().constData()) << QString::fromStdString(demo.html);
    const QStringList pieces{QStringLiteral("слово"),
                             QStringLiteral(" "),
                             QStringLiteral("&nbsp;"),
                             QStringLiteral("\n"),
                             QStringLiteral("<br/>"),
                             QStringLiteral("<p>"),
                             QStringLiteral("</p>"),
                             QStringLiteral("<b>"),
                             QStringLiteral("</b>"),
                             QStringLiteral("<i>"),
                             QStringLiteral("</i>"),
                             QStringLiteral("<sup>"),
                             QStringLiteral("</sup>"),
                             QStringLiteral("<span style=\" text-decoration: line-through;\">"),
                             QStringLiteral("</span>"),
                             QStringLiteral("&laquo;&amp;"),
                             QStringLiteral("<"),
                             QStringLiteral("&#32;"),
                             QStringLiteral("<a href='parameter:name=text;own=%22%3B;locname=x'>"),
                             QStringLiteral("<a href=parameter:name=line>"),
                             QStringLiteral("</a>"),
                             QStringLiteral("<meta name=\"template\" content=\"time_exec\">")};
    QRandomGenerator random(7);
    const int count = qEnvironmentVariableIsSet("VRK_LONG") ? 2000 : 100;
    for (int i = 0; i < count; ++i) {
        QString html;
        for (int length = random.bounded(30); length > 0; --length)
            html += pieces.at(random.bounded(pieces.size()));
        QTest::addRow("%d", i) << html;
    }
}

void TemplateEditorEdits_test::anEditedTextReadsAsBefore()
{
    QFETCH(QString, html);
    LogWatch log;
    Bench bench;
    bench.editor.setTemplateText(html);
    bench.press(Qt::Key_End, Qt::ControlModifier);
    bench.type(QStringLiteral("x"));
    QVERIFY(TemplateText::plain(bench.now()).endsWith(QLatin1Char('x')));
    bench.press(Qt::Key_Backspace);

    QCOMPARE(TemplateText::plain(bench.now()), TemplateText::plain(html));
    const HtmlParser before(html.toStdString());
    const HtmlParser after(bench.now().toStdString());
    QCOMPARE(after.countParameters(), before.countParameters());
    for (unsigned i = 0; i < before.countParameters(); ++i)
        QCOMPARE(after.properties(i), before.properties(i));
    QCOMPARE(after.isExistTemplateProperty("time_exec"), before.isExistTemplateProperty("time_exec"));
    QCOMPARE(log.take(), QStringList());
}

QTEST_MAIN(TemplateEditorEdits_test)
#include "TemplateEditorEdits_test.moc"
