#pragma once

#include "DemoTemplates.h"

class DemoNetwork;
class DemoWriter;

/// The journal's reference data apart from the network.
namespace DemoReference
{
/// The tree of record templates with its categories at their three levels.
void writeTemplates(DemoWriter* writer, const DemoNetwork& network, const QVector<DemoTemplate>& templates);
/// Some predefined parameters for authors of templates, in two groups.
void writeParameters(DemoWriter* writer);
/// The directories of tables and fields with their Russian names.
void writeDirectories(DemoWriter* writer);
} // namespace DemoReference
