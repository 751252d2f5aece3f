#include "../support/Typing.h"
#include "CVrkCliMod.h"
#include "GuideText.h"
#include "HostBench.h"
#include "SourceFile.h"
#include "Workstation.h"

#include <QAction>
#include <QDirIterator>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QRegularExpression>
#include <QShortcut>
#include <QTabBar>
#include <QTableView>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

/// docs/user-guide.ru.md compared with the program: its windows, keys and icons, and the steps of a shift, which are
/// carried out as they are written.
class UserGuide_test : public QObject
{
    Q_OBJECT

private slots:
    void everyWindowHasASection();
    void everyLinkAndPictureLeadsSomewhere();
    void picturesComeFromTheTour();
    void everyKeyOfTheProgramIsInTheGuide();
    void everyKeyOfTheGuideIsOneOfTheProgram();
    void keysOfTheRecordWindowAreThoseOfTheGuide();
    void buttonsHaveTheIconsOfTheGuide();
    void markersHaveTheNamesOfTheProgram();
    void theStepsOfAShiftCanBeCarriedOut();
    void aFirstRecordTakesAtMostEightClicks();

private:
    using Rows = QVector<QPair<QString, QString>>;

    static QString guide();
    /// The rows of the table below the heading \a title.
    static Rows table(const QString& title);
    static QSet<QString> keysOfTheGuide();
    static CVrkCliMod* journalOf(Workstation& host, const HostBench& bench);
    /// The keys of the window's shortcuts, buttons and entries, as the guide writes them.
    static QSet<QString> keysOf(const QWidget* window);

    void carryOut(const QString& step, const QString& where);
    static QWidget* front();
    static bool isVisible(const QString& text);
    static void choose(const QString& record);
    static QAbstractButton* button(const QString& text);

    QHash<QString, int> m_keys; ///< pressed below a heading, except for free texts
};

