#pragma once

class DemoNetwork;
class DemoWriter;

/// The tables of the earlier journal, so that the converter has something to convert: parameters of every
/// kind, categories of the three levels, templates with their own names, one of them with a parameter that
/// does not exist.
namespace DemoEarlierJournal
{
void write(DemoWriter* writer, const DemoNetwork& network);
/// The same and more: 60 categories and every construct of the earlier journal. \a templates is the total
/// number of templates, at least those of write(). Everything in it can be converted and saved.
void writeAll(DemoWriter* writer, const DemoNetwork& network, int templates);
} // namespace DemoEarlierJournal
