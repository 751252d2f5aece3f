#pragma once

/// The size of all letters of the program, in percent of the desktop's size.
namespace Letters
{
constexpr int least = 100;
constexpr int most = 175;

/// Applies a size to the whole application, at once.
void apply(int percent);
int current();
} // namespace Letters
