#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>
#include <string>

/// One record template of the demo, in the notation of templates.txt.
struct DemoTemplate {
    enum Level { Common, OrgType, Department };

    Level level = Common;
    QString owner;          ///< name of the type or department; empty for common ones
    QStringList categories; ///< from the top down, at least one
    QString name;
    QStringList flags; ///< "open_wshift", "close_wshift", "time_exec"
    QString firstMark; ///< path of the marker, empty for none
    QString secondMark;
    QString command;
    std::string html;                    ///< UTF-8, parameters and template properties included
    QHash<QString, QStringList> samples; ///< by label
};

/// Reads the notation of the demo's templates, which templates.txt describes.
namespace DemoTemplates
{
/// The built-in templates.
QVector<DemoTemplate> builtIn();

/// Appends the templates of \a notation. False, and \a error names the line, for an unknown word, a
/// parameter without label, a text parameter without samples, samples without parameter, a command without
/// second marker.
bool parse(const QString& notation, QVector<DemoTemplate>* templates, QString* error);

/// The html (UTF-8) of a text in the notation: parameters, *bold*, ~struck out~, line breaks.
std::string html(const QString& text, QString* error);

/// The kinds of parameters that a text may contain: the base names of ParametersBase.
const QStringList& parameterKinds();
/// The first unknown kind of a parameter in the text; empty if all are known.
QString unknownKind(const QString& text);

/// The inverse: a text without template properties in the notation; null if the notation cannot express it.
QString notation(const std::string& html);

/// The resource path of a marker by its label; empty for an unknown one.
QString markerPath(const QString& label);
QStringList markerLabels();
} // namespace DemoTemplates
