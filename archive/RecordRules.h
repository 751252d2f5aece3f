#pragma once

#include <string>

/// Rules for what is unfinished in a record.
namespace RecordRules
{
enum Lack {
    ExecutionTime = 1, ///< its template requires one
    SecondMarker = 2,  ///< its template has one
    Approval = 4,      ///< a draft of a closed shift
};

struct State {
    std::string html;
    int status = 0; ///< RecordStatus
    bool hasExecutionTime = false;
    bool hasSecondMark = false;
    bool isShiftClosed = false;
};
/// A combination of Lack; 0 for finished and deleted records, and for drafts of an open shift, whose crew
/// is still working on them.
int lacksOf(const State& record);
} // namespace RecordRules
