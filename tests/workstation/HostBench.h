#pragma once

#include "../support/TestFolder.h"

#include <functional>
#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>

/// The environment of host tests: a folder with a demo store created by the real vrk-admin, and separate
/// settings. The shared libraries and the plug-in are the built ones.
struct HostBench {
    HostBench()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("vrk-test"));
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
        qputenv("XDG_DATA_HOME", folder.path().toLocal8Bit());
        QFile::setPermissions(folder.path(), QFile::Permissions(0x7777));
        const QString made = master();
        if (!QFile::copy(made, path(QStringLiteral("store.sqlite"))))
            qFatal("cannot copy the demo store");
    }

    QString path(const QString& name) const { return folder.filePath(name); }
    QString url(const QString& name = QStringLiteral("store.sqlite")) const
    {
        return QStringLiteral("sqlite://") + path(name);
    }

    /// Runs a program to its end; returns its error output if it fails, otherwise an empty text.
    static QString run(const QString& program, const QStringList& arguments)
    {
        QProcess process;
        process.start(program, arguments);
        const bool ended = process.waitForFinished(60000);
        return ended && process.exitCode() == 0
                   ? QString()
                   : QStringLiteral("failed: ") + QString::fromUtf8(process.readAllStandardError());
    }
    static QString admin(const QStringList& arguments)
    {
        return run(QCoreApplication::applicationDirPath() + QStringLiteral("/vrk-admin"), arguments);
    }

    /// Calls \a act when a window of class \a name is shown. Call it before the code that shows the window.
    template <class Window>
    static void whenShown(std::function<void(Window*)> act)
    {
        QTimer::singleShot(0, qApp, [act] {
            for (QWidget* widget : QApplication::topLevelWidgets()) {
                auto* window = qobject_cast<Window*>(widget);
                if (window && window->isVisible())
                    return act(window);
            }
            whenShown<Window>(act); // not yet
        });
    }
    /// Answers the question about unsaved changes.
    static void answer(const QString& text, int* asked)
    {
        whenShown<QMessageBox>([text, asked](QMessageBox* box) {
            ++*asked;
            for (QAbstractButton* button : box->buttons()) {
                if (button->text() == text)
                    return button->click();
            }
            qFatal("the question has no such answer");
        });
    }

    QTemporaryDir folder{testFolderTemplate()};

private:
    /// Created once in a process.
    static QString master()
    {
        static const QTemporaryDir made(testFolderTemplate());
        const QString file = made.filePath(QStringLiteral("demo.sqlite"));
        if (!QFile::exists(file)) {
            const QString failure = admin({QStringLiteral("demo"), QStringLiteral("sqlite://") + file});
            if (!failure.isEmpty())
                qFatal("%s", qPrintable(failure));
        }
        return file;
    }
};
