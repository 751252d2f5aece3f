#include "CreatorBench.h"
#include "DemoTemplates.h"
#include "ExpectedWarning.h"
#include "GenGuid32.h"
#include "HtmlParser.h"
#include "TemplateText.h"
#include "Typing.h"

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>

namespace
{
/// Adds the templates of the demo journal, all available to DEP_CDS.
void addDemoTemplates(const TestStore& store)
{
    const std::unique_ptr<Store> loader = store.openLoader();
    QHash<QString, QByteArray> categories;
    for (const DemoTemplate& demo : DemoTemplates::builtIn()) {
        const QString level = QString::number(demo.level);
        QString path = level;
        QByteArray parent;
        for (const QString& name : demo.categories) {
            path += u'/' + name;
            QByteArray& key = categories[path];
            if (key.isEmpty()) {
                key = GenGuid32();
                TestStore::Fields fields{{"nameLoc", name}};
                if (!parent.isEmpty())
                    fields.push_back({"ParentKey", QString::fromLatin1(parent)});
                else if (demo.level == DemoTemplate::OrgType)
                    fields.push_back({"OrgTypeKey", "TYPE_NETS"});
                else if (demo.level == DemoTemplate::Department)
                    fields.push_back({"DepartmentKey", "DEP_CDS"});
                QVERIFY(TestStore::write(loader.get(), "LogbookCatsTemplate", ROW_INSERT, key, fields));
            }
            parent = key;
        }
        QVERIFY(TestStore::write(loader.get(), "LogbookTemplates", ROW_INSERT, GenGuid32(),
                                 {{"CategoryKey", QString::fromLatin1(parent)},
                                  {"nameLoc", demo.name},
                                  {"html", QString::fromStdString(demo.html)}}));
    }
    // The small journal's own template of this name would be a duplicate.
    QVERIFY(TestStore::write(loader.get(), "LogbookTemplates", ROW_DELETE, "TPL_ORDER"));
}

/// A dispatcher at the keyboard: every key goes to the focus, and keys are counted.
class Keyboard
{
public:
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        ++count;
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    /// Letters that find something: they count.
    void find(const QString& letters)
    {
        count += letters.size();
        typeText(QApplication::focusWidget(), letters);
    }
    /// The words of the record itself, which must be typed in any case: not counted.
    void write(const QString& words) { typeText(QApplication::focusWidget(), words); }

    int count = 0;
};
} // namespace

