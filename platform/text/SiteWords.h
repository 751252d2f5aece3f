#pragma once

#include <QStringList>

class CVrkCliSes;

/// The words that the site's administrator has declared right, for all its users.
namespace SiteWords
{
/// Asks the server; empty if it has none, or cannot be reached.
QStringList of(CVrkCliSes* session);
} // namespace SiteWords
