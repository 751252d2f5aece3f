#include "SpellGuard.h"

#include "CreatorBench.h"
#include "StoreAdmin.h"
#include "TestFolder.h"
#include "Typing.h"
#include "UserSettings.h"

#include <algorithm>
#include <ctime>
#include <QMenu>
#include <QPlainTextEdit>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextEdit>
#include <QTextLayout>
#include <QVBoxLayout>

/// Spelling in real editors, with the installed Russian dictionary.
class SpellGuard_test : public QObject
{
    Q_OBJECT

private:
    /// A window with an editor that has the focus, and a guard.
    template <class Editor>
    struct Desk {
        Desk()
        {
            guard.dictionary()->openOwnWords(folder.filePath(QStringLiteral("words.txt")));
            auto* layout = new QVBoxLayout(&window);
            layout->addWidget(&edit);
            layout->addWidget(&other);
            window.show();
            window.activateWindow();
            QApplication::setActiveWindow(&window);
            edit.setFocus();
        }
        bool waits()
        {
            return QTest::qWaitFor([this] { return guard.dictionary()->isReady(); }, 20000);
        }
        QTextDocument* document() { return edit.document(); }

        QTemporaryDir folder{testFolderTemplate()};
        CVrkCliApp app;
        SpellGuard guard{&app};
        QWidget window;
        Editor edit{&window};
        QLineEdit other{&window};
    };
    /// The processor time of this thread: other programs of the machine do not count.
    static double processorMs()
    {
        timespec time;
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
    }
    /// The marked words of all paragraphs.
    static QStringList marked(const QTextDocument* document)
    {
        QStringList words;
        for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
            for (const QTextLayout::FormatRange& range : block.layout()->formats()) {
                if (range.format.underlineStyle() == QTextCharFormat::WaveUnderline)
                    words << block.text().mid(range.start, range.length);
            }
        }
        return words;
    }
    static QStringList list(std::initializer_list<const char*> words)
    {
        QStringList all;
        for (const char* word : words)
            all << QString::fromUtf8(word);
        return all;
    }
    /// Notes the entries of the next menu that is shown.
    class Opened : public QObject
    {
    public:
        Opened() { qApp->installEventFilter(this); }
        bool eventFilter(QObject* watched, QEvent* event) override
        {
            auto* menu = qobject_cast<QMenu*>(watched);
            if (menu && event->type() == QEvent::Show) {
                for (const QAction* action : menu->actions())
                    texts << action->text();
                if (choose)
                    choose(menu);
            }
            return false;
        }
        QStringList texts;
        std::function<void(QMenu*)> choose;
    };
    /// Opens the menu of an editor over its word at \a position, and takes an entry by its text or name.
    /// Returns the texts of the entries.
    template <class Editor>
    static QStringList openMenu(Editor* edit, int position, const QString& choice = QString())
    {
        QTextCursor cursor = edit->textCursor();
        cursor.setPosition(position);
        edit->setTextCursor(cursor);
        const QPoint place = edit->cursorRect().center();
        Opened opened;
        opened.choose = [choice](QMenu* menu) {
            for (QAction* action : menu->actions()) {
                if (!choice.isEmpty() && (action->text() == choice || action->objectName() == choice))
                    action->trigger();
            }
            QTimer::singleShot(0, menu, [menu] { menu->close(); });
        };
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, edit->viewport()->mapToGlobal(place));
        QApplication::sendEvent(edit->viewport(), &event);
        QCoreApplication::processEvents();
        return opened.texts;
    }

    QTemporaryDir m_folder{testFolderTemplate()};

