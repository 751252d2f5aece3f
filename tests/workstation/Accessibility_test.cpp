#include "CPopTemplate.h"
#include "CVrkCliMod.h"
#include "ExpectedWarning.h"
#include "HostBench.h"
#include "PasswordDialog.h"
#include "SettingsWindow.h"
#include "SignIn.h"
#include "SignInDialog.h"
#include "StoreDialog.h"
#include "Workstation.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QSet>
#include <QTabBar>
#include <QTest>
#include <QTextEdit>

/// Every window and dialog of the program, checked for users who see badly or have no mouse.
class Accessibility_test : public QObject
{
    Q_OBJECT

private:
    static QString described(const QWidget* widget)
    {
        QStringList path;
        for (; widget; widget = widget->isWindow() ? nullptr : widget->parentWidget())
            path.prepend(QStringLiteral("%1(%2)").arg(
                widget->objectName(), QString::fromLatin1(widget->metaObject()->className())));
        return path.mid(qMax(0, path.size() - 3)).join(QLatin1Char('/'));
    }
    /// Parts that Qt creates itself; their owners are checked.
    static bool isPart(const QWidget* widget)
    {
        if (widget->objectName().startsWith(QLatin1String("qt_")) || qobject_cast<const QHeaderView*>(widget))
            return true;
        for (const QWidget* owner = widget->parentWidget(); owner && !widget->isWindow();
             owner = owner->parentWidget()) {
            if (qobject_cast<const QAbstractSpinBox*>(owner) || qobject_cast<const QComboBox*>(owner) ||
                qobject_cast<const QLineEdit*>(owner) || qobject_cast<const QHeaderView*>(owner) ||
                qobject_cast<const QTabBar*>(owner))
                return true;
            // The corner of a table that selects all, and the list behind a text.
            if (qobject_cast<const QAbstractItemView*>(owner) &&
                qobject_cast<const QAbstractButton*>(widget) && widget->objectName().isEmpty())
                return true;
        }
        return false;
    }
    static bool isControl(const QWidget* widget)
    {
        const bool isKind =
            qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QLineEdit*>(widget) ||
            qobject_cast<const QTextEdit*>(widget) || qobject_cast<const QPlainTextEdit*>(widget) ||
            qobject_cast<const QComboBox*>(widget) || qobject_cast<const QAbstractSpinBox*>(widget) ||
            qobject_cast<const QAbstractItemView*>(widget);
        return isKind && !isPart(widget);
    }
    static QVector<QWidget*> widgetsOf(QWidget* window)
    {
        QVector<QWidget*> found;
        for (QWidget* widget : window->findChildren<QWidget*>()) {
            if (widget->window() == window)
                found.append(widget);
        }
        return found;
    }
    static QStringList nameless(QWidget* window)
    {
        QStringList found;
        for (QWidget* widget : widgetsOf(window)) {
            if (!isControl(widget))
                continue;
            const QAccessibleInterface* reported = QAccessible::queryAccessibleInterface(widget);
            if (!reported || reported->text(QAccessible::Name).trimmed().isEmpty())
                found << QStringLiteral("no name: ") + described(widget);
        }
        return found;
    }
    static QStringList mnemonicsTwice(QWidget* window)
    {
        QHash<QString, QString> owners;
        QStringList found;
        for (QWidget* widget : widgetsOf(window)) {
            if (!widget->isVisible())
                continue;
            QStringList texts;
            if (const auto* button = qobject_cast<QAbstractButton*>(widget))
                texts << button->text();
            else if (const auto* group = qobject_cast<QGroupBox*>(widget))
                texts << group->title();
            else if (const auto* label = qobject_cast<QLabel*>(widget); label && label->buddy())
                texts << label->text();
            else if (const auto* bar = qobject_cast<QTabBar*>(widget))
                for (int i = 0; i < bar->count(); ++i)
                    texts << bar->tabText(i);
            for (const QString& text : texts) {
                const QString key = QKeySequence::mnemonic(text).toString();
                if (key.isEmpty())
                    continue;
                if (owners.contains(key))
                    found
                        << QStringLiteral("%1 twice: %2, %3").arg(key, owners.value(key), described(widget));
                owners.insert(key, described(widget));
            }
        }
        return found;
    }
    /// Moves by Tab: no widget keeps the focus, and all that accept it are reached.
    static QStringList notReached(QWidget* window)
    {
        QApplication::setActiveWindow(window);
        QCoreApplication::processEvents();
        QWidget* at = window->focusWidget();
        if (!at) {
            QTest::keyClick(window, Qt::Key_Tab);
            at = window->focusWidget();
        }
        QStringList found;
        QSet<QWidget*> visited;
        for (int steps = 0; at && steps < 400 && !visited.contains(at); ++steps) {
            visited.insert(at);
            // In a date Tab first moves from day to month to year.
            const int most = qobject_cast<QDateTimeEdit*>(at) ? 8 : 1;
            QWidget* next = at;
            for (int press = 0; press < most && next == at; ++press) {
                QTest::keyClick(at, Qt::Key_Tab);
                next = window->focusWidget();
            }
            if (next == at)
                found << QStringLiteral("keeps Tab: ") + described(at);
            at = next;
        }
        for (QWidget* widget : widgetsOf(window)) {
            const bool isWanted = isControl(widget) && widget->isVisible() && widget->isEnabled() &&
                                  (widget->focusPolicy() & Qt::TabFocus) && !widget->focusProxy();
            // In a group of radio buttons Tab reaches the checked one.
            const auto* button = qobject_cast<QAbstractButton*>(widget);
            const bool isOfGroup = button && button->autoExclusive() && !button->isChecked();
            if (isWanted && !isOfGroup && !visited.contains(widget))
                found << QStringLiteral("not reached: ") + described(widget);
        }
        return found;
    }
    static QStringList faults(QWidget* window)
    {
        QCoreApplication::processEvents();
        return nameless(window) + mnemonicsTwice(window) + notReached(window);
    }

