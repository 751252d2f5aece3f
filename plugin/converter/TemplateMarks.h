#pragma once

#include <QMap>
#include <QString>

/// The notation of templates in the earlier journal: parameters as <name>, struck-out passages in square
/// brackets.
namespace TemplateMarks
{
/// Collects the written forms of all parameters, including "<" and ">", each with whether it is struck out:
/// the last occurrence decides for all. False if a "<" has no ">"; \a parameters then contains those before
/// it.
bool parameters(const QString& text, QMap<QString, bool>* parameters);
/// The text with brackets as struck-out passages, line ends as spaces, and spaces where words and
/// parameters would touch; parameters must already be anchors.
QString normalized(QString text);
/// Path of the marker with this name in the earlier journal, with or without ".png"; empty for an unknown
/// name.
QString toResourcesIcon(QString name);
} // namespace TemplateMarks