private slots:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("vrk-test"));
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.path());
        QVERIFY2(!SpellDictionary::installed().isEmpty(), "the package hunspell-ru is needed");
    }
    void init() { QSettings().clear(); }

    void wordsAreRunsOfCyrillicLetters_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("words");
        QTest::newRow("sentence") << QStringLiteral("Отключён В-110, «Северная».")
                                  << list({"Отключён", "Северная"});
        QTest::newRow("hyphen") << QStringLiteral("кое-как и - так") << list({"кое-как", "и", "так"});
        QTest::newRow("names") << QStringLiteral("Т2 РПН_1 2Т ABCд") << QStringList();
        QTest::newRow("nothing") << QString() << QStringList();
    }
    void wordsAreRunsOfCyrillicLetters()
    {
        QFETCH(QString, text);
        QFETCH(QStringList, words);
        QStringList found;
        for (const SpellDictionary::Place& place : SpellDictionary::words(text))
            found << text.mid(place.begin, place.length);
        QCOMPARE(found, words);
    }

    void unknownWordsAreMarked()
    {
        Desk<QPlainTextEdit> desk;
        desk.edit.setPlainText(QStringLiteral("Отключён выключаттель РЗА\nперсанал выведен Т2"));
        QVERIFY(desk.waits());
        QTRY_COMPARE(marked(desk.document()), list({"выключаттель", "персанал"}));
        QVERIFY(!desk.document()->isModified());
        QVERIFY(!desk.document()->isUndoAvailable());
    }
    void aWordIsMarkedWhenItIsLeft()
    {
        Desk<QTextEdit> desk;
        QVERIFY(desk.waits());
        typeText(&desk.edit, QStringLiteral("персанал"));
        QCoreApplication::processEvents();
        QCOMPARE(marked(desk.document()), QStringList());
        typeText(&desk.edit, QStringLiteral(" "));
        QCOMPARE(marked(desk.document()), list({"персанал"}));
        typeText(&desk.edit, QStringLiteral("вывидин"));
        QCOMPARE(marked(desk.document()), list({"персанал"}));
        QTest::keyClick(&desk.edit, Qt::Key_Home);
        QCOMPARE(marked(desk.document()), list({"персанал", "вывидин"}));
    }
    void theMenuProposesAndReplacesInOneStep()
    {
        Desk<QPlainTextEdit> desk;
        desk.edit.setPlainText(QStringLiteral("Ввод персанал выведен"));
        QVERIFY(desk.waits());
        const QStringList texts = openMenu(&desk.edit, 7);
        QVERIFY(texts.contains(QStringLiteral("персонал")));
        QVERIFY(texts.contains(QStringLiteral("Добавить «персанал» в мой словарь")));
        QCOMPARE(desk.edit.toPlainText(), QStringLiteral("Ввод персанал выведен"));
        openMenu(&desk.edit, 7, QStringLiteral("персонал"));
        QCOMPARE(desk.edit.toPlainText(), QStringLiteral("Ввод персонал выведен"));
        desk.edit.undo();
        QCOMPARE(desk.edit.toPlainText(), QStringLiteral("Ввод персанал выведен"));
        QVERIFY(!openMenu(&desk.edit, 1).join(QLatin1Char(' ')).contains(QStringLiteral("словарь")));
    }
    void atMostSevenWordsAreProposed()
    {
        Desk<QPlainTextEdit> desk;
        QVERIFY(desk.waits());
        for (const QString& word : list({"мра", "кат", "персанал", "тток"}))
            QVERIFY(desk.guard.dictionary()->suggestions(word).size() <= 7);
        QCOMPARE(desk.guard.dictionary()->suggestions(QStringLiteral("кат")).size(), 7);
    }
    void anAddedWordIsKnownAndKept()
    {
        Desk<QTextEdit> desk;
        desk.edit.setPlainText(QStringLiteral("Включён телемех и тилемех"));
        QVERIFY(desk.waits());
        QTRY_COMPARE(marked(desk.document()), list({"телемех", "тилемех"}));
        openMenu(&desk.edit, 10, QStringLiteral("spellingAdd"));
        QCOMPARE(marked(desk.document()), list({"тилемех"}));
        SpellDictionary later;
        later.openOwnWords(desk.folder.filePath(QStringLiteral("words.txt")));
        QCOMPARE(later.ownWords(), list({"телемех"}));
        QVERIFY(desk.guard.dictionary()->removeOwnWord(QStringLiteral("телемех")));
        QCOMPARE(marked(desk.document()), list({"телемех", "тилемех"}));
    }
    void twoProgramsKeepEachOthersWords()
    {
        const QString file = m_folder.filePath(QStringLiteral("two.txt"));
        SpellDictionary first;
        SpellDictionary second;
        first.openOwnWords(file);
        second.openOwnWords(file);
        QVERIFY(first.addOwnWord(QStringLiteral("раз")));
        QVERIFY(second.addOwnWord(QStringLiteral("два")));
        QVERIFY(first.addOwnWord(QStringLiteral("три")));
        QCOMPARE(first.ownWords(), list({"раз", "два", "три"}));
    }
    void aDamagedListOfWordsIsRead()
    {
        const QString name = m_folder.filePath(QStringLiteral("damaged.txt"));
        QFile file(name);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(QByteArray("\0\xff\xfe\n<b>\nслово\nдва слова\n\n", 37) + QByteArray(100000, 'x'));
        file.close();
        SpellDictionary dictionary;
        dictionary.openOwnWords(name);
        QCOMPARE(dictionary.ownWords(), list({"слово"}));
    }
    void aWordThatCannotBeKeptIsSaid()
    {
        SpellDictionary dictionary;
        dictionary.openOwnWords(QStringLiteral("/proc/1/nothing/words.txt"));
        QVERIFY(!dictionary.addOwnWord(QStringLiteral("телемех")));
        QVERIFY(!dictionary.errorText().isEmpty());
        QCOMPARE(dictionary.ownWords(), list({"телемех"}));
    }
    void switchedOffNothingIsMarked()
    {
        Desk<QPlainTextEdit> desk;
        desk.edit.setPlainText(QStringLiteral("персанал"));
        QVERIFY(desk.waits());
        desk.other.setFocus();
        QTRY_COMPARE(marked(desk.document()), list({"персанал"}));
        desk.app.settings()->setValue(::Setting::spelling, false);
        QCOMPARE(marked(desk.document()), QStringList());
        desk.edit.setFocus();
        QCoreApplication::processEvents();
        QCOMPARE(marked(desk.document()), QStringList());
        desk.app.settings()->setValue(::Setting::spelling, true);
        desk.other.setFocus();
        desk.edit.setFocus();
        desk.other.setFocus();
        QTRY_COMPARE(marked(desk.document()), list({"персанал"}));
    }
    void readOnlyTextsAreNotChecked()
    {
        Desk<QTextEdit> desk;
        desk.other.setFocus();
        desk.edit.setReadOnly(true);
        desk.edit.setPlainText(QStringLiteral("персанал"));
        desk.edit.setFocus();
        desk.guard.dictionary()->load();
        QVERIFY(desk.waits());
        QCoreApplication::processEvents();
        QCOMPARE(marked(desk.document()), QStringList());
    }
    void withoutADictionaryNothingIsMarked()
    {
        qputenv("XDG_DATA_DIRS", m_folder.path().toLocal8Bit());
        const QString installed = SpellDictionary::installed();
        Desk<QTextEdit> desk;
        desk.edit.setPlainText(QStringLiteral("персанал"));
        QCoreApplication::processEvents();
        const bool isReady = desk.guard.dictionary()->isReady();
        qunsetenv("XDG_DATA_DIRS");
        QCOMPARE(installed, QString());
        QVERIFY(!isReady);
        QCOMPARE(marked(desk.document()), QStringList());
        QVERIFY(desk.guard.dictionary()->suggestions(QStringLiteral("персанал")).isEmpty());
        openMenu(&desk.edit, 2);
    }

    void namesAreKnownInEveryForm()
    {
        SpellDictionary dictionary;
        dictionary.load();
        QVERIFY(QTest::qWaitFor([&dictionary] { return dictionary.isReady(); }, 20000));
        const QStringList forms = list({"Озеров", "Озерову", "Озеровым", "Озерове", "Бревновым-Озеровым"});
        for (const QString& form : forms)
            QVERIFY2(!dictionary.isKnown(form), qPrintable(form));
        dictionary.setReferenceTexts(list({"Озеров А. Н.", "Бревнов-Озеров"}));
        for (const QString& form : forms)
            QVERIFY2(dictionary.isKnown(form), qPrintable(form));
        QVERIFY(!dictionary.isKnown(QStringLiteral("Озирову")));
        dictionary.setReferenceTexts({});
        QVERIFY(!dictionary.isKnown(forms[0]));
    }
    void namesOfTheReferenceDataAreKnown()
    {
        const TestStore store;
        CreatorBench bench(store);
        SpellGuard guard(&bench.client.app());
        bench.create();
        bench.choose("TPL_ORDER");
        QTextDocument* document = textOf(bench);
        QVERIFY(document);
        QVERIFY(QTest::qWaitFor([&guard] { return guard.dictionary()->isReady(); }, 20000));
        SpellDictionary plain;
        plain.load();
        QVERIFY(QTest::qWaitFor([&plain] { return plain.isReady(); }, 20000));
        for (const QString& word : list({"Сидорова", "Сидоровой"})) {
            QVERIFY2(!plain.isKnown(word), qPrintable(word));
            QTRY_VERIFY2(guard.dictionary()->isKnown(word), qPrintable(word));
        }
        QVERIFY(!guard.dictionary()->isKnown(QStringLiteral("Седоровой")));
    }

    void namesOfTheOwnDepartmentAreProposedFirst()
    {
        SpellDictionary dictionary;
        dictionary.load();
        QVERIFY(QTest::qWaitFor([&dictionary] { return dictionary.isReady(); }, 20000));
        const auto proposed = [&dictionary](const char* word) {
            return dictionary.suggestions(QString::fromUtf8(word));
        };
        const QStringList before = proposed("персанал");
        dictionary.setReferenceTexts(
            list({"Персанов", "Ольховка"}),
            list({"Туманов И. К.", "ПС 110 кВ Ольховка", "ОДС", "Туманов П. П.", "Ветров"}));
        QCOMPARE(proposed("персанал"), before); // nothing near is like it
        QCOMPARE(proposed("Альховка").constFirst(), QStringLiteral("Ольховка"));
        QCOMPARE(proposed("Тумнаов").constFirst(), QStringLiteral("Туманов"));
        QCOMPARE(proposed("Тумнаов").count(QStringLiteral("Туманов")), 1);
        QCOMPARE(proposed("Втеров").constFirst(), QStringLiteral("Ветров"));
        QVERIFY(!proposed("Тумоно").contains(QStringLiteral("Туманов"))); // two differences in a short word
        QVERIFY(!proposed("Персонов").contains(QStringLiteral("Персанов"))); // known, but of others
        QVERIFY(proposed("Тумнаов").size() <= 7);
        dictionary.setReferenceTexts({});
        QVERIFY(!proposed("Альховка").contains(QStringLiteral("Ольховка")));
    }
    void theMenuProposesNamesOfTheOwnDepartment()
    {
        const TestStore store;
        CreatorBench bench(store);
        SpellGuard guard(&bench.client.app());
        bench.create();
        bench.choose("TPL_ORDER");
        QVERIFY(textOf(bench));
        QVERIFY(QTest::qWaitFor([&guard] { return guard.dictionary()->isReady(); }, 20000));
        const auto first = [&guard](const char* word) {
            return guard.dictionary()->suggestions(QString::fromUtf8(word)).value(0);
        };
        QTRY_COMPARE(first("Седорова"), QStringLiteral("Сидорова")); // of ЦДС
        QCOMPARE(first("Зоречная"), QStringLiteral("Заречная"));
    }

    void wordsOfTheSiteAreKnown()
    {
        const TestStore store;
        StoreError error;
        QVERIFY(StoreAdmin::putFile(store.url(), QStringLiteral("words"), QStringLiteral("ru"),
                                    QStringLiteral("телемех\n").toUtf8(), &error));
        CreatorBench bench(store);
        SpellGuard guard(&bench.client.app());
        bench.create();
        bench.choose("TPL_ORDER");
        QVERIFY(textOf(bench));
        QVERIFY(QTest::qWaitFor([&guard] { return guard.dictionary()->isReady(); }, 20000));
        QTRY_VERIFY(guard.dictionary()->isKnown(QStringLiteral("телемехом")));
        QVERIFY(!guard.dictionary()->isKnown(QStringLiteral("тилемехом")));
    }

    void aKeyCostsAlmostNothingMore()
    {
        const TestStore store;
        CreatorBench bench(store);
        bench.create();
        bench.choose("TPL_ORDER");
        QVERIFY(textOf(bench));
        double medians[2];
        double worst = 0;
        std::unique_ptr<SpellGuard> guard;
        for (const bool isChecked : {false, true}) {
            if (isChecked) {
                guard = std::make_unique<SpellGuard>(&bench.client.app());
                QWidget* edit = QApplication::focusWidget();
                edit->clearFocus();
                edit->setFocus();
                QVERIFY(QTest::qWaitFor([&guard] { return guard->dictionary()->isReady(); }, 20000));
                QCoreApplication::processEvents();
            }
            QVector<double> times;
            bench.dialog->findChild<QPlainTextEdit*>()->clear();
            const QString words = QStringLiteral("отключон выключатель персанал линии Северная ");
            for (int i = 0; i < 400; ++i) {
                const double before = processorMs();
                typeText(QApplication::focusWidget(), words.mid(i % words.size(), 1));
                QCoreApplication::processEvents();
                times.append(processorMs() - before);
            }
            std::sort(times.begin(), times.end());
            medians[isChecked ? 1 : 0] = times[times.size() / 2];
            worst = times[times.size() * 99 / 100];
            if (isChecked)
                QVERIFY(!marked(textOf(bench)).isEmpty());
        }
        qInfo("a key: %.2f ms without, %.2f ms with the check, 99 of 100 within %.2f ms", medians[0],
              medians[1], worst);
        QVERIFY2(worst < 16.7, qPrintable(QString::number(worst)));
    }

private:
    static QTextDocument* textOf(CreatorBench& bench)
    {
        auto* edit = bench.dialog->findChild<QPlainTextEdit*>();
        if (!edit)
            return nullptr;
        QApplication::setActiveWindow(bench.dialog);
        edit->setFocus();
        QCoreApplication::processEvents();
        return edit->document();
    }
};

QTEST_MAIN(SpellGuard_test)
#include "SpellGuard_test.moc"
