#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

/// One column of a sheet.
struct SheetColumn {
    enum Kind {
        Text,
        Verbatim,      ///< a text taken literally, with its spaces and line ends
        SafetyGroup,   ///< a whole number from 0 to 5
        Flag,          ///< "да" or "нет"
        Time,          ///< "hh:mm" is a time of day, "dd.MM.yyyy hh:mm" a moment
        Reference,     ///< a row of another sheet by its name
        Scope,         ///< not a field: restricts the references of the same row to a department
        EquipmentKind, ///< a Russian word for the kinds that templates use
        Rights,        ///< not a field: rows of UserRights
        Notation,      ///< text of a template, in the notation of TemplateCells
        TemplateFlag,  ///< a template property within the text; field is its name
        TemplateMarker,
        TemplateCommand,
        Code, ///< KeyLink
    };
    enum Use {
        Optional = 0,
        Required = 1, ///< not empty
        Identity = 2, ///< rows with the same identity are the same row
    };

    QString heading;
    QByteArray field;
    Kind kind = Text;
    int use = Optional;
    QByteArray refers; ///< table of a reference
};

/// One table of the store in the form of a spreadsheet file.
struct Sheet {
    QString file;
    QString title;
    QByteArray table;
    QVector<SheetColumn> columns; ///< the code comes last
    /// A table of the earlier journal in its original form: headings are its fields; keys, names and texts
    /// are taken literally, of any length. Exported only if it has rows.
    bool earlier = false;

    const SheetColumn* column(const QString& heading) const;
    QStringList headings() const;
};

namespace Sheets
{
/// All sheets; each refers only to itself and to sheets before it.
const QVector<Sheet>& all();
/// By table; aborts the program if there is none.
const Sheet& of(const QByteArray& table);
/// By file name, ignoring case; null if there is none.
const Sheet* byFile(const QString& file);
/// The rights that the modules check.
const QStringList& rights();
/// The entry of \a known that is most similar to \a word or begins with it; empty if none is similar.
QString nearest(const QString& word, const QStringList& known);
} // namespace Sheets
