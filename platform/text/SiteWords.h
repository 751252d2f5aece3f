#pragma once

#include <QHash>
#include <QStringList>

class CVrkCliSes;

/// What the site's administrator says about its words, for all its users: which are right, which are short.
namespace SiteWords
{
/// Asks the server; empty if it has none, or cannot be reached.
QStringList of(CVrkCliSes* session);
/// The site's abbreviations and the texts for which they stand. Asks the server, too.
QHash<QString, QString> abbreviations(CVrkCliSes* session);
} // namespace SiteWords
