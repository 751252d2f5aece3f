#pragma once

#include <QString>
#include <QStringList>

/// The options of the command line.
struct Options {
    QString store;            ///< URL; empty: ask
    QString user;             ///< login; empty: ask
    QString department;       ///< name or key; empty: the only one, or ask
    QString module;           ///< empty: those that the user has chosen to start with
    QString theme;            ///< light, dark, contrast or system; empty: the last one used
    QString plugin;           ///< library to load in place of the installed plug-ins
    bool listModules = false; ///< list the modules, and whether they can be loaded
    QString tour;             ///< folder for the pictures of the tour; empty: no tour
    bool greets = false;      ///< show new users the first steps, and others what is new
    bool keepsTexts = true;   ///< typed unsaved texts outlive the program; not during the tour

    /// Parses the arguments (the program's name first). False: show \a message and end the program with \a
    /// exitCode, 0 for help and version, 2 for wrong arguments.
    bool parse(const QStringList& arguments, QString* message, int* exitCode);
};
