#pragma once

class DemoNetwork;
class DemoWriter;

/// The tables of the journal before this one, so that the converter has something to convert: parameters of every kind,
/// categories of the three levels, templates under names of their own, one with a parameter that does not exist.
namespace DemoEarlierJournal
{
void write(DemoWriter* writer, const DemoNetwork& network);
/// The same and more: 60 categories and every construct that the earlier journal knew. \a templates says how many
/// templates there are in all; those of write() are never fewer. Everything in it can be converted and saved.
void writeAll(DemoWriter* writer, const DemoNetwork& network, int templates);
} // namespace DemoEarlierJournal
