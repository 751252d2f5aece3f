#pragma once

#include <QMap>
#include <QString>

/// How templates of the earlier journal were written: parameters as <name>, struck-out passages in square brackets.
namespace TemplateMarks
{
/// Collects the written forms of all parameters, "<" and ">" included, each with whether it is struck out: the last
/// occurrence decides for all. False for a "<" that no ">" follows; \a parameters holds what came before it.
bool parameters(const QString& text, QMap<QString, bool>* parameters);
/// The text with brackets as struck-out passages, line ends as blanks, and blanks where words and parameters would
/// touch; parameters have to be anchors already.
QString normalized(QString text);
/// Path of the marker that the earlier journal called so, with or without ".png"; empty for an unknown name.
QString toResourcesIcon(QString name);
} // namespace TemplateMarks
