#pragma once

/// What the user may do in the configurator.
namespace Rights
{
enum AdminRights {
    View = 0,       ///< reads
    LocalAdmin = 1, ///< edits the templates of his department
    Admin = 2       ///< edits all templates
};
} // namespace Rights
