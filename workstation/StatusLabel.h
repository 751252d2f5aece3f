#pragma once

#include <QHBoxLayout>
#include <QLabel>

/// The labels of the status line.
namespace StatusLabel
{
/// Legible on light and dark backgrounds.
constexpr char noticeColours[] = "color: black; background: #F2C94C; padding: 1px 6px;";
constexpr char failureColours[] = "color: white; background: #B3261E; padding: 1px 6px;";

/// A new label at the end of the line.
inline QLabel* add(const QString& name, QHBoxLayout* line, int stretch = 0)
{
    auto* label = new QLabel;
    label->setObjectName(name);
    line->addWidget(label, stretch);
    return label;
}
} // namespace StatusLabel