/// Using the dialog only by keyboard.
class RecordCreatorDialogKeys_test : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("test"));
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settings.path());
    }
    void init() { QSettings().clear(); }

    void aSwitchingOrderNeedsFewExtraKeys()
    {
        TestStore store;
        addDemoTemplates(store);
        CreatorBench bench(store);
        bench.create();
        const QString time = bench.eventTime()->dateTime().toString(QStringLiteral("hh:mm"));

        Keyboard keyboard;
        keyboard.find(QStringLiteral("ком пр"));
        keyboard.press(Qt::Key_Return); // the time of the order is filled in already
        for (const char* letters : {"пет", "зар", "о", "пол"}) {
            keyboard.find(QString::fromUtf8(letters));
            keyboard.press(Qt::Key_Return); // takes the first suggestion and goes on
        }
        keyboard.write(QStringLiteral("замена ввода"));
        keyboard.press(Qt::Key_Return, Qt::ControlModifier);

        QVERIFY(!bench.dialog->isVisible());
        const QString html =
            store.value(QStringLiteral("SELECT html FROM LogbookRecords ORDER BY rowid DESC LIMIT 1"))
                .toString();
        QCOMPARE(TemplateText::plain(html),
                 time +
                     QStringLiteral(" отдана команда Петров Пётр Петрович, Диспетчер: на ПС 110 кВ Заречная "
                                    "отключить В 110 Полевая I цепь. Цель: замена ввода. Команда повторена, "
                                    "правильность повторения подтверждена."));
        QVERIFY2(keyboard.count <= 23, qPrintable(QString::number(keyboard.count)));
        qInfo("%d keys", keyboard.count);
    }

    void tabFollowsTheVisualOrder()
    {
        TestStore store;
        CreatorBench bench(store);
        bench.create();
        bench.choose("TPL_TRIP");
        QStringList walked;
        QWidget* const first = QApplication::focusWidget();
        do {
            walked.append(QApplication::focusWidget()->objectName());
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        } while (QApplication::focusWidget() != first && walked.size() < 40);
        const QStringList order{QStringLiteral("searchEdit"),        QStringLiteral("templatesTree"),
                                QStringLiteral("eventTimeEdit"),     QStringLiteral("nowButton"),
                                QStringLiteral("noDirectionButton"), QStringLiteral("workerLine"),
                                QStringLiteral("parameterInput_0"),  QStringLiteral("parameterInput_1"),
                                QStringLiteral("keepOpenCheck"),     QStringLiteral("cancelButton")};
        int last = -1;
        for (const QString& name : order) {
            const int at = walked.indexOf(name);
            QVERIFY2(at > last, qPrintable(name + QStringLiteral(" in ") + walked.join(u' ')));
            last = at;
        }
    }

    void controlEnterSavesFromAWholeText()
    {
        TestStore store;
        const std::unique_ptr<Store> loader = store.openLoader();
        const QString html = QString::fromStdString(
            HtmlParser::createParameter({{"name", "text"}, {"locname", "Текст записи"}}, "Текст записи"));
        QVERIFY(TestStore::write(loader.get(), "LogbookTemplates", ROW_UPDATE, "TPL_TEXT", {{"html", html}}));
        CreatorBench bench(store);
        bench.create();
        bench.choose("TPL_TEXT");
        bench.filler()->setFocus();
        Keyboard keyboard;
        keyboard.write(QStringLiteral("Осмотр"));
        keyboard.press(Qt::Key_Return);
        keyboard.write(QStringLiteral("закончен"));
        keyboard.press(Qt::Key_Return, Qt::ControlModifier);
        QVERIFY(!bench.dialog->isVisible());
        const QString written =
            store.value(QStringLiteral("SELECT html FROM LogbookRecords ORDER BY rowid DESC LIMIT 1"))
                .toString();
        QCOMPARE(TemplateText::plain(written), QStringLiteral("Осмотр\nзакончен"));
    }

    void controlEnterGoesToTheMissingValue()
    {
        TestStore store;
        CreatorBench bench(store);
        bench.create();
        bench.choose("TPL_TRIP", {{"line", QStringLiteral("ВЛ")}});
        bench.eventTime()->setFocus();
        QTest::keyClick(bench.eventTime(), Qt::Key_Return, Qt::ControlModifier);
        QVERIFY(bench.dialog->isVisible());
        QVERIFY(bench.filler()->isAncestorOf(QApplication::focusWidget()));
        QVERIFY2(bench.holdText().endsWith(QApplication::focusWidget()->accessibleName()),
                 qPrintable(bench.holdText()));
        bench.set("substation", QStringLiteral("ПС"));
        bench.counterpartLine()->setFocus();
        typeText(bench.counterpartLine(), QStringLiteral("никто"));
        bench.eventTime()->setFocus();
        QTest::keyClick(bench.eventTime(), Qt::Key_Return, Qt::ControlModifier);
        QVERIFY(bench.dialog->isVisible());
        QCOMPARE(QApplication::focusWidget(), bench.counterpartLine());
    }

    void enterMovesThroughTheFieldsAroundTheText()
    {
        TestStore store;
        CreatorBench bench(store);
        bench.create();
        bench.choose("TPL_TRIP");
        bench.eventTime()->setFocus();
        QTest::keyClick(bench.eventTime(), Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget(), bench.counterpartLine());
        typeText(bench.counterpartLine(), QStringLiteral("петр"));
        QTest::keyClick(bench.counterpartLine(), Qt::Key_Return);
        QCOMPARE(bench.counterpart()->workerKey(), QByteArray("WORKER_PETROV"));
        QVERIFY(bench.filler()->isAncestorOf(QApplication::focusWidget()));
    }

    void aFailedSaveKeepsTheFocus()
    {
        expectWarning(QStringLiteral("Диск хранилища переполнен"));
        TestStore store;
        CreatorBench bench(store);
        bench.create();
        bench.choose("TPL_TRIP", {{"line", QStringLiteral("ВЛ")}, {"substation", QStringLiteral("ПС")}});
        bench.filler()->setFocus();
        QWidget* const field = QApplication::focusWidget();
        bench.plan->refusedWrites = 1;
        QTest::keyClick(field, Qt::Key_Return, Qt::ControlModifier);
        QVERIFY(!bench.failure().isEmpty());
        QCOMPARE(QApplication::focusWidget(), field);
    }

    void f5SetsTheTimeOfTheEventTheWheelDoesNot()
    {
        TestStore store;
        CreatorBench bench(store);
        bench.create();
        const QDateTime past(QDate(2026, 3, 1), QTime(12, 0));
        bench.eventTime()->setDateTime(past);
        const QPointF middle = bench.eventTime()->rect().center();
        QWheelEvent wheel(middle, bench.eventTime()->mapToGlobal(middle.toPoint()), QPoint(), QPoint(0, 120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(bench.eventTime(), &wheel);
        QCOMPARE(bench.eventTime()->dateTime(), past);
        QTest::keyClick(bench.eventTime(), Qt::Key_F5);
        QVERIFY(bench.eventTime()->dateTime() > past);
    }

    void controlFReturnsToTheSearch()
    {
        TestStore store;
        CreatorBench bench(store);
        bench.create();
        bench.choose("TPL_TRIP");
        bench.filler()->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("searchEdit"));
    }

    void enterOnATemplateGoesToItsFirstEmptyParameter()
    {
        TestStore store;
        CreatorBench bench(store);
        bench.create();
        typeText(QApplication::focusWidget(), QStringLiteral("отключение"));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QVERIFY(bench.filler()->isAncestorOf(QApplication::focusWidget()));
        QCOMPARE(QApplication::focusWidget()->accessibleName(), QStringLiteral("Линия"));
    }

    void theFocusStartsWhereWorkBegins()
    {
        TestStore store;
        CreatorBench bench(store);
        const std::unique_ptr<Store> loader = store.openLoader();
        const QString text = QString::fromStdString(
            HtmlParser::createParameter({{"name", "text"}, {"locname", "Содержание"}}, "Содержание"));
        QVERIFY(TestStore::write(loader.get(), "LogbookRecords", ROW_UPDATE, "REC_DRAFT_PETROV",
                                 {{"html", text}}));
        bench.loadRecords();
        const struct {
            const char* record;
            const char* focus;
        } cases[] = {{nullptr, "searchEdit"},
                     {"REC_DRAFT_PETROV", "parameterInput_0"}, // a value is missing there
                     {"REC_DRAFT_IVANOV", "eventTimeEdit"},    // a text without parameters
                     {"REC_ORDER", "cancelButton"}};
        for (const auto& opened : cases) {
            if (opened.record)
                bench.edit(opened.record);
            else
                bench.create();
            QVERIFY2(QApplication::focusWidget(), opened.focus);
            QCOMPARE(QApplication::focusWidget()->objectName(), QLatin1String(opened.focus));
            bench.dialog->close();
        }
    }

private:
    QTemporaryDir m_settings;
};

QTEST_MAIN(RecordCreatorDialogKeys_test)
#include "RecordCreatorDialogKeys_test.moc"
