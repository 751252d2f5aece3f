#include "CVrkConverter.h"
#include "CVrkTemplateEditor.h"
#include "DemoStore.h"
#include "HtmlParser.h"
#include "LogbookFields.h"
#include "MDRValues.h"
#include "PostgresAdmin.h"
#include "RecordCreatorDialog.h"
#include "RecordValue.h"
#include "TemplateEditor.h"
#include "TemplateFiller.h"
#include "TemplatesWidget.h"
#include "TemplateTab.h"
#include "TemplateText.h"
#include "TestClient.h"

#include <memory>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QTextCodec>
#include <QTextEdit>
#include <QTreeView>

/// The earlier journal of the demo, converted and saved: how the journal uses its templates.
class ConvertedDemo_test : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        StoreError error;
        const qint64 now = QDateTime::currentSecsSinceEpoch();
        m_store = std::make_unique<TestStore>(TestStore::Empty);
        const QString url = m_store->url();
        QVERIFY2(DemoStore::fill(url, now, &error), qPrintable(error.text + error.detail));
        QVERIFY2(DemoStore::writeEarlierJournal(url, now, 400, &error), qPrintable(error.text));
        if (!TestStore::isSqlite())
            for (const QString& login : {DemoStore::administrator(), DemoStore::dispatcher()})
                QVERIFY2(PostgresAdmin::addRole(url, login, &error), qPrintable(error.text + error.detail));
        const std::unique_ptr<CMDArray> present = select("SELECT KeyLink FROM LogbookTemplates");
        for (int i = 0; i < present->RecCount(); ++i)
            m_present.insert(textOf(*present, i, "KeyLink"));

        TestClient client(open(DemoStore::administrator()));
        CVrkConverter converter(&client.app());
        QVERIFY(converter.ModuleStart());
        converter.findChild<QPushButton*>(QStringLiteral("convertButton"))->click();
        m_report = converter.findChild<QTextEdit*>(QStringLiteral("infoEdit"))->toPlainText();
        auto* save = converter.findChild<QPushButton*>(QStringLiteral("saveButton"));
        QVERIFY2(save->isEnabled(), qPrintable(m_report));
        save->click();
        m_report = converter.findChild<QTextEdit*>(QStringLiteral("infoEdit"))->toPlainText();
        QVERIFY(m_report.endsWith(QStringLiteral("Параметры успешно сохранены\nШаблоны успешно сохранены")));
        m_templates = select("SELECT * FROM LogbookTemplates");
    }

    void convertsEverythingExceptUnknownParts()
    {
        QVERIFY2(m_report.contains(QStringLiteral("Обработано 400 из 400 шаблонов")), qPrintable(m_report));
        QVERIFY(m_report.contains(QStringLiteral("Предупреждений: 3\n")));
        QVERIFY(m_report.contains(QStringLiteral("Ошибок: 0\n")));
        QVERIFY(m_report.contains(QStringLiteral("Не найдена иконка 1-го маркера: Пожар.png")));
        QVERIFY(m_report.contains(QStringLiteral("Не найдена иконка 2-го маркера: Дым")));
        QCOMPARE(m_templates->RecCount(), m_present.size() + 400);
    }

    void eachOldTemplateShowsItsTextAndParameters()
    {
        const std::unique_ptr<CMDArray> old = select("SELECT * FROM OperLogTemplates");
        QHash<QString, QString> html;
        for (int i = 0; i < m_templates->RecCount(); ++i)
            html.insert(textOf(*m_templates, i, "nameLoc"), textOf(*m_templates, i, "html"));
        const QRegularExpression parameter(QStringLiteral("<[^>]*>"));
        for (int i = 0; i < old->RecCount(); ++i) {
            const QString name = textOf(*old, i, "name_");
            const QString text = textOf(*old, i, "text_");
            QVERIFY2(html.contains(name), qPrintable(name));
            const HtmlParser parser(html[name].toStdString());
            const int lost = text.count(QStringLiteral("mark>"));
            QCOMPARE(int(parser.countParameters()), text.count(parameter) - lost);
            const QString shown = TemplateText::plain(html[name]);
            QVERIFY2(!shown.contains(parameter) && !shown.contains(QLatin1Char('+')), qPrintable(shown));
            for (QString word :
                 text.split(parameter)
                     .join(QLatin1Char(' '))
                     .split(QRegularExpression(QStringLiteral("[\\s\\[\\]+]+")), Qt::SkipEmptyParts))
                QVERIFY2(shown.contains(word), qPrintable(shown));
        }
    }

    void eachTemplateCanBeFilled()
    {
        TestClient client(open(DemoStore::dispatcher()));
        TestModule module(client);
        TemplateFiller filler;
        filler.setModule(&module);
        for (int i = 0; i < m_templates->RecCount(); ++i) {
            const QString html = textOf(*m_templates, i, "html");
            if (m_present.contains(textOf(*m_templates, i, "KeyLink")))
                continue;
            const HtmlParser parser(html.toStdString());
            filler.setTemplate(html);
            for (unsigned p = 0; p < parser.countParameters(); ++p)
                filler.setParameterValue(p, QStringLiteral("значение %1").arg(p), QString());
            QVERIFY2(filler.isFilled(), qPrintable(html));
            const HtmlParser filled(filler.filledTemplate(true).toStdString());
            QCOMPARE(filled.countParameters(), parser.countParameters());
            for (unsigned p = 0; p < parser.countParameters(); ++p) {
                QCOMPARE(filled.propertyNameValue(p), parser.propertyNameValue(p));
                QCOMPARE(QString::fromStdString(filled.displayText(p)), QStringLiteral("значение %1").arg(p));
            }
            QCOMPARE(filled.isExistTemplateProperty("second_mark"),
                     parser.isExistTemplateProperty("second_mark"));
        }
    }

    void eachTemplateOpensUnchangedInTheEditor()
    {
        TemplateEditor editor;
        for (int i = 0; i < m_templates->RecCount(); ++i) {
            const QString html = textOf(*m_templates, i, "html");
            editor.setTemplateText(html);
            QCOMPARE(editor.templateText(), html);
        }
    }

    void theConfiguratorHasTemplatesAndParameters()
    {
        TestClient client(*m_store, DemoStore::administrator());
        CVrkTemplateEditor window(&client.app());
        window.show();
        QVERIFY(window.ModuleStart());
        auto* page = window.findChild<TemplateTab*>(QStringLiteral("publicTemplates"));
        const auto holds = [](const QAbstractItemModel* model, const char* name) {
            return !model
                        ->match(model->index(0, 0), Qt::DisplayRole, QString::fromUtf8(name), 1,
                                Qt::MatchExactly | Qt::MatchRecursive)
                        .isEmpty();
        };
        const auto* parameters = page->findChild<QTreeView*>(QStringLiteral("parametersTree"))->model();
        for (const char* name : {"Параметры", "Время начала", "Операция", "Примечание"})
            QVERIFY2(holds(parameters, name), name);
        auto* tree = page->findChild<QTreeView*>(QStringLiteral("templatesTree"));
        QVERIFY(holds(tree->model(), "Нарушения (прежний журнал)"));
        page->findChild<QLineEdit*>(QStringLiteral("searchEdit"))->setText(QStringLiteral("Отключение ВЛ"));
        QCOMPARE(tree->currentIndex().data().toString(), QStringLiteral("Отключение ВЛ"));
        QCOMPARE(page->findChild<QLineEdit*>(QStringLiteral("templateCommandEdit"))->text(),
                 QStringLiteral("Сообщено"));
        QCOMPARE(page->findChild<QComboBox*>(QStringLiteral("templateFirstMarkBox"))->currentText(),
                 QStringLiteral("Авария"));
        QVERIFY(!page->isExistUnsaved()); // showing it causes no change
    }

    void oneOfEachKindIsSavedAsARecord()
    {
        TestClient client(open(DemoStore::dispatcher()));
        const std::unique_ptr<CMDArray> shift =
            select("SELECT * FROM LogbookWorkshifts WHERE DepartmentKey = '" + DemoStore::storyDepartment() +
                   "' AND coalesce(CloseWorkerKey, '') = ''");
        QCOMPARE(shift->RecCount(), 1);
        const QString worker =
            textOf(*select("SELECT W.KeyLink FROM Workers AS W JOIN Users AS U ON U.KeyLink = "
                           "W.UserKey WHERE U.login = 'ozerov' AND W.DepartmentKey = '" +
                           DemoStore::storyDepartment() + "'"),
                   0, "KeyLink");
        TestModule module(client);
        CModelTable records("LogbookRecords");
        MDAFldAdd(records.data.array, fieldCount(LogbookRecordExtFields), LogbookRecordExtFields);
        records.data.KeyAdd("", 0);
        RecordCreatorDialog dialog(&module);
        dialog.init(&module);
        dialog.setRecordsTable(&records);
        dialog.setWorkerKey(worker);
        dialog.setDepartmentKey(QString::fromLatin1(DemoStore::storyDepartment()));
        dialog.setWorkshiftKey(textOf(*shift, 0, "KeyLink"));
        auto* templates = dialog.findChild<TemplatesWidget*>(QStringLiteral("templatesWidget"));
        auto* filler = dialog.findChild<TemplateFiller*>(QStringLiteral("templateFiller"));
        QSet<QString> kinds;
        for (int i = 0; i < m_templates->RecCount(); ++i) {
            const QString key = textOf(*m_templates, i, "KeyLink");
            const QString kind = textOf(*m_templates, i, "nameLoc").section(QStringLiteral(" №"), 0, 0);
            if (m_present.contains(key) || kinds.contains(kind))
                continue;
            dialog.setCurrentRecord(nullptr);
            dialog.show();
            if (!templates->selectTemplate(key)) { // of another department or type of organization
                dialog.close();
                continue;
            }
            kinds.insert(kind);
            const HtmlParser parser(textOf(*m_templates, i, "html").toStdString());
            for (unsigned p = 0; p < parser.countParameters(); ++p)
                filler->setParameterValue(p, QStringLiteral("значение %1").arg(p), QString());
            QSet<QString> before;
            const std::unique_ptr<CMDArray> earlier = select("SELECT KeyLink FROM LogbookRecords");
            for (int r = 0; r < earlier->RecCount(); ++r)
                before.insert(textOf(*earlier, r, "KeyLink"));
            auto* save = dialog.findChild<QAbstractButton*>(QStringLiteral("saveButton"));
            QVERIFY2(save->isEnabled(), qPrintable(kind));
            QTest::mouseClick(save, Qt::LeftButton);
            QVERIFY2(!dialog.isVisible(), qPrintable(kind));
            const std::unique_ptr<CMDArray> after = select("SELECT KeyLink, html FROM LogbookRecords");
            QCOMPARE(after->RecCount(), before.size() + 1);
            int added = 0;
            while (before.contains(textOf(*after, added, "KeyLink")))
                ++added;
            const HtmlParser saved(textOf(*after, added, "html").toStdString());
            QCOMPARE(saved.countParameters(), parser.countParameters());
            QCOMPARE(client.takeFailures(), QStringList());
        }
        QVERIFY2(kinds.size() >= 40, qPrintable(QString::number(kinds.size())));
    }

private:
    std::unique_ptr<Store> open(const QString& login) const { return m_store->open(login); }
    std::unique_ptr<CMDArray> select(const QByteArray& sql) const
    {
        StoreError error;
        const std::unique_ptr<Store> store = m_store->openLoader();
        auto answer = std::make_unique<CMDArray>();
        *answer = store->select(sql, &error);
        if (!answer->array)
            qFatal("%s %s", qPrintable(error.text), sql.constData());
        return answer;
    }
    static QString textOf(const CMDArray& rows, int row, const char* field)
    {
        return TestStore::text(MDRValue::copy(Row(MDARec(rows.array, 0, row)).value(field)));
    }

    std::unique_ptr<TestStore> m_store;
    QString m_report;
    std::unique_ptr<CMDArray> m_templates;
    QSet<QString> m_present; ///< keys of the templates that existed before
};

QTEST_MAIN(ConvertedDemo_test)
#include "ConvertedDemo_test.moc"