    std::unique_ptr<HostBench> m_bench;
    std::unique_ptr<Workstation> m_host;

private slots:
    void initTestCase()
    {
        m_bench = std::make_unique<HostBench>();
        const QString failure = HostBench::admin(
            {QStringLiteral("demo"), m_bench->url(QStringLiteral("old.sqlite")), QStringLiteral("--old"),
             QStringLiteral("--old-templates"), QStringLiteral("5")});
        QCOMPARE(failure, QString());
    }
    void cleanup() { m_host.reset(); }
    void cleanupTestCase() { m_bench.reset(); }

    void windowsCanBeUsedWithoutMouseAndSight_data()
    {
        QTest::addColumn<QString>("module");
        for (const char* module :
             {"logbook", "template", "converter", "unfinished", "archive", "bookmarks", "history", "past"})
            QTest::newRow(module) << QString::fromLatin1(module);
    }
    void windowsCanBeUsedWithoutMouseAndSight()
    {
        QFETCH(QString, module);
        Options options;
        options.store = m_bench->url(QStringLiteral("old.sqlite"));
        options.user =
            module == QLatin1String("logbook") ? QStringLiteral("ozerov") : QStringLiteral("admin");
        options.department = QStringLiteral("ЦДС");
        m_host = std::make_unique<Workstation>();
        QVERIFY2(m_host->enter(options), qPrintable(m_host->errorText()));
        CVrkCliMod* window = m_host->startModule(module);
        QVERIFY2(window, qPrintable(m_host->errorText()));
        QStringList found = faults(window);
        int dialogs = 0;
        if (module == QLatin1String("logbook")) // the list of shifts, shown without a department
            expectWarning(QStringLiteral("department keyLink is empty!"));
        for (CPopTemplate* dialog : window->findChildren<CPopTemplate*>()) {
            dialog->show();
            ++dialogs;
            const QString title = dialog->windowTitle() + QStringLiteral(": ");
            for (const QString& fault : faults(dialog))
                found << title + fault;
            dialog->hide();
        }
        if (module == QLatin1String("logbook"))
            QVERIFY2(dialogs >= 12, qPrintable(QString::number(dialogs)));
        for (const QString& fault : qAsConst(found))
            qWarning("%s", qPrintable(fault));
        QCOMPARE(found.size(), 0);
    }

    void settingsCanBeChangedWithoutMouseAndSight()
    {
        Options options;
        options.store = m_bench->url();
        options.user = QStringLiteral("ozerov");
        options.department = QStringLiteral("ЦДС");
        m_host = std::make_unique<Workstation>();
        QVERIFY2(m_host->enter(options), qPrintable(m_host->errorText()));
        CVrkCliMod* journal = m_host->startModule(QStringLiteral("logbook"));
        m_host->showSettings(journal);
        auto* settings = journal->findChild<SettingsWindow*>();
        auto* pages = settings->findChild<QListWidget*>(QStringLiteral("pageList"));
        QStringList found;
        for (int i = 0; i < pages->count(); ++i) {
            pages->setCurrentRow(i);
            for (const QString& fault : faults(settings))
                found << pages->item(i)->text() + QStringLiteral(": ") + fault;
        }
        for (const QString& fault : qAsConst(found))
            qWarning("%s", qPrintable(fault));
        QCOMPARE(found.size(), 0);
    }

    void signingInCanBeDoneWithoutMouseAndSight()
    {
        SignIn signIn;
        QVERIFY(signIn.open(m_bench->url()));
        SignInDialog choice(&signIn, QString(), QString());
        choice.show();
        QStringList found = faults(&choice);
        PasswordDialog password(&signIn, QStringLiteral("postgresql://server/journal"), QString());
        password.show();
        found += faults(&password);
        StoreDialog::remember(m_bench->url());
        StoreDialog store;
        store.show();
        found += faults(&store);
        for (const QString& fault : qAsConst(found))
            qWarning("%s", qPrintable(fault));
        QCOMPARE(found.size(), 0);
    }
};

QTEST_MAIN(Accessibility_test)
#include "Accessibility_test.moc"