QString UserGuide_test::guide()
{
    QFile file(sourceFile("docs/user-guide.ru.md"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

UserGuide_test::Rows UserGuide_test::table(const QString& title)
{
    static const QRegularExpression row(QStringLiteral("^\\| (.*?) \\| (.*?) \\|$"));
    Rows rows;
    bool isInside = false;
    for (const QString& line : guide().split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1Char('#')))
            isInside = line.endsWith(QLatin1Char(' ') + title);
        const QRegularExpressionMatch match = row.match(line);
        if (isInside && match.hasMatch())
            rows.append({match.captured(1), match.captured(2)});
    }
    rows.removeFirst(); // the head
    return rows;
}

QSet<QString> UserGuide_test::keysOfTheGuide()
{
    QSet<QString> keys;
    for (const char* title : {"В любом окне", "В журнале"})
        for (const auto& [key, text] : table(QString::fromUtf8(title)))
            keys.insert(key);
    return keys;
}

CVrkCliMod* UserGuide_test::journalOf(Workstation& host, const HostBench& bench)
{
    Options options;
    options.store = bench.url();
    options.user = QStringLiteral("ozerov");
    options.department = QStringLiteral("ЦДС");
    if (!host.enter(options))
        qFatal("%s", qPrintable(host.errorText()));
    return host.startModule(QStringLiteral("logbook"));
}

QSet<QString> UserGuide_test::keysOf(const QWidget* window)
{
    QSet<QString> keys;
    const auto add = [&keys](const QKeySequence& sequence) {
        QString key = sequence.toString(QKeySequence::PortableText);
        key.replace(QLatin1String("Return"), QLatin1String("Enter"));
        if (QRegularExpression(QStringLiteral("^Alt\\+[1-9]$")).match(key).hasMatch())
            key = QStringLiteral("Alt+1 – Alt+9"); // one row for all
        static const QRegularExpression mnemonic(
            QStringLiteral("^Alt\\+[А-ЯЁ]$"));               // underlined where it works
        if (!key.isEmpty() && key != QLatin1String("Esc") && // it closes the line of the search
            !mnemonic.match(key).hasMatch())
            keys.insert(key);
    };
    for (const auto* one : window->findChildren<QShortcut*>())
        if (one->parentWidget()->window() == window)
            add(one->key());
    for (const auto* one : window->findChildren<QAbstractButton*>())
        if (one->window() == window)
            add(one->shortcut());
    for (const auto* one : window->findChildren<QAction*>()) {
        auto* owner = qobject_cast<QWidget*>(one->parent());
        while (qobject_cast<QMenu*>(owner))
            owner = owner->parentWidget();
        // Entries of editors belong to the toolkit.
        if (owner && owner->window() == window && !qobject_cast<QLineEdit*>(owner))
            add(one->shortcut());
    }
    return keys;
}

void UserGuide_test::everyWindowHasASection()
{
    static const QRegularExpression window(QStringLiteral(
        "class (?:VRK_EXPORT )?(\\w+) : public (?:QDialog|CPopTemplate|CVrkCliMod|LogbookModule|"
        "WorkshiftDialog|MarkTimeDialog)\\b"));
    const QSet<QString> bases{QStringLiteral("CPopTemplate"), QStringLiteral("LogbookModule"),
                              QStringLiteral("WorkshiftDialog"), QStringLiteral("MarkTimeDialog"),
                              QStringLiteral("LogSink")};
    QSet<QString> described;
    const GuideText text(guide());
    for (const GuideText::Section& section : text.sections())
        for (const QString& name : section.windows)
            described.insert(name);
    int found = 0;
    for (const char* folder : {"platform", "plugin", "archive", "workstation"}) {
        QDirIterator headers(sourceFile(folder), {QStringLiteral("*.h")}, QDir::Files,
                             QDirIterator::Subdirectories);
        while (headers.hasNext()) {
            QFile header(headers.next());
            QVERIFY(header.open(QIODevice::ReadOnly));
            QRegularExpressionMatchIterator names = window.globalMatch(QString::fromUtf8(header.readAll()));
            while (names.hasNext()) {
                const QString name = names.next().captured(1);
                QVERIFY2(bases.contains(name) || described.contains(name), qPrintable(name));
                ++found;
            }
        }
    }
    QVERIFY(found >= 25);
}

void UserGuide_test::everyLinkAndPictureLeadsSomewhere()
{
    const GuideText compiled;
    static const QRegularExpression link(QStringLiteral("\\]\\(([^)]+)\\)"));
    QRegularExpressionMatchIterator links = link.globalMatch(compiled.markdown());
    int pictures = 0;
    while (links.hasNext()) {
        const QString target = links.next().captured(1);
        if (target.startsWith(QLatin1Char('#'))) {
            QVERIFY2(compiled.section(target.mid(1)) >= 0, qPrintable(target));
            continue;
        }
        QVERIFY2(QFile::exists(sourceFile("docs/") + target), qPrintable(target));
        const bool isIcon = target.endsWith(QLatin1String(".svg"));
        QVERIFY2(isIcon || QFile::exists(QStringLiteral(":/help/") + target), qPrintable(target));
        ++pictures;
    }
    QVERIFY(pictures > 30);
    for (const QString& title : {GuideText::firstShift(), GuideText::keys(), GuideText::news()})
        QVERIFY2(compiled.section(title) >= 0, qPrintable(title));
}

void UserGuide_test::picturesComeFromTheTour()
{
    QFile script(sourceFile("docs/guide-pictures.sh"));
    QVERIFY(script.open(QIODevice::ReadOnly));
    QString tour;
    QDirIterator parts(sourceFile("workstation"), {QStringLiteral("Tour*.cpp")});
    while (parts.hasNext()) {
        QFile part(parts.next());
        QVERIFY(part.open(QIODevice::ReadOnly));
        tour += QString::fromUtf8(part.readAll());
    }
    tour.remove(QRegularExpression(QStringLiteral("\"\\s*\n\\s*\""))); // a long text is divided
    QStringList made;
    static const QRegularExpression line(QStringLiteral("^(\\w+): +(.+)$"));
    const QString table = QString::fromUtf8(script.readAll()).section(QStringLiteral("\npictures='\n"), 1);
    for (const QString& one : table.section(QStringLiteral("\n'\n"), 0, 0).split(QLatin1Char('\n'))) {
        const QRegularExpressionMatch match = line.match(one);
        QVERIFY2(match.hasMatch(), qPrintable(one));
        QVERIFY2(tour.contains(QStringLiteral("\"") + match.captured(2)), qPrintable(one));
        made << match.captured(1);
    }
    QStringList shown;
    static const QRegularExpression picture(QStringLiteral("\\(guide/(\\w+)\\.png\\)"));
    QRegularExpressionMatchIterator pictures = picture.globalMatch(guide());
    while (pictures.hasNext())
        shown << pictures.next().captured(1);
    QStringList kept = QDir(sourceFile("docs/guide")).entryList(QDir::Files);
    kept.replaceInStrings(QStringLiteral(".png"), QString());
    for (QStringList* list : {&made, &shown, &kept})
        list->sort();
    QVERIFY(made.size() >= 8);
    QCOMPARE(shown, made);
    QCOMPARE(kept, made);
}

void UserGuide_test::keysOfTheRecordWindowAreThoseOfTheGuide()
{
    HostBench bench;
    Workstation host;
    CVrkCliMod* journal = journalOf(host, bench);
    const auto* dialog = journal->findChild<QWidget*>(QStringLiteral("RecordCreatorDialog"));
    QVERIFY(dialog);
    QSet<QString> named;
    for (const auto& [key, text] : table(QStringLiteral("В окне записи")))
        named.insert(key);
    const QSet<QString> keys = keysOf(dialog);
    QVERIFY(keys.size() >= 4);
    const QSet<QString> missing = keys - named;
    QVERIFY2(missing.isEmpty(), qPrintable(QStringList(missing.values()).join(QStringLiteral(", "))));
    // Handled by the fields and the dialog themselves; their tests press them.
    const QSet<QString> unknown = named - keys -
                                  QSet<QString>{QStringLiteral("Enter"), QStringLiteral("Tab"),
                                                QStringLiteral("F5"), QStringLiteral("Esc")};
    QVERIFY2(unknown.isEmpty(), qPrintable(QStringList(unknown.values()).join(QStringLiteral(", "))));
}

void UserGuide_test::everyKeyOfTheProgramIsInTheGuide()
{
    HostBench bench;
    Workstation host;
    const QSet<QString> keys = keysOf(journalOf(host, bench));
    QVERIFY(keys.size() >= 25);
    const QSet<QString> missing = keys - keysOfTheGuide();
    QVERIFY2(missing.isEmpty(), qPrintable(QStringList(missing.values()).join(QStringLiteral(", "))));
}

void UserGuide_test::everyKeyOfTheGuideIsOneOfTheProgram()
{
    HostBench bench;
    Workstation host;
    QSet<QString> unknown = keysOfTheGuide() - keysOf(journalOf(host, bench));
    // Handled by the page and the table themselves; their tests press them.
    unknown -= {QStringLiteral("Del"), QStringLiteral("Home"), QStringLiteral("Ctrl+C"),
                QStringLiteral("Enter"), QStringLiteral("F2")};
    QVERIFY2(unknown.isEmpty(), qPrintable(QStringList(unknown.values()).join(QStringLiteral(", "))));
}

void UserGuide_test::buttonsHaveTheIconsOfTheGuide()
{
    HostBench bench;
    Workstation host;
    const CVrkCliMod* journal = journalOf(host, bench);
    const Rows rows = table(QStringLiteral("Кнопки"));
    static const QRegularExpression drawing(QStringLiteral("/(icons|markers)/(\\w+)\\.svg"));
    int found = 0;
    for (const auto* one :
         journal->findChild<QToolBar*>(QStringLiteral("toolBar"))->findChildren<QToolButton*>()) {
        if (one->toolTip().isEmpty())
            continue;
        const auto row = std::find_if(rows.begin(), rows.end(), [one](const auto& line) {
            return one->toolTip() == line.second ||
                   one->toolTip().startsWith(line.second + QLatin1String(" ("));
        });
        QVERIFY2(row != rows.end(), qPrintable(one->toolTip()));
        const QRegularExpressionMatch path = drawing.match(row->first);
        const QIcon expected(QStringLiteral(":/%1/%2.png").arg(path.captured(1), path.captured(2)));
        QVERIFY(!expected.pixmap(24).isNull());
        QCOMPARE(one->icon().pixmap(24).toImage(), expected.pixmap(24).toImage());
        ++found;
    }
    QCOMPARE(found, rows.size() - 1); // the button of another department is next to the tabs
}

void UserGuide_test::markersHaveTheNamesOfTheProgram()
{
    QFile header(sourceFile("platform/widgets/TemplateMarkers.h"));
    QVERIFY(header.open(QIODevice::ReadOnly));
    static const QRegularExpression marker(
        QStringLiteral("\"TemplateMarkers\", \"([^\"]+)\"\\),\\s*\":/markers/(\\w+)\\.png\""));
    QRegularExpressionMatchIterator markers = marker.globalMatch(QString::fromUtf8(header.readAll()));
    Rows known;
    while (markers.hasNext()) {
        const QRegularExpressionMatch one = markers.next();
        known.append({QStringLiteral("![](../plugin/resources/svg/markers/%1.svg)").arg(one.captured(2)),
                      one.captured(1)});
    }
    Rows named = table(QStringLiteral("Маркеры"));
    QVERIFY(known.size() >= 7);
    std::sort(known.begin(), known.end());
    std::sort(named.begin(), named.end());
    QCOMPARE(named, known);
}

/// \name The steps of "Смена за десять минут"
/// Numbered lines, in which **a key** is pressed, `a text` is typed, «a name» must be visible then. "Выберите запись"
/// makes the row with the name current; "Нажмите" and "Ответьте" press the button with the name.
/// @{
QWidget* UserGuide_test::front()
{
    if (QWidget* popup = QApplication::activePopupWidget())
        return popup;
    if (QWidget* window = QApplication::activeWindow())
        return window;
    for (QWidget* widget : QApplication::topLevelWidgets()) // a window manager would do this
        if (widget->isVisible() && widget->inherits("CVrkCliMod"))
            QApplication::setActiveWindow(widget);
    return QApplication::activeWindow();
}

bool UserGuide_test::isVisible(const QString& text)
{
    for (const QWidget* widget : QApplication::allWidgets()) {
        if (!widget->isVisible())
            continue;
        QStringList words{widget->windowTitle(), widget->toolTip(), widget->property("text").toString(),
                          widget->property("title").toString(),
                          widget->property("placeholderText").toString()};
        if (const auto* view = qobject_cast<const QAbstractItemView*>(widget); view && view->model()) {
            for (int row = 0; row < view->model()->rowCount(); ++row)
                for (int column = 0; column < view->model()->columnCount(); ++column)
                    for (int role : {int(Qt::DisplayRole), int(Qt::AccessibleTextRole), int(Qt::UserRole)})
                        words << view->model()->index(row, column).data(role).toString();
        }
        for (QString word : qAsConst(words))
            if (word.remove(QLatin1Char('&')).contains(text, Qt::CaseInsensitive))
                return true;
    }
    return false;
}

void UserGuide_test::choose(const QString& record)
{
    auto* view = front()->findChild<QTableView*>(QStringLiteral("recordsTable"));
    QVERIFY2(view, qPrintable(record));
    for (int row = view->model()->rowCount() - 1; row >= 0; --row) {
        for (int column = 0; column < view->model()->columnCount(); ++column) {
            const QModelIndex index = view->model()->index(row, column);
            if (index.data().toString().contains(record)) {
                view->setCurrentIndex(index);
                view->setFocus();
                return;
            }
        }
    }
    QFAIL(qPrintable(record));
}

QAbstractButton* UserGuide_test::button(const QString& text)
{
    for (QWidget* widget : QApplication::allWidgets()) {
        auto* one = qobject_cast<QAbstractButton*>(widget);
        if (one && one->isVisible() && one->isEnabled() &&
            (one->text().remove(QLatin1Char('&')) == text || one->toolTip() == text))
            return one;
    }
    return nullptr;
}

void UserGuide_test::carryOut(const QString& step, const QString& where)
{
    static const QRegularExpression part(QStringLiteral(
        "(Выберите запись|Нажмите|Ответьте|нажмите) «([^»]+)»|\\*\\*([^*]+)\\*\\*|`([^`]+)`|«([^»]+)»"));
    QRegularExpressionMatchIterator parts = part.globalMatch(step);
    while (parts.hasNext()) {
        const QRegularExpressionMatch one = parts.next();
        const QString seen = one.captured(1).isEmpty() ? one.captured(5) : one.captured(2);
        const QByteArray fault = (where + QStringLiteral(": ") + one.captured(0)).toUtf8();
        if (!seen.isEmpty() && one.captured(1) != QStringLiteral("Выберите запись"))
            QTRY_VERIFY2(isVisible(seen), fault);
        QWidget* window = front();
        QVERIFY2(window, fault);
        QWidget* receiver = window->focusWidget() ? window->focusWidget() : window;
        if (one.captured(1) == QStringLiteral("Выберите запись")) {
            choose(seen);
        } else if (!one.captured(1).isEmpty()) {
            QTRY_VERIFY2(button(seen), fault);
            button(seen)->click();
        } else if (!one.captured(3).isEmpty()) {
            ++m_keys[where];
            QString key = one.captured(3);
            QTest::keySequence(receiver,
                               QKeySequence(key.replace(QLatin1String("Enter"), QLatin1String("Return"))));
        } else if (!one.captured(4).isEmpty()) {
            if (!receiver->inherits("QPlainTextEdit")) // a free text
                m_keys[where] += one.captured(4).size();
            for (const QChar character : one.captured(4)) {
                QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
                QCoreApplication::sendEvent(receiver, &press);
            }
        }
        QCoreApplication::processEvents();
    }
}

void UserGuide_test::theStepsOfAShiftCanBeCarriedOut()
{
    HostBench bench;
    Workstation host;
    CVrkCliMod* journal = journalOf(host, bench);
    journal->resize(1600, 900); // a small one has no space for the comments
    QVERIFY(QTest::qWaitForWindowActive(journal));
    static const QRegularExpression step(QStringLiteral("^\\d+\\. (.*)$"));
    QString heading;
    QStringList steps;
    bool isInside = false;
    for (const QString& line : guide().split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1String("## ")))
            isInside = line == QLatin1String("## ") + GuideText::firstShift();
        if (line.startsWith(QLatin1String("### ")))
            heading = line.mid(4);
        if (!isInside)
            continue;
        const QRegularExpressionMatch match = step.match(line);
        if (match.hasMatch())
            steps << heading + QLatin1Char('\t') + match.captured(1);
        else if (line.startsWith(QLatin1String("   ")))
            steps.last() += QLatin1Char(' ') + line.trimmed();
    }
    QVERIFY(steps.size() >= 20);
    for (const QString& one : qAsConst(steps)) {
        carryOut(one.section(QLatin1Char('\t'), 1), one.section(QLatin1Char('\t'), 0, 0));
        if (QTest::currentTestFailed())
            return;
    }
    const int keys = m_keys.value(QStringLiteral("Команда на переключения"));
    QVERIFY2(keys >= 15 && keys <= 20, qPrintable(QString::number(keys)));
}
/// @}

