#pragma once

#include <string>

/// What may be left undone in a record.
namespace RecordRules
{
enum Lack {
    ExecutionTime = 1, ///< its template wants one
    SecondMarker = 2,  ///< its template has one
    Approval = 4,      ///< a draft that its shift has left behind
};

struct State {
    std::string html;
    int status = 0; ///< RecordStatus
    bool hasExecutionTime = false;
    bool hasSecondMark = false;
    bool isShiftClosed = false;
};
/// A sum of Lack; 0 for what is done, for deleted records, and for the drafts of an open shift, on which its crew is at work.
int lacksOf(const State& record);
} // namespace RecordRules
