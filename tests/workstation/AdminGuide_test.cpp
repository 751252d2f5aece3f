#include "../support/TestFolder.h"
#include "CVrkCliMod.h"
#include "SourceFile.h"
#include "Workstation.h"

#include <QAction>
#include <QApplication>
#include <QProcess>
#include <QPushButton>
#include <QSettings>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTextCodec>
#include <QTreeView>

/// The page docs/admin-guide.ru.md as an administrator follows it: its commands are run, its tables are
/// saved like by a spreadsheet, and finally a shift is opened.
class AdminGuide_test : public QObject
{
    Q_OBJECT

private slots:
    void thePageLeadsToTheFirstRecord();

private:
    struct Block {
        QString head; ///< what follows the three marks
        QString text;
    };
    static QVector<Block> blocks();
    static QWidget* visible(const char* name);

    QTemporaryDir m_folder{testFolderTemplate()};
};

QVector<AdminGuide_test::Block> AdminGuide_test::blocks()
{
    QFile page(sourceFile("docs/admin-guide.ru.md"));
    QVector<Block> found;
    bool inside = false;
    if (!page.open(QIODevice::ReadOnly))
        return found;
    for (const QString& line : QString::fromUtf8(page.readAll()).split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1String("```"))) {
            inside = !inside;
            if (inside)
                found.append({line.mid(3), QString()});
        } else if (inside) {
            found.last().text += line + QLatin1Char('\n');
        }
    }
    return found;
}

QWidget* AdminGuide_test::visible(const char* name)
{
    for (QWidget* widget : QApplication::allWidgets()) {
        if (widget->isVisible() && widget->inherits(name))
            return widget;
    }
    return nullptr;
}

void AdminGuide_test::thePageLeadsToTheFirstRecord()
{
    QCoreApplication::setOrganizationName(QStringLiteral("vrk-test"));
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.path());
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("PATH"), QCoreApplication::applicationDirPath() + QLatin1Char(':') +
                                                   environment.value(QStringLiteral("PATH")));
    int commands = 0;
    int tables = 0;
    for (const Block& block : blocks()) {
        if (block.head == QLatin1String("sh")) {
            for (const QString& line : block.text.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
                QProcess shell;
                shell.setProcessEnvironment(environment);
                shell.setWorkingDirectory(m_folder.path());
                shell.start(QStringLiteral("sh"), {QStringLiteral("-c"), line});
                QVERIFY(shell.waitForFinished(30000));
                QVERIFY2(shell.exitCode() == 0, shell.readAllStandardError() + shell.readAllStandardOutput());
                ++commands;
            }
            continue;
        }
        const QString name = block.head.section(QLatin1Char(' '), 1);
        QVERIFY2(block.head.startsWith(QLatin1String("csv ")), qPrintable(block.head));
        QFile table(m_folder.filePath(QStringLiteral("tables/") + name));
        QVERIFY2(table.exists(), qPrintable(name)); // the page fills in forms created by the export
        QVERIFY(table.open(QIODevice::WriteOnly | QIODevice::Truncate));
        table.write(QTextCodec::codecForName("Windows-1251")->fromUnicode(block.text));
        ++tables;
    }
    QVERIFY(commands >= 6 && tables >= 6);

    Workstation host;
    Options options;
    options.store = QStringLiteral("sqlite://") + m_folder.filePath(QStringLiteral("journal.sqlite"));
    options.user = QStringLiteral("petrova");
    QVERIFY2(host.enter(options), qPrintable(host.errorText()));
    CVrkCliMod* window = host.startModule(QStringLiteral("logbook"));
    QVERIFY(window);
    auto* open = window->findChild<QAction*>(QStringLiteral("openWorkshiftAction"));
    QVERIFY(open && open->isEnabled());
    open->trigger();
    QTRY_VERIFY(visible("OpenWorkshiftDialog"));
    QWidget* dialog = visible("OpenWorkshiftDialog");

    auto* tree = dialog->findChild<QTreeView*>(QStringLiteral("templatesTree"));
    tree->expandAll();
    const QModelIndexList hits =
        tree->model()->match(tree->model()->index(0, 0), Qt::DisplayRole,
                             QStringLiteral("Краткий приём смены"), 1, Qt::MatchExactly | Qt::MatchRecursive);
    QCOMPARE(hits.size(), 1);
    tree->scrollTo(hits.constFirst());
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier,
                      tree->visualRect(hits.constFirst()).center());
    auto* apply = dialog->findChild<QPushButton*>(QStringLiteral("applyButton"));
    QTRY_VERIFY2(apply->isEnabled(), qPrintable(apply->toolTip()));
    apply->click();
    auto* records = window->findChild<QTableView*>(QStringLiteral("recordsTable"));
    QTRY_COMPARE(records->model()->rowCount(), 1);
    bool found = false;
    for (int column = 0; column < records->model()->columnCount(); ++column)
        found = found || records->model()->index(0, column).data().toString() ==
                             QStringLiteral("Смена принята, замечаний нет.");
    QVERIFY(found);
}

QTEST_MAIN(AdminGuide_test)
#include "AdminGuide_test.moc"
