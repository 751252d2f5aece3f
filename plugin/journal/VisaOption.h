#pragma once

#include <QString>

class CVrkCliSes;

/// Whether the site asks for the password again before each visa: the attribute VisaPassword of the elements Options
/// in the server's options file.
namespace VisaOption
{
bool fromXml(const QString& xml);
/// Asks the server, so that a change counts from the next visa on. False also where no password is asked for at the
/// sign-in.
bool asksPassword(CVrkCliSes* session);
} // namespace VisaOption