void UserGuide_test::aFirstRecordTakesAtMostEightClicks()
{
    HostBench bench;
    Workstation host;
    CVrkCliMod* journal = journalOf(host, bench);
    QVERIFY(QTest::qWaitForWindowActive(journal));
    int clicks = 0;
    const auto press = [&clicks](QWidget* widget, const QPoint& place = QPoint()) {
        QVERIFY(widget && widget->isVisible() && widget->isEnabled());
        QTest::mouseClick(widget, Qt::LeftButton, Qt::NoModifier, place);
        ++clicks;
    };
    press(journal->findChild<QAbstractButton*>(QStringLiteral("createButton")));
    QTRY_VERIFY(front() && front()->objectName() == QStringLiteral("RecordCreatorDialog"));
    QWidget* dialog = front();
    auto* tree = dialog->findChild<QTreeView*>(QStringLiteral("templatesTree"));
    const QModelIndexList found =
        tree->model()->match(tree->model()->index(0, 0), Qt::DisplayRole, QStringLiteral("Прочее сообщение"),
                             1, Qt::MatchExactly | Qt::MatchRecursive);
    QCOMPARE(found.size(), 1);
    tree->scrollTo(found.first()); // as the wheel does
    press(tree->viewport(), tree->visualRect(found.first()).center());
    auto* field = dialog->findChild<QPlainTextEdit*>();
    QVERIFY(field);
    press(field->viewport());
    QCOMPARE(QApplication::focusWidget(), field);
    typeText(field, QStringLiteral("Первая запись нового пользователя."));
    press(button(QStringLiteral("Сохранить")));
    QVERIFY(!dialog->isVisible());
    QTRY_VERIFY(isVisible(QStringLiteral("Первая запись нового пользователя.")));
    QVERIFY2(clicks <= 8, qPrintable(QString::number(clicks)));
}

QTEST_MAIN(UserGuide_test)
#include "UserGuide_test.moc"
