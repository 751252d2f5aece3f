#pragma once

#include "../support/TestFolder.h"
#include "ReportCommand.h"
#include "SourceFile.h"
#include "TestStore.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTest>

/// vrk-report with its own streams and folder, on a store of tests.
struct Reports {
    explicit Reports(const TestStore& store) : url(store.url()) {}

    ReportCommand::ExitCode run(const QStringList& arguments)
    {
        out.clear();
        err.clear();
        QTextStream outStream(&out);
        QTextStream errStream(&err);
        return ReportCommand::run(arguments, outStream, errStream);
    }
    /// A command with the store's address, a file of the folder, and the department of the standard journal.
    ReportCommand::ExitCode call(const char* command, const QString& file, const QStringList& rest = {})
    {
        return run(QStringList{QLatin1String(command), url, path(file), QStringLiteral("--department"),
                               QStringLiteral("ЦДС")} +
                   rest);
    }
    QString path(const QString& name) const { return folder.filePath(name); }
    QByteArray bytes(const QString& name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QString text(const QString& name) const { return QString::fromUtf8(bytes(name)); }
    /// The text of a PDF.
    QString printed(const QString& name) const
    {
        return output(QStringLiteral("pdftotext"),
                      {QStringLiteral("-layout"), path(name), QStringLiteral("-")});
    }
    /// What check_pages.py says about a page or a folder of pages.
    QString checked(const QString& name, const QStringList& texts = {}) const
    {
        return output(QStringLiteral("python3"),
                      QStringList{sourceFile("tests/report/check_pages.py"), path(name)} + texts);
    }
    static QString output(const QString& program, const QStringList& arguments)
    {
        QProcess process;
        process.start(program, arguments);
        process.waitForFinished(60000);
        return QString::fromUtf8(process.readAllStandardOutput() + process.readAllStandardError()).trimmed();
    }
    QStringList files() const
    {
        return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }
    /// Someone has sealed the store: 12 transactions.
    static QString seal(const TestStore& store)
    {
        return store.exec(
            QStringLiteral("INSERT INTO LogHeads (size, note) VALUES (12, 'vrk-logbook/E\n12\n%1\n\n"
                           "\u2014 seal-1 AAAAAAA=\n')")
                .arg(QString::fromLatin1(QByteArray(32, '\xAB').toBase64())));
    }

    QTemporaryDir folder{testFolderTemplate()};
    QString url;
    QString out;
    QString err;
};
