#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

/// One column of a sheet.
struct SheetColumn {
    enum Kind {
        Text,
        Verbatim,      ///< a text to the letter, blanks and line ends included
        SafetyGroup,   ///< a whole number from 0 to 5
        Flag,          ///< "да" or "нет"
        Time,          ///< "hh:mm" is a time of day, "dd.MM.yyyy hh:mm" a moment
        Reference,     ///< a row of another sheet by its name
        Scope,         ///< no field: narrows the references of the same row to a department
        EquipmentKind, ///< a Russian word for the kinds that templates know
        Rights,        ///< no field: rows of UserRights
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

/// One table of the store as a file for a spreadsheet.
struct Sheet {
    QString file;
    QString title;
    QByteArray table;
    QVector<SheetColumn> columns; ///< the code comes last
    /// A table of the journal before this one, as it was: headings are its fields, and its keys, names and texts are taken
    /// to the letter, whatever their length. Exported only when it holds a row.
    bool earlier = false;

    const SheetColumn* column(const QString& heading) const;
    QStringList headings() const;
};

namespace Sheets
{
/// All sheets; one refers to itself and those before it only.
const QVector<Sheet>& all();
/// By table; ends the program when there is none.
const Sheet& of(const QByteArray& table);
/// By file name, case ignored; null when there is none.
const Sheet* byFile(const QString& file);
/// The rights that the modules ask for.
const QStringList& rights();
/// The one of \a known that \a word was probably meant to be, or begins; empty when none is like it.
QString nearest(const QString& word, const QStringList& known);
} // namespace Sheets
