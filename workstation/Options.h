#pragma once

#include <QString>
#include <QStringList>

/// What the command line asks of the workstation.
struct Options {
    QString store;      ///< URL; empty: ask
    QString user;       ///< login; empty: ask
    QString department; ///< name or key; empty: the only one, or ask
    QString module = QStringLiteral("logbook");
    QString theme;            ///< light, dark or system; empty: as last time
    QString plugin;           ///< library to load in place of those of the installed plug-ins
    bool listModules = false; ///< tell which modules there are, and whether they load
    QString tour;             ///< folder for the pictures of the tour; empty: no tour
    bool keepsTexts = true;   ///< what is typed and not written outlives the program; not on the tour

    /// Reads the arguments (the program's name first). False: \a message is to be shown and the program ends,
    /// with \a exitCode 0 for help and version, 2 for wrong arguments.
    bool parse(const QStringList& arguments, QString* message, int* exitCode);
};
