#pragma once

class DemoNetwork;
class DemoWriter;

/// The tables of the journal before this one, so that the converter has something to convert: parameters of every kind,
/// categories of the three levels, templates under names of their own, one with a parameter that does not exist.
namespace DemoEarlierJournal
{
void write(DemoWriter* writer, const DemoNetwork& network);
} // namespace DemoEarlierJournal
