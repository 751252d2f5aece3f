#pragma once

/// Widgets with a style sheet, and those inside of them, keep the colours and the font that they had when the
/// sheet was set.
namespace StyleSheets
{
/// Sets every style sheet of the application again.
void setAgain();
} // namespace StyleSheets
